#include "merge/ui/ConflictResolutionView.h"

#include "core/support/Log.h"
#include "merge/ConflictResolutionViewModel.h"
#include "merge/MergeLineRows.h"
#include "merge/ui/MergeLineDelegate.h"
#include "merge/ui/MergeLineModel.h"
#include "settings/LocalizationManager.h"
#include "widgets/OInlineMessage.h"

#include <QEvent>
#include <QFileInfo>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace orvel {

namespace {

QPushButton* button(QWidget* parent, const char* objectName) {
    auto* made = new QPushButton(parent);
    made->setObjectName(QString::fromLatin1(objectName));
    made->setAutoDefault(false);
    return made;
}

QListView* linePanel(QWidget* parent, MergeLineModel* rows, const char* objectName) {
    auto* view = new QListView(parent);
    view->setObjectName(QString::fromLatin1(objectName));
    view->setModel(rows);
    view->setItemDelegate(new MergeLineDelegate(view));
    view->setUniformItemSizes(true);
    view->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    view->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    return view;
}

// A titled panel: the caption above its list.
QWidget* titled(QWidget* parent, QLabel* caption, QWidget* content) {
    auto* box = new QWidget(parent);
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    QFont bold = caption->font();
    bold.setBold(true);
    caption->setFont(bold);
    caption->setBuddy(content);
    layout->addWidget(caption);
    layout->addWidget(content, 1);
    return box;
}

} // namespace

ConflictResolutionView::ConflictResolutionView(RepoEntry repo, ConflictEntry conflict,
                                               std::shared_ptr<GitServiceProtocol> service, QWidget* parent)
    : QDialog(parent),
      model_(new ConflictResolutionViewModel(std::move(repo), std::move(conflict), std::move(service), this)),
      title_(new QLabel(this)), previous_(button(this, "merge-editor.previous")),
      conflictCount_(new QLabel(this)), next_(button(this, "merge-editor.next")),
      takeAllOurs_(button(this, "merge-editor.take-all-ours")),
      takeAllTheirs_(button(this, "merge-editor.take-all-theirs")),
      toggleRaw_(button(this, "merge-editor.toggle-raw-text")), pages_(new QStackedWidget(this)),
      loading_(new QLabel(pages_)), retryLoad_(button(pages_, "merge-editor.retry-load")),
      loadPage_(new QWidget(pages_)), mergePage_(new QWidget(pages_)),
      oursOnly_(button(mergePage_, "merge-editor.preset.ours-only")),
      theirsOnly_(button(mergePage_, "merge-editor.preset.theirs-only")),
      both_(button(mergePage_, "merge-editor.preset.both")),
      clear_(button(mergePage_, "merge-editor.preset.clear")), oursTitle_(new QLabel(mergePage_)),
      theirsTitle_(new QLabel(mergePage_)), outputTitle_(new QLabel(mergePage_)),
      oursRows_(new MergeLineModel(this)), theirsRows_(new MergeLineModel(this)),
      outputRows_(new MergeLineModel(this)),
      oursPanel_(linePanel(mergePage_, oursRows_, "merge-editor.ours-panel")),
      theirsPanel_(linePanel(mergePage_, theirsRows_, "merge-editor.theirs-panel")),
      outputPanel_(linePanel(mergePage_, outputRows_, "merge-editor.output-panel")),
      rawText_(new QPlainTextEdit(pages_)), saveError_(new OInlineMessage(this)),
      retrySave_(button(this, "merge-editor.retry-save")), cancel_(button(this, "merge-editor.cancel")),
      save_(button(this, "merge-editor.save")) {
    setObjectName(QStringLiteral("merge-editor"));
    setWindowModality(Qt::WindowModal);
    resize(1100, 760);
    language_ = QFileInfo(QString::fromUtf8(model_->conflict().path)).suffix().toLower();
    QFont bold = title_->font();
    bold.setBold(true);
    title_->setFont(bold);
    title_->setTextFormat(Qt::PlainText);
    conflictCount_->setObjectName(QStringLiteral("merge-editor.conflict-count"));
    oursTitle_->setObjectName(QStringLiteral("merge-editor.ours-title"));
    theirsTitle_->setObjectName(QStringLiteral("merge-editor.theirs-title"));
    oursTitle_->setTextFormat(Qt::PlainText);
    theirsTitle_->setTextFormat(Qt::PlainText);
    toggleRaw_->setCheckable(true);
    previous_->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Up));
    next_->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Down));
    rawText_->setObjectName(QStringLiteral("merge-editor.raw-text-field"));
    rawText_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    rawText_->setLineWrapMode(QPlainTextEdit::NoWrap);
    rawText_->setTabChangesFocus(true);
    saveError_->setObjectName(QStringLiteral("merge-editor.save-error"));
    save_->setDefault(true);

    auto* header = new QHBoxLayout;
    header->addWidget(title_, 1);
    header->addWidget(previous_);
    header->addWidget(conflictCount_);
    header->addWidget(next_);
    header->addSpacing(12);
    header->addWidget(takeAllOurs_);
    header->addWidget(takeAllTheirs_);
    header->addWidget(toggleRaw_);

    auto* loadLayout = new QVBoxLayout(loadPage_);
    loadLayout->addStretch(1);
    loadLayout->addWidget(loading_, 0, Qt::AlignCenter);
    loadLayout->addWidget(retryLoad_, 0, Qt::AlignCenter);
    loadLayout->addStretch(1);

    auto* presets = new QHBoxLayout;
    for (QPushButton* preset : {oursOnly_, theirsOnly_, both_, clear_})
        presets->addWidget(preset);
    presets->addStretch(1);
    auto* sides = new QSplitter(Qt::Horizontal, mergePage_);
    sides->setChildrenCollapsible(false);
    sides->addWidget(titled(sides, oursTitle_, oursPanel_));
    sides->addWidget(titled(sides, theirsTitle_, theirsPanel_));
    auto* vertical = new QSplitter(Qt::Vertical, mergePage_);
    vertical->setChildrenCollapsible(false);
    vertical->addWidget(sides);
    vertical->addWidget(titled(vertical, outputTitle_, outputPanel_));
    vertical->setStretchFactor(0, 1);
    vertical->setStretchFactor(1, 2);
    auto* mergeLayout = new QVBoxLayout(mergePage_);
    mergeLayout->setContentsMargins(0, 0, 0, 0);
    mergeLayout->addLayout(presets);
    mergeLayout->addWidget(vertical, 1);

    pages_->addWidget(loadPage_);
    pages_->addWidget(mergePage_);
    pages_->addWidget(rawText_);

    auto* footer = new QHBoxLayout;
    footer->addWidget(saveError_, 1);
    footer->addStretch(1);
    footer->addWidget(retrySave_);
    footer->addWidget(cancel_);
    footer->addWidget(save_);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(header);
    layout->addWidget(pages_, 1);
    layout->addLayout(footer);

    connect(model_, &ConflictResolutionViewModel::loadStateChanged, this,
            &ConflictResolutionView::showLoadState);
    connect(model_, &ConflictResolutionViewModel::decisionsChanged, this,
            &ConflictResolutionView::showDecisions);
    connect(model_, &ConflictResolutionViewModel::sideNamesChanged, this,
            &ConflictResolutionView::showSideNames);
    connect(model_, &ConflictResolutionViewModel::saveStateChanged, this,
            &ConflictResolutionView::showSaveState);
    connect(retryLoad_, &QPushButton::clicked, model_, [this] { model_->load(); });
    connect(previous_, &QPushButton::clicked, this, [this] { showConflict(currentConflictIndex_ - 1); });
    connect(next_, &QPushButton::clicked, this, [this] { showConflict(currentConflictIndex_ + 1); });
    connect(takeAllOurs_, &QPushButton::clicked, model_, &ConflictResolutionViewModel::takeAllOurs);
    connect(takeAllTheirs_, &QPushButton::clicked, model_, &ConflictResolutionViewModel::takeAllTheirs);
    connect(oursOnly_, &QPushButton::clicked, this,
            [this] { applyPreset(&ConflictResolutionViewModel::setOursOnly); });
    connect(theirsOnly_, &QPushButton::clicked, this,
            [this] { applyPreset(&ConflictResolutionViewModel::setTheirsOnly); });
    connect(both_, &QPushButton::clicked, this,
            [this] { applyPreset(&ConflictResolutionViewModel::setBoth); });
    connect(clear_, &QPushButton::clicked, this,
            [this] { applyPreset(&ConflictResolutionViewModel::clearHunk); });
    connect(oursRows_, &MergeLineModel::lineToggled, this,
            [this](int row) { toggleLine(oursRows_, true, row); });
    connect(theirsRows_, &MergeLineModel::lineToggled, this,
            [this](int row) { toggleLine(theirsRows_, false, row); });
    connect(toggleRaw_, &QPushButton::toggled, this,
            [this](bool raw) { setMode(raw ? Mode::rawText : Mode::merge); });
    connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
    connect(save_, &QPushButton::clicked, this, [this] { saveAndStage(); });
    connect(retrySave_, &QPushButton::clicked, this, [this] { saveAndStage(); });

    retranslate();
    qCDebug(lcOps, "op=mergeEditor.opened conflictHunks=pending");
    model_->load();
}

void ConflictResolutionView::retranslate() {
    setWindowTitle(localized("Merge Editor"));
    title_->setText(localized("Resolve %1", model_->conflict().path));
    previous_->setText(localized("< Prev"));
    previous_->setAccessibleName(localized("Previous conflict"));
    next_->setText(localized("Next >"));
    next_->setAccessibleName(localized("Next conflict"));
    takeAllOurs_->setText(localized("Take All Ours"));
    takeAllOurs_->setAccessibleName(localized("Take ours in every conflict"));
    takeAllTheirs_->setText(localized("Take All Theirs"));
    takeAllTheirs_->setAccessibleName(localized("Take theirs in every conflict"));
    toggleRaw_->setText(localized("Open in Text Editor"));
    toggleRaw_->setAccessibleName(localized("Edit the whole file as text"));
    retryLoad_->setText(localized("Retry"));
    retryLoad_->setAccessibleName(localized("Read the conflict again"));
    oursOnly_->setText(localized("A only"));
    oursOnly_->setAccessibleName(localized("Keep only side A of this conflict"));
    theirsOnly_->setText(localized("B only"));
    theirsOnly_->setAccessibleName(localized("Keep only side B of this conflict"));
    both_->setText(localized("Both"));
    both_->setAccessibleName(localized("Keep side A, then side B"));
    clear_->setText(localized("Clear"));
    clear_->setAccessibleName(localized("Keep no line of this conflict"));
    oursPanel_->setAccessibleName(localized("Lines of side A (ours)"));
    theirsPanel_->setAccessibleName(localized("Lines of side B (theirs)"));
    outputTitle_->setText(localized("Output"));
    outputPanel_->setAccessibleName(localized("The resolved file"));
    rawText_->setAccessibleName(localized("File text"));
    retrySave_->setText(localized("Retry"));
    retrySave_->setAccessibleName(localized("Try saving again"));
    cancel_->setText(localized("Cancel"));
    cancel_->setAccessibleName(localized("Close the merge editor without saving"));
    save_->setText(localized("Save & Stage").replace(QLatin1Char('&'), QStringLiteral("&&")));
    save_->setAccessibleName(localized("Save the resolution and stage the file"));
    conflictCount_->setAccessibleName(localized("Conflict position"));
    showSideNames();
    showLoadState();
}

void ConflictResolutionView::showSideNames() {
    const ConflictSideNames& names = model_->sideNames();
    oursTitle_->setText(names.ours.empty() ? localized("A: Ours") : localized("A: Ours (%1)", names.ours));
    theirsTitle_->setText(names.theirs.empty() ? localized("B: Theirs")
                                               : localized("B: Theirs (%1)", names.theirs));
}

void ConflictResolutionView::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void ConflictResolutionView::showLoadState() {
    if (model_->loadError())
        loading_->setText(*model_->loadError());
    else
        loading_->setText(localized("Loading conflict…"));
    retryLoad_->setVisible(model_->loadError().has_value());
    // The text field starts from the file as it lies on disk, markers and all, once it has been read.
    if (isReady() && !rawBufferFilled_) {
        rawText_->setPlainText(QString::fromUtf8(model_->rawWorkingTreeText()));
        rawBufferFilled_ = true;
    }
    setMode(mode_);
    showSaveState();
}

void ConflictResolutionView::setMode(Mode mode) {
    mode_ = mode;
    const bool ready = isReady();
    pages_->setCurrentWidget(!ready                  ? loadPage_
                             : mode == Mode::rawText ? static_cast<QWidget*>(rawText_)
                                                     : mergePage_);
    const bool merging = ready && mode == Mode::merge;
    const bool hasConflicts = model_->conflictCount() > 0;
    for (QPushButton* control : {takeAllOurs_, takeAllTheirs_})
        control->setEnabled(merging && hasConflicts);
    toggleRaw_->setEnabled(ready);
    showConflict(currentConflictIndex_);
}

bool ConflictResolutionView::isReady() const {
    return model_->loadGeneration() > 0 && !model_->isLoading() && !model_->loadError();
}

int ConflictResolutionView::currentHunkId() const {
    const std::vector<int> ids = conflictHunkIds(model_->hunks());
    if (currentConflictIndex_ < 0 || currentConflictIndex_ >= static_cast<int>(ids.size()))
        return -1;
    return ids[static_cast<std::size_t>(currentConflictIndex_)];
}

void ConflictResolutionView::showConflict(int index) {
    const int count = model_->conflictCount();
    currentConflictIndex_ = std::clamp(index, 0, std::max(count - 1, 0));
    conflictCount_->setText(localized("Conflict %1 of %2", count ? currentConflictIndex_ + 1 : 0, count));
    const bool merging = mode_ == Mode::merge && pages_->currentWidget() == mergePage_;
    previous_->setEnabled(merging && currentConflictIndex_ > 0);
    next_->setEnabled(merging && currentConflictIndex_ + 1 < count);
    for (QPushButton* preset : {oursOnly_, theirsOnly_, both_, clear_})
        preset->setEnabled(merging && count > 0);
    showDecisions();
}

void ConflictResolutionView::showDecisions() {
    const int hunkId = currentHunkId();
    const auto& hunks = model_->hunks();
    const auto& decisions = model_->decisions();
    oursRows_->setRows(conflictSideRows(hunks, decisions, hunkId, MergeSide::ours, language_));
    theirsRows_->setRows(conflictSideRows(hunks, decisions, hunkId, MergeSide::theirs, language_));
    outputRows_->setRows(composedRows(hunks, decisions, hunkId, language_));
    if (const int focused = outputRows_->firstFocusedRow(); focused >= 0)
        outputPanel_->scrollTo(outputRows_->index(focused), QAbstractItemView::PositionAtCenter);
}

void ConflictResolutionView::showSaveState() {
    saveError_->setMessage(model_->saveError());
    retrySave_->setVisible(model_->saveError().has_value());
    save_->setEnabled(model_->canSave());
    retrySave_->setEnabled(model_->canSave());
}

void ConflictResolutionView::toggleLine(MergeLineModel* side, bool ours, int row) {
    if (row < 0 || row >= static_cast<int>(side->rows().size()))
        return;
    const int hunkId = currentHunkId();
    if (ours)
        model_->toggleOursLine(hunkId, static_cast<std::size_t>(row));
    else
        model_->toggleTheirsLine(hunkId, static_cast<std::size_t>(row));
}

void ConflictResolutionView::applyPreset(void (ConflictResolutionViewModel::*preset)(int)) {
    (model_->*preset)(currentHunkId());
}

QCoro::Task<void> ConflictResolutionView::saveAndStage() {
    QPointer<ConflictResolutionView> self(this);
    auto written =
        mode_ == Mode::rawText ? model_->setRawText(rawText_->toPlainText().toStdString()) : model_->save();
    const bool saved = co_await std::move(written);
    if (!self || !saved)
        co_return;
    emit self->saved();
    self->accept();
}

} // namespace orvel
