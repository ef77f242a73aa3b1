#include "diff/ui/DiffPane.h"

#include "content/ui/MarkdownView.h"
#include "diff/DiffDetailViewModel.h"
#include "diff/ui/DiffTextView.h"
#include "diff/ui/ImagePairView.h"
#include "settings/LocalizationManager.h"
#include "settings/UndoSentence.h"
#include "widgets/Icons.h"
#include "widgets/OAlert.h"
#include "widgets/OEmptyState.h"

#include <QButtonGroup>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include <filesystem>

namespace orvel {

namespace {

QToolButton* toolButton(const char* objectName, QWidget* parent, bool checkable) {
    auto* button = new QToolButton(parent);
    button->setObjectName(QString::fromLatin1(objectName));
    button->setCheckable(checkable);
    button->setAutoRaise(true);
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    return button;
}

// The kind the header shows: the extension, "binary" for a binary file without one, "folder",
// "submodule".
QString kindOf(const DiffDetailViewModel& model) {
    if (model.content() == DiffDetailViewModel::Content::submodule)
        return localized("submodule");
    const auto& inspection = model.inspection();
    if (inspection && inspection->policy == FileOpenPolicy::directory)
        return localized("folder");
    const std::string extension = std::filesystem::path(model.selection()->file.path).extension().string();
    if (extension.size() > 1)
        return QString::fromUtf8(extension.substr(1));
    return inspection && inspection->metadata.isBinary ? localized("binary") : QString();
}

} // namespace

DiffPane::DiffPane(DiffDetailViewModel& model, QWidget* parent)
    : QWidget(parent), model_(model), side_(new QLabel(this)), path_(new QLabel(this)),
      kind_(new QLabel(this)), modes_(new QButtonGroup(this)),
      diffMode_(toolButton("diff-pane.mode.diff", this, true)),
      splitMode_(toolButton("diff-pane.mode.split", this, true)),
      fileMode_(toolButton("diff-pane.mode.file", this, true)),
      fullContext_(toolButton("diff-pane.full-context", this, true)),
      markdown_(toolButton("diff-pane.render-markdown", this, true)),
      close_(toolButton("diff-pane.close", this, false)), openMergeEditor_(new QPushButton(this)),
      stack_(new QStackedWidget(this)), text_(new DiffTextView(this)), messagePage_(new QWidget(this)),
      message_(new OEmptyState(QStringLiteral("dialog-information"), {}, {}, messagePage_)),
      messageAction_(new QPushButton(messagePage_)), image_(new ImagePairView(this)),
      markdownView_(new MarkdownView(this)) {
    setObjectName(QStringLiteral("diff-pane"));
    side_->setObjectName(QStringLiteral("diff-pane.side"));
    QFont sideFont = side_->font();
    sideFont.setBold(true);
    side_->setFont(sideFont);
    // Apart from the path; a hidden side takes no room.
    side_->setContentsMargins(0, 0, 8, 0);
    path_->setObjectName(QStringLiteral("diff-pane.path"));
    path_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    path_->setTextFormat(Qt::PlainText);
    kind_->setObjectName(QStringLiteral("diff-pane.kind"));
    kind_->setForegroundRole(QPalette::PlaceholderText);
    close_->setIcon(themedIcon(QStringLiteral("window-close")));
    close_->setToolButtonStyle(Qt::ToolButtonIconOnly);
    modes_->setExclusive(true);
    modes_->addButton(diffMode_, int(CodeDiffMode::diff));
    modes_->addButton(splitMode_, int(CodeDiffMode::split));
    modes_->addButton(fileMode_, int(CodeDiffMode::file));
    messageAction_->setObjectName(QStringLiteral("diff-pane.message-action"));
    openMergeEditor_->setObjectName(QStringLiteral("diff-pane.open-merge-editor"));
    markdownView_->setObjectName(QStringLiteral("diff-pane.markdown"));

    auto* header = new QHBoxLayout;
    header->setContentsMargins(8, 4, 4, 4);
    header->addWidget(side_);
    header->addWidget(path_, 1);
    header->addWidget(kind_);
    header->addSpacing(8);
    header->addWidget(openMergeEditor_);
    for (QToolButton* button : {diffMode_, splitMode_, fileMode_, fullContext_, markdown_, close_})
        header->addWidget(button);

    auto* messageLayout = new QVBoxLayout(messagePage_);
    messageLayout->addStretch();
    messageLayout->addWidget(message_);
    messageLayout->addWidget(messageAction_, 0, Qt::AlignHCenter);
    messageLayout->addStretch();

    stack_->addWidget(text_);
    stack_->addWidget(messagePage_);
    stack_->addWidget(image_);
    stack_->addWidget(markdownView_);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(header);
    layout->addWidget(stack_, 1);

    connect(modes_, &QButtonGroup::idClicked, this, [this](int id) { model_.setMode(CodeDiffMode(id)); });
    connect(fullContext_, &QToolButton::toggled, this, [this](bool on) { model_.setFullContext(on); });
    connect(markdown_, &QToolButton::toggled, this, [this](bool on) { model_.setRenderMarkdown(on); });
    connect(close_, &QToolButton::clicked, this, [this] {
        model_.closeDiff();
        emit closeRequested();
    });
    connect(openMergeEditor_, &QPushButton::clicked, this, [this] {
        if (model_.selection())
            emit openMergeEditorRequested(model_.selection()->file.path);
    });
    connect(messageAction_, &QPushButton::clicked, this, [this] {
        if (model_.content() == DiffDetailViewModel::Content::largeFile)
            model_.showLargeFileAnyway();
        else
            model_.retry();
    });
    connect(text_, &DiffTextView::stageHunkRequested, this,
            [this](int hunk, const std::string& shown) { model_.stageHunk(hunk, shown); });
    connect(text_, &DiffTextView::unstageHunkRequested, this,
            [this](int hunk, const std::string& shown) { model_.unstageHunk(hunk, shown); });
    connect(text_, &DiffTextView::discardHunkRequested, this,
            [this](int hunk, const std::string& shown) { model_.requestDiscardHunk(hunk, shown); });
    connect(text_, &DiffTextView::stageLinesRequested, this,
            [this](const std::vector<ChosenLines>& lines) { model_.stageLines(lines); });
    connect(text_, &DiffTextView::unstageLinesRequested, this,
            [this](const std::vector<ChosenLines>& lines) { model_.unstageLines(lines); });
    connect(text_, &DiffTextView::discardLinesRequested, this,
            [this](const std::vector<ChosenLines>& lines) { model_.requestDiscardLines(lines); });
    connect(&model_, &DiffDetailViewModel::contentChanged, this, &DiffPane::showContent);
    connect(&model_, &DiffDetailViewModel::modeChanged, this, &DiffPane::showMode);
    connect(&model_, &DiffDetailViewModel::hunkActionErrorChanged, this, &DiffPane::showHunkActionError);
    connect(&model_, &DiffDetailViewModel::discardConfirmationRequested, this, &DiffPane::confirmDiscard);
    retranslate();
    showMode();
    showContent();
}

void DiffPane::retranslate() {
    diffMode_->setText(localized("Diff"));
    splitMode_->setText(localized("Split"));
    splitMode_->setToolTip(localized("Side-by-side diff"));
    fileMode_->setText(localized("File"));
    fullContext_->setText(model_.fullContext() ? localized("Show changes only")
                                               : localized("Show full file"));
    markdown_->setText(localized("Rendered"));
    markdown_->setToolTip(localized("Show the Markdown rendered"));
    openMergeEditor_->setText(localized("Open Merge Editor"));
    openMergeEditor_->setToolTip(localized("Resolve this file's conflicts in the merge editor"));
    close_->setToolTip(localized("Close diff"));
    close_->setAccessibleName(localized("Close diff"));
    for (QToolButton* button : {diffMode_, splitMode_, fileMode_, fullContext_, markdown_})
        button->setAccessibleName(button->text());
}

void DiffPane::showMode() {
    if (QAbstractButton* button = modes_->button(int(model_.mode())))
        button->setChecked(true);
    const QSignalBlocker blockFull(fullContext_);
    fullContext_->setChecked(model_.fullContext());
    const QSignalBlocker blockMarkdown(markdown_);
    markdown_->setChecked(model_.renderMarkdown());
    retranslate();
    showContent();
}

void DiffPane::showMessage(const QString& icon, const QString& title, const QString& message,
                           const QString& action, const QString& actionHelp) {
    message_->setIconName(icon);
    message_->setTitle(title);
    message_->setMessage(message);
    messageAction_->setVisible(!action.isEmpty());
    messageAction_->setText(action);
    messageAction_->setAccessibleName(actionHelp.isEmpty() ? action : actionHelp);
    messageAction_->setToolTip(actionHelp);
    stack_->setCurrentWidget(messagePage_);
}

void DiffPane::showContent() {
    using Content = DiffDetailViewModel::Content;
    const auto& selection = model_.selection();
    const bool fileMode = model_.mode() == CodeDiffMode::file;
    const bool isMarkdown = model_.language() == SourceLanguage::markdown;
    // Which list the change is of; a commit's change has no side.
    const bool workingTree = selection && !selection->commitHash;
    side_->setText(!workingTree          ? QString()
                   : selection->isStaged ? localized("Staged")
                                         : localized("Unstaged"));
    side_->setVisible(workingTree);
    path_->setText(selection ? QString::fromUtf8(selection->file.path) : QString());
    kind_->setText(selection ? kindOf(model_) : QString());
    fullContext_->setVisible(!fileMode);
    markdown_->setVisible(fileMode && isMarkdown);
    if (model_.content() != Content::loading)
        openMergeEditor_->setVisible(model_.content() == Content::conflict);
    const auto& metadata = model_.inspection() ? model_.inspection()->metadata : FileMetadata{};
    switch (model_.content()) {
    case Content::loading:
        // The previous state stays until the answer, without a flash; an image may take a while.
        if (model_.isReadingImage())
            showMessage(QStringLiteral("view-refresh"), localized("Loading image…"), {});
        return;
    case Content::none:
        showMessage(QStringLiteral("document-open"), localized("No file selected"),
                    localized("Select a file to see its changes."));
        return;
    case Content::noChanges:
        showMessage(QStringLiteral("dialog-information"), localized("No changes"),
                    localized("This file has no changes to show."));
        return;
    case Content::binary:
        showMessage(QStringLiteral("dialog-information"), localized("Binary file"),
                    localized("Binary files are not shown."));
        return;
    case Content::unreadable:
        showMessage(QStringLiteral("dialog-warning"), localized("(binary or unreadable file)"), {});
        return;
    case Content::untrackedFolder: {
        const auto count = metadata.directoryEntries ? metadata.directoryEntries->size() : 0;
        showMessage(QStringLiteral("folder"), localized("Untracked folder"),
                    count == 0 ? localized("(empty directory)")
                               : localized("%1 item(s); not yet tracked by git.", QString::number(count)));
        return;
    }
    case Content::largeFile: {
        QString size = QLocale().formattedDataSize(qint64(metadata.size));
        if (metadata.lineCount)
            size += QStringLiteral(", ") + QLocale().toString(qlonglong(*metadata.lineCount)) +
                    localized(" lines");
        showMessage(QStringLiteral("dialog-warning"), localized("File too large to display"), size,
                    localized("Show Anyway"), localized("Load and display this large file"));
        return;
    }
    case Content::unsupported: {
        const QString kind = kind_->text().isEmpty() ? localized("binary") : kind_->text();
        showMessage(QStringLiteral("dialog-information"), localized("Preview not supported"),
                    localized(".%1 files cannot be displayed", kind));
        return;
    }
    case Content::submodule: {
        const SubmoduleChange& change = *model_.submoduleChange();
        QString title = localized("Submodule %1: %2 → %3", QString::fromUtf8(selection->file.path),
                                  QString::fromStdString(shortHash(change.oldHash)),
                                  QString::fromStdString(shortHash(change.newHash)));
        if (change.isDirty)
            title += localized(" (dirty)");
        showMessage(QStringLiteral("folder"), title, {});
        return;
    }
    case Content::failed:
        showMessage(QStringLiteral("dialog-error"), localized("Failed to load diff"), model_.diffLoadError(),
                    localized("Retry"));
        return;
    case Content::image:
        image_->setImages(model_.oldImage(), model_.newImage());
        stack_->setCurrentWidget(image_);
        return;
    case Content::diff:
    case Content::conflict:
        break;
    }
    if (fileMode && isMarkdown && model_.renderMarkdown() && model_.fileText()) {
        markdownView_->setMarkdown(QString::fromUtf8(*model_.fileText()));
        stack_->setCurrentWidget(markdownView_);
        return;
    }
    // A conflict's rows are one column: git's markers stand between the two sides.
    const bool split = model_.mode() == CodeDiffMode::split && model_.content() == Content::diff;
    const auto layout = fileMode ? DiffTextView::Layout::file
                        : split  ? DiffTextView::Layout::sideBySide
                                 : DiffTextView::Layout::unified;
    text_->setRows(model_.rows(), layout, model_.language(),
                   fileMode ? DiffDetailViewModel::HunkActions{} : model_.hunkActions());
    stack_->setCurrentWidget(text_);
}

void DiffPane::showHunkActionError() {
    const auto& error = model_.hunkActionError();
    if (!error)
        return;
    QPointer<DiffDetailViewModel> model(&model_);
    QMessageBox* alert = showAlert(this, QMessageBox::Warning, localized("Hunk Action Failed"), *error, {}, 0,
                                   [model](int) {
                                       if (model)
                                           model->clearHunkActionError();
                                   });
    alert->setObjectName(QStringLiteral("diff-pane.hunk-error"));
}

void DiffPane::confirmDiscard() {
    const QString message = model_.discardsLines()
                                ? undoableText(localized("The chosen lines' changes will be discarded."),
                                               localized("The chosen lines' changes will be permanently lost."))
                                : undoableText(localized("This hunk's changes will be discarded."),
                                               localized("This hunk's changes will be permanently lost."));
    QPointer<DiffDetailViewModel> model(&model_);
    QMessageBox* box = showAlert(this, QMessageBox::Warning, localized("Discard Changes?"), message,
                                 {{localized("Cancel"), QMessageBox::RejectRole},
                                  {localized("Discard"), QMessageBox::DestructiveRole}},
                                 0, [model](int chosen) {
                                     if (!model)
                                         return;
                                     if (chosen == 1)
                                         model->confirmDiscard();
                                     else
                                         model->cancelDiscard();
                                 });
    box->setObjectName(QStringLiteral("diff-pane.discard-confirmation"));
    for (QAbstractButton* button : box->buttons())
        if (box->buttonRole(button) == QMessageBox::DestructiveRole)
            button->setObjectName(QStringLiteral("diff-pane.discard-confirm"));
}

void DiffPane::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        showContent();
    }
    QWidget::changeEvent(event);
}

} // namespace orvel
