#include "content/ui/RepositoryPreview.h"

#include "content/WelcomeViewModel.h"
#include "content/ui/MarkdownView.h"
#include "settings/DisplayLocale.h"
#include "settings/LocalizationManager.h"
#include "settings/ThemeEngine.h"

#include <QDateTime>
#include <QEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace orvel {

namespace {

QLabel* sectionTitle(QWidget* parent) {
    auto* label = new QLabel(parent);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    return label;
}

QString text(const std::string& bytes) {
    return QString::fromUtf8(bytes).toHtmlEscaped();
}

} // namespace

RepositoryPreview::RepositoryPreview(WelcomeViewModel& model, QWidget* parent)
    : QWidget(parent), model_(model), name_(new QLabel(this)), path_(new QLabel(this)),
      open_(new QPushButton(this)), close_(new QToolButton(this)), status_(new QLabel(this)),
      branchesTitle_(sectionTitle(this)), branches_(new QLabel(this)), commitsTitle_(sectionTitle(this)),
      commits_(new QLabel(this)), readmeTitle_(sectionTitle(this)), readmeNotice_(new QLabel(this)),
      readmeMissing_(new QLabel(this)), readme_(new MarkdownView(this)) {
    setObjectName(QStringLiteral("welcome.preview"));
    QFont nameFont = name_->font();
    nameFont.setPointSizeF(nameFont.pointSizeF() * 17.0 / 13.0);
    nameFont.setBold(true);
    name_->setFont(nameFont);
    name_->setObjectName(QStringLiteral("welcome.preview.name"));
    path_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    open_->setObjectName(QStringLiteral("welcome.preview.open"));
    open_->setDefault(true);
    close_->setObjectName(QStringLiteral("welcome.preview.close"));
    close_->setText(QStringLiteral("×"));
    close_->setAutoRaise(true);
    status_->setObjectName(QStringLiteral("welcome.preview.status"));
    status_->setWordWrap(true);
    branches_->setObjectName(QStringLiteral("welcome.preview.branches"));
    commits_->setObjectName(QStringLiteral("welcome.preview.commits"));
    for (QLabel* label : {branches_, commits_}) {
        label->setTextFormat(Qt::RichText);
        label->setWordWrap(true);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
    readme_->setObjectName(QStringLiteral("welcome.preview.readme"));
    readmeNotice_->setObjectName(QStringLiteral("welcome.preview.readme-notice"));
    readmeMissing_->setObjectName(QStringLiteral("welcome.preview.readme-missing"));

    auto* header = new QHBoxLayout;
    auto* titles = new QVBoxLayout;
    titles->setSpacing(2);
    titles->addWidget(name_);
    titles->addWidget(path_);
    header->addLayout(titles, 1);
    header->addWidget(open_, 0, Qt::AlignTop);
    header->addWidget(close_, 0, Qt::AlignTop);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 20, 24, 12);
    layout->setSpacing(6);
    layout->addLayout(header);
    layout->addWidget(status_);
    layout->addSpacing(8);
    auto* lists = new QHBoxLayout;
    lists->setSpacing(24);
    auto* branchColumn = new QVBoxLayout;
    branchColumn->setSpacing(4);
    branchColumn->addWidget(branchesTitle_);
    branchColumn->addWidget(branches_);
    branchColumn->addStretch();
    auto* commitColumn = new QVBoxLayout;
    commitColumn->setSpacing(4);
    commitColumn->addWidget(commitsTitle_);
    commitColumn->addWidget(commits_);
    commitColumn->addStretch();
    lists->addLayout(branchColumn, 1);
    lists->addLayout(commitColumn, 2);
    layout->addLayout(lists);
    layout->addSpacing(8);
    layout->addWidget(readmeTitle_);
    layout->addWidget(readmeMissing_);
    layout->addWidget(readme_, 1);
    layout->addWidget(readmeNotice_);

    connect(open_, &QPushButton::clicked, this, [this] {
        if (model_.selectedPath())
            emit openRequested(*model_.selectedPath());
    });
    connect(close_, &QToolButton::clicked, this, &RepositoryPreview::closeRequested);
    connect(&model_, &WelcomeViewModel::previewChanged, this, &RepositoryPreview::showState);
    connect(&ThemeEngine::shared(), &ThemeEngine::themeChanged, this, &RepositoryPreview::showState);
    retranslate();
}

void RepositoryPreview::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    else if (event->type() == QEvent::PaletteChange)
        showState();
}

void RepositoryPreview::retranslate() {
    open_->setText(localized("Open"));
    open_->setAccessibleName(localized("Open repository"));
    close_->setToolTip(localized("Close preview"));
    close_->setAccessibleName(localized("Close preview"));
    branchesTitle_->setText(localized("Branches"));
    commitsTitle_->setText(localized("Recent Commits"));
    readmeTitle_->setText(localized("README.md"));
    readmeMissing_->setText(localized("No README.md found"));
    showState();
}

QString RepositoryPreview::branchesText() const {
    const auto& branches = model_.branches();
    if (branches.empty())
        return localized("No branches found").toHtmlEscaped();
    QStringList lines;
    const int shown = std::min<int>(shownBranches, static_cast<int>(branches.size()));
    const QString accent = ThemeEngine::shared().currentTokens().accent.name();
    for (int index = 0; index < shown; ++index) {
        const BranchEntry& branch = branches[static_cast<std::size_t>(index)];
        lines << (branch.isCurrent
                      ? QStringLiteral("<b style=\"color:%1\">● %2</b>").arg(accent, text(branch.name))
                      : QStringLiteral("○ ") + text(branch.name));
    }
    if (branches.size() > static_cast<std::size_t>(shown))
        lines << localized("+%1 more", static_cast<int>(branches.size()) - shown).toHtmlEscaped();
    return lines.join(QStringLiteral("<br/>"));
}

QString RepositoryPreview::commitsText() const {
    const auto& commits = model_.recentCommits();
    if (commits.empty())
        return localized("No commits yet").toHtmlEscaped();
    const ThemeTokens& tokens = ThemeEngine::shared().currentTokens();
    QStringList lines;
    for (const CommitEntry& commit : commits) {
        const QDateTime date = QDateTime::fromSecsSinceEpoch(commit.authorDate.time_since_epoch().count());
        lines << QStringLiteral("<span style=\"font-family:monospace; color:%1\">%2</span>&nbsp; %3"
                                "<br/><span style=\"color:%1\">%4 · %5</span>")
                     .arg(tokens.fg2.name(), text(commit.abbreviatedHash), text(commit.subject),
                          text(commit.authorName),
                          displayLocale().toString(date.toLocalTime(), QLocale::ShortFormat));
    }
    return lines.join(QStringLiteral("<br/>"));
}

void RepositoryPreview::showState() {
    const auto& selected = model_.selectedPath();
    const QString path = selected.value_or(QString());
    name_->setText(QFileInfo(path).fileName());
    path_->setText(path);
    QPalette secondary = path_->palette();
    secondary.setColor(QPalette::WindowText, ThemeEngine::shared().currentTokens().fg2);
    path_->setPalette(secondary);
    open_->setEnabled(selected.has_value());

    if (model_.isLoading())
        status_->setText(localized("Loading…"));
    else if (model_.errorMessage())
        status_->setText(*model_.errorMessage());
    status_->setVisible(model_.isLoading() || model_.errorMessage());
    const bool loaded = !model_.isLoading() && model_.repo();
    branches_->setText(loaded ? branchesText() : QString());
    commits_->setText(loaded ? commitsText() : QString());

    const auto& readme = model_.readme();
    readmeTitle_->setText(readme ? readme->fileName : localized("README.md"));
    readmeMissing_->setVisible(loaded && !readme);
    readme_->setVisible(readme.has_value());
    readmeNotice_->setVisible(readme && (readme->isCut || readme->isTruncated));
    readmeNotice_->setText(readme && readme->isTruncated
                               ? localized("README truncated at 1 MB")
                               : localized("Only the first %1 lines are shown.", Readme::maxLines));
    if (!readme)
        readme_->setMarkdown(QString());
    else if (readme->isMarkdown())
        readme_->setMarkdown(readme->text);
    else
        readme_->setPlainDocument(readme->text);
}

} // namespace orvel
