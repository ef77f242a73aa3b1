#include "graph/ui/RepoHistoryAuthorsSection.h"

#include "settings/DisplayLocale.h"
#include "settings/LocalizationManager.h"

#include <QDateTime>
#include <QEvent>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

namespace orvel {

namespace {

QString authorLine(const CommitAuthor& author) {
    QString line = QString::fromUtf8(author.name).toHtmlEscaped();
    line = QStringLiteral("<b>%1</b>").arg(line);
    if (author.email && !author.email->empty())
        line += QStringLiteral(" &lt;%1&gt;").arg(QString::fromUtf8(*author.email).toHtmlEscaped());
    if (author.date != distantPast) {
        const auto seconds = author.date.time_since_epoch().count();
        line += QStringLiteral("<br>") +
                displayLocale()
                    .toString(QDateTime::fromSecsSinceEpoch(seconds), QLocale::LongFormat)
                    .toHtmlEscaped();
    }
    return line;
}

} // namespace

RepoHistoryAuthorsSection::RepoHistoryAuthorsSection(QWidget* parent)
    : QWidget(parent), authors_(new QLabel(this)), parentsLabel_(new QLabel(this)),
      parentLinks_(new QHBoxLayout) {
    authors_->setTextFormat(Qt::RichText);
    authors_->setWordWrap(true);
    authors_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    parentLinks_->setSpacing(4);
    auto* parentsRow = new QHBoxLayout;
    parentsRow->addWidget(parentsLabel_);
    parentsRow->addLayout(parentLinks_);
    parentsRow->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(authors_);
    layout->addLayout(parentsRow);
    retranslate();
    hide();
}

void RepoHistoryAuthorsSection::setCommit(const GraphCommit* commit) {
    // The clicked link may be among them: it goes once its click has been handled.
    for (QPushButton* button : parentButtons_) {
        parentLinks_->removeWidget(button);
        button->hide();
        button->deleteLater();
    }
    parentButtons_.clear();
    parentHashes_.clear();
    setVisible(commit != nullptr);
    if (!commit)
        return;

    shownAuthors_ = commit->authors;
    authors_->setVisible(!shownAuthors_.empty());

    parentHashes_ = commit->parentHashes;
    // Git abbreviates every hash of a repository to one length, which its reading of the commit
    // tells; until that reading arrives, git's shortest abbreviation stands in.
    const std::size_t length = commit->abbreviatedHash.empty() ? 7 : commit->abbreviatedHash.size();
    for (const std::string& hash : parentHashes_) {
        const QString shortHash = QString::fromUtf8(hash.substr(0, length));
        auto* link = new QPushButton(shortHash, this);
        link->setObjectName(QStringLiteral("history.parent-link"));
        link->setFlat(true);
        link->setCursor(Qt::PointingHandCursor);
        QFont mono = QFontDatabase::systemFont(QFontDatabase::FixedFont);
        mono.setUnderline(true);
        link->setFont(mono);
        connect(link, &QPushButton::clicked, this, [this, hash] { emit parentActivated(hash); });
        parentLinks_->addWidget(link);
        parentButtons_.push_back(link);
    }
    parentsLabel_->setVisible(!parentHashes_.empty());
    retranslate();
}

void RepoHistoryAuthorsSection::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void RepoHistoryAuthorsSection::retranslate() {
    parentsLabel_->setText(localized("Parents:"));
    QStringList lines;
    for (const CommitAuthor& author : shownAuthors_)
        lines.push_back(authorLine(author));
    authors_->setText(lines.join(QStringLiteral("<br>")));
    for (QPushButton* link : parentButtons_)
        link->setAccessibleName(localized("Select parent %1", link->text()));
}

} // namespace orvel
