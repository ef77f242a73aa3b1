#include "merge/ui/ConflictBanner.h"

#include "merge/ConflictBannerContent.h"
#include "merge/ConflictBannerViewModel.h"
#include "merge/ui/ConflictResolutionView.h"
#include "settings/LocalizationManager.h"
#include "settings/ThemeEngine.h"
#include "widgets/Icons.h"
#include "widgets/OAlert.h"

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QToolButton>

namespace orvel {

namespace {

constexpr int iconSize = 16;

// The system font of 12 points where the body is 13, in the given weight.
QFont bannerFont(QFont::Weight weight) {
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * 12.0 / 13.0);
    font.setWeight(weight);
    return font;
}

} // namespace

ConflictBanner::ConflictBanner(ConflictBannerViewModel& model, QWidget* parent)
    : QWidget(parent), model_(model), icon_(new QLabel(this)), text_(new QLabel(this)),
      openMergeEditor_(new QToolButton(this)), skip_(new QPushButton(this)), continue_(new QPushButton(this)),
      abort_(new QPushButton(this)) {
    setObjectName(QStringLiteral("conflict-banner"));
    openMergeEditor_->setObjectName(QStringLiteral("conflict-banner.open-merge-editor"));
    skip_->setObjectName(QStringLiteral("conflict-banner.skip"));
    continue_->setObjectName(QStringLiteral("conflict-banner.continue"));
    abort_->setObjectName(QStringLiteral("conflict-banner.abort"));
    text_->setObjectName(QStringLiteral("conflict-banner.text"));
    openMergeEditor_->setToolButtonStyle(Qt::ToolButtonTextOnly);
    openMergeEditor_->setMenu(new QMenu(openMergeEditor_));
    text_->setTextFormat(Qt::PlainText);
    text_->setFont(bannerFont(QFont::Medium));

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(10, 6, 10, 6);
    layout->addWidget(icon_);
    layout->addWidget(text_, 1);
    layout->addWidget(openMergeEditor_);
    layout->addWidget(skip_);
    layout->addWidget(continue_);
    layout->addWidget(abort_);

    connect(openMergeEditor_, &QToolButton::clicked, this, [this] {
        if (const auto first = model_.firstConflict())
            openMergeEditor(*first);
    });
    connect(skip_, &QPushButton::clicked, &model_, [this] { model_.skipRebase(); });
    connect(continue_, &QPushButton::clicked, &model_, [this] { model_.continueRebase(); });
    connect(abort_, &QPushButton::clicked, this, &ConflictBanner::confirmAbort);
    connect(&model_, &ConflictBannerViewModel::stateChanged, this, &ConflictBanner::showState);
    connect(&model_, &ConflictBannerViewModel::busyChanged, this, &ConflictBanner::showState);
    connect(&ThemeEngine::shared(), &ThemeEngine::themeChanged, this, &ConflictBanner::applyColours);
    applyColours();
    showState();
}

void ConflictBanner::showState() {
    const RepositoryState state = model_.repoState();
    setVisible(state != RepositoryState::clean);
    const ConflictBannerContent content = conflictBannerContent(state);
    text_->setText(content.text);
    icon_->setPixmap(tintedPixmap(
        themedIcon(content.iconName), iconSize,
        ThemeEngine::shared().currentTheme().colors.conflict.bannerForeground.color(), devicePixelRatioF()));
    openMergeEditor_->setText(localized("Open Merge Editor"));
    openMergeEditor_->setAccessibleName(localized("Open the merge editor on the first conflicted file"));
    skip_->setText(localized("Skip"));
    skip_->setAccessibleName(localized("Skip this commit of the rebase"));
    continue_->setText(localized("Continue"));
    continue_->setAccessibleName(localized("Continue the rebase"));
    abort_->setText(localized("Abort"));
    abort_->setAccessibleName(content.abortTitle);

    // With more than one conflicted file, the button's menu offers each of them.
    const auto& conflicts = model_.conflicts();
    QMenu* files = openMergeEditor_->menu();
    files->clear();
    for (const ConflictEntry& conflict : conflicts)
        files->addAction(QString::fromUtf8(conflict.path), this,
                         [this, conflict] { openMergeEditor(conflict); });
    openMergeEditor_->setPopupMode(conflicts.size() > 1 ? QToolButton::MenuButtonPopup
                                                        : QToolButton::DelayedPopup);

    const bool idle = !model_.isBusy();
    openMergeEditor_->setEnabled(idle && !conflicts.empty());
    skip_->setVisible(content.offersContinue);
    continue_->setVisible(content.offersContinue);
    skip_->setEnabled(idle);
    continue_->setEnabled(idle);
    abort_->setEnabled(idle);
}

void ConflictBanner::applyColours() {
    const ConflictColors& colours = ThemeEngine::shared().currentTheme().colors.conflict;
    QPalette palette = this->palette();
    palette.setColor(QPalette::WindowText, colours.bannerForeground.color());
    palette.setColor(QPalette::ButtonText, colours.bannerForeground.color());
    palette.setColor(QPalette::Button, colours.buttonBackground.color());
    for (QWidget* child :
         {static_cast<QWidget*>(icon_), static_cast<QWidget*>(text_), static_cast<QWidget*>(openMergeEditor_),
          static_cast<QWidget*>(skip_), static_cast<QWidget*>(continue_), static_cast<QWidget*>(abort_)})
        child->setPalette(palette);
    showState();
    update();
}

void ConflictBanner::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), ThemeEngine::shared().currentTheme().colors.conflict.bannerBackground.color());
}

void ConflictBanner::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        showState();
}

void ConflictBanner::confirmAbort() {
    const ConflictBannerContent content = conflictBannerContent(model_.repoState());
    QMessageBox* box = confirm(
        this, content.abortTitle,
        localized("This will discard all conflict resolutions and return to the previous state. This cannot "
                  "be undone."),
        content.abortTitle, true, [model = QPointer<ConflictBannerViewModel>(&model_)] {
            if (model)
                model->abort();
        });
    // The confirming button carries the banner's identifier for it.
    for (QAbstractButton* choice : box->buttons())
        if (box->buttonRole(choice) == QMessageBox::DestructiveRole)
            choice->setObjectName(QStringLiteral("conflict-banner.abort-confirm"));
}

void ConflictBanner::openMergeEditor(const ConflictEntry& conflict) {
    auto* editor = new ConflictResolutionView(model_.repo(), conflict, model_.service(), this);
    editor->setAttribute(Qt::WA_DeleteOnClose);
    connect(editor, &ConflictResolutionView::saved, &model_, &ConflictBannerViewModel::resolutionSaved);
    editor->open();
}

} // namespace orvel
