#include "merge/ui/ConflictBanner.h"

#include "merge/ConflictBannerContent.h"
#include "merge/ConflictBannerViewModel.h"
#include "merge/ui/ConflictResolutionView.h"
#include "settings/LocalizationManager.h"
#include "settings/ThemeEngine.h"
#include "widgets/Icons.h"
#include "widgets/OAlert.h"
#include "widgets/TextContrast.h"

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>

#include <algorithm>

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
      openMergeEditor_(new QToolButton(this)), files_(new QMenu(this)), skip_(new QPushButton(this)),
      continue_(new QPushButton(this)), abort_(new QPushButton(this)) {
    setObjectName(QStringLiteral("conflict-banner"));
    openMergeEditor_->setObjectName(QStringLiteral("conflict-banner.open-merge-editor"));
    skip_->setObjectName(QStringLiteral("conflict-banner.skip"));
    continue_->setObjectName(QStringLiteral("conflict-banner.continue"));
    abort_->setObjectName(QStringLiteral("conflict-banner.abort"));
    text_->setObjectName(QStringLiteral("conflict-banner.text"));
    openMergeEditor_->setToolButtonStyle(Qt::ToolButtonTextOnly);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
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

    connect(openMergeEditor_, &QToolButton::clicked, &model_, [this] { model_.openMergeEditor(); });
    connect(&model_, &ConflictBannerViewModel::mergeEditorRequested, this, &ConflictBanner::openMergeEditor);
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
    icon_->setPixmap(
        tintedPixmap(themedIcon(content.iconName), iconSize,
                     ConflictBannerColours::of(ThemeEngine::shared().currentTheme().colors.conflict).text,
                     devicePixelRatioF()));
    openMergeEditor_->setText(localized("Open Merge Editor"));
    openMergeEditor_->setAccessibleName(localized("Open the merge editor on the selected conflicted file"));
    skip_->setText(localized("Skip"));
    skip_->setAccessibleName(localized("Skip this commit of the rebase"));
    continue_->setText(localized("Continue"));
    continue_->setAccessibleName(localized("Continue the rebase"));
    abort_->setText(localized("Abort"));
    abort_->setAccessibleName(content.abortTitle);

    // With more than one conflicted file, the button's menu offers each of them.
    const auto& conflicts = model_.conflicts();
    files_->clear();
    for (const ConflictEntry& conflict : conflicts)
        files_->addAction(QString::fromUtf8(conflict.path), this,
                          [this, conflict] { openMergeEditor(conflict); });
    openMergeEditor_->setMenu(conflicts.size() > 1 ? files_ : nullptr);
    openMergeEditor_->setPopupMode(conflicts.size() > 1 ? QToolButton::MenuButtonPopup
                                                        : QToolButton::DelayedPopup);
    if (openMergeEditor_->property("offersFiles").toBool() != (conflicts.size() > 1)) {
        openMergeEditor_->setProperty("offersFiles", conflicts.size() > 1);
        openMergeEditor_->style()->polish(openMergeEditor_);
    }

    const bool idle = !model_.isBusy();
    openMergeEditor_->setEnabled(idle && !conflicts.empty());
    skip_->setVisible(content.offersContinue);
    continue_->setVisible(content.offersContinue);
    skip_->setEnabled(idle);
    continue_->setEnabled(idle);
    abort_->setEnabled(idle);
}

namespace {

QString cssColour(QColor colour) {
    return QStringLiteral("rgba(%1, %2, %3, %4)")
        .arg(QString::number(colour.red()), QString::number(colour.green()), QString::number(colour.blue()),
             QString::number(colour.alphaF(), 'f', 2));
}

QColor withAlpha(QColor colour, double factor) {
    colour.setAlphaF(std::min(1.0, colour.alphaF() * factor));
    return colour;
}

} // namespace

ConflictBannerColours ConflictBannerColours::of(const ConflictColors& theme) {
    ConflictBannerColours colours;
    colours.background = theme.bannerBackground.color();
    colours.text = readableOn(colours.background, theme.bannerForeground.color());
    colours.button = theme.buttonBackground.color();
    colours.pressedButton = withAlpha(colours.button, 2.2);
    colours.buttonText = readableOn(laidOver(colours.pressedButton, colours.background),
                                    readableOn(laidOver(colours.button, colours.background), colours.text));
    return colours;
}

// The buttons are flat and translucent over the banner's colour, which a native button cannot be.
void ConflictBanner::applyColours() {
    const ConflictBannerColours colours =
        ConflictBannerColours::of(ThemeEngine::shared().currentTheme().colors.conflict);
    const QColor& foreground = colours.buttonText;
    const QColor& button = colours.button;
    QPalette palette = this->palette();
    palette.setColor(QPalette::WindowText, colours.text);
    icon_->setPalette(palette);
    text_->setPalette(palette);
    const QString sheet =
        QStringLiteral("QPushButton, QToolButton { background: %1; color: %2; border: 1px solid transparent;"
                       " border-radius: 4px; padding: 3px 10px; }"
                       "QToolButton[offersFiles=\"true\"] { padding-right: 20px; }"
                       "QToolButton::menu-button { background: transparent; border: none; width: 16px; }"
                       "QPushButton:hover, QToolButton:hover { background: %3; }"
                       "QPushButton:pressed, QToolButton:pressed { background: %4; }"
                       "QPushButton:focus, QToolButton:focus { border-color: %2; }"
                       "QPushButton:disabled, QToolButton:disabled { color: %5; }")
            .arg(cssColour(button), cssColour(foreground), cssColour(withAlpha(button, 1.6)),
                 cssColour(colours.pressedButton), cssColour(withAlpha(foreground, 0.5)));
    for (QWidget* control : {static_cast<QWidget*>(openMergeEditor_), static_cast<QWidget*>(skip_),
                             static_cast<QWidget*>(continue_), static_cast<QWidget*>(abort_)})
        control->setStyleSheet(sheet);
    showState();
    update();
}

void ConflictBanner::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(
        rect(), ConflictBannerColours::of(ThemeEngine::shared().currentTheme().colors.conflict).background);
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
