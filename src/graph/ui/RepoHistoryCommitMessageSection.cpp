#include "graph/ui/RepoHistoryCommitMessageSection.h"

#include "settings/LocalizationManager.h"
#include "widgets/Icons.h"

#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace orvel {

namespace {

QLabel* selectableLabel(QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return label;
}

} // namespace

RepoHistoryCommitMessageSection::RepoHistoryCommitMessageSection(QWidget* parent)
    : QWidget(parent), hash_(selectableLabel(this)), copyButton_(new QPushButton(this)),
      subject_(selectableLabel(this)), description_(selectableLabel(this)),
      copyCheckTimer_(new QTimer(this)) {
    copyButton_->setObjectName(QStringLiteral("history.copy-message"));
    subject_->setObjectName(QStringLiteral("history.subject"));
    QFont subjectFont = subject_->font();
    subjectFont.setBold(true);
    subject_->setFont(subjectFont);
    copyCheckTimer_->setSingleShot(true);
    copyCheckTimer_->setInterval(copyCheckMilliseconds);
    connect(copyCheckTimer_, &QTimer::timeout, this, [this] {
        showCopyCheck_ = false;
        retranslate();
    });
    connect(copyButton_, &QPushButton::clicked, this, &RepoHistoryCommitMessageSection::copy);

    auto* header = new QHBoxLayout;
    header->addWidget(hash_, 1);
    header->addWidget(copyButton_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(header);
    layout->addWidget(subject_);
    layout->addWidget(description_);
    retranslate();
    hide();
}

void RepoHistoryCommitMessageSection::setCommit(const GraphCommit* commit) {
    selectedCommit_ = commit ? std::optional(*commit) : std::nullopt;
    if (selectedCommit_) {
        subject_->setText(QString::fromUtf8(selectedCommit_->subject));
        description_->setText(QString::fromUtf8(selectedCommit_->body).trimmed());
        description_->setVisible(!description_->text().isEmpty());
    }
    retranslate();
    setVisible(selectedCommit_.has_value());
}

void RepoHistoryCommitMessageSection::copy() {
    if (!selectedCommit_)
        return;
    std::string message = selectedCommit_->subject;
    if (!selectedCommit_->body.empty())
        message += "\n\n" + selectedCommit_->body;
    QGuiApplication::clipboard()->setText(QString::fromUtf8(message));
    showCopyCheck_ = true;
    retranslate();
    copyCheckTimer_->start();
}

void RepoHistoryCommitMessageSection::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void RepoHistoryCommitMessageSection::retranslate() {
    // The working-tree row has no hash to show.
    if (selectedCommit_)
        hash_->setText(selectedCommit_->abbreviatedHash.empty()
                           ? QString()
                           : localized("Commit: ") + QString::fromUtf8(selectedCommit_->abbreviatedHash));
    copyButton_->setIcon(showCopyCheck_ ? QIcon() : themedIcon(QStringLiteral("edit-copy")));
    copyButton_->setText(showCopyCheck_ ? QStringLiteral("\u2713 ") + localized("Copied")
                                        : localized("Copy"));
    copyButton_->setAccessibleName(showCopyCheck_ ? localized("Message copied")
                                                  : localized("Copy commit message"));
}

} // namespace orvel
