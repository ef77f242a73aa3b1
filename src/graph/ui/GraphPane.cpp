#include "graph/ui/GraphPane.h"

#include "graph/RepoGraphPaneViewModel.h"
#include "graph/ui/GraphColumnWidths.h"
#include "graph/ui/GraphRowDelegate.h"
#include "graph/ui/GraphSearchBar.h"
#include "graph/ui/GraphTableModel.h"
#include "graph/ui/GraphTableView.h"
#include "settings/LocalizationManager.h"
#include "settings/ThemeEngine.h"
#include "widgets/BoundShortcut.h"

#include <QAction>
#include <QEvent>
#include <QHeaderView>
#include <QInputDialog>
#include <QScrollBar>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>


namespace orvel {

namespace {

const QString columnWidthsKey = QStringLiteral("graphTableColumnWidths");

} // namespace

GraphPane::GraphPane(RepoGraphPaneViewModel& model, QWidget* parent)
    : QWidget(parent), model_(model), searchBar_(new GraphSearchBar(model, this)),
      table_(new GraphTableView(this)), rows_(new GraphTableModel(model, this)),
      delegate_(new GraphRowDelegate(model, palette(), this)), searchAction_(new QAction(this)),
      copyHashAction_(new QAction(this)), goToAction_(new QAction(this)) {
    setObjectName(QStringLiteral("graph.pane"));
    table_->setObjectName(QStringLiteral("graph.table"));
    table_->setModel(rows_);
    table_->setItemDelegate(delegate_);
    table_->verticalHeader()->setDefaultSectionSize(GraphRowDelegate::rowHeight);
    setUpColumns();

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(searchBar_);
    layout->addWidget(table_, 1);

    bindShortcut(*searchAction_, KeyBindingID::searchHistory);
    // Wherever the keyboard is in the window while the graph shows: the sidebar, the detail pane or
    // nowhere yet. A graph out of sight (another tab or page) does not take it.
    searchAction_->setShortcutContext(Qt::WindowShortcut);
    connect(searchAction_, &QAction::triggered, this, &GraphPane::openSearch);
    addAction(searchAction_);
    copyHashAction_->setShortcut(QKeySequence::Copy);
    copyHashAction_->setShortcutContext(Qt::WidgetShortcut);
    connect(copyHashAction_, &QAction::triggered, this, [this] {
        if (const auto& hash = model_.selectedHash())
            model_.copyHash(*hash);
    });
    table_->addAction(copyHashAction_);
    goToAction_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_G));
    goToAction_->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(goToAction_, &QAction::triggered, this, &GraphPane::askForCommit);
    addAction(goToAction_);

    connect(&model_, &RepoGraphPaneViewModel::commitsChanged, this, &GraphPane::showRows);
    connect(&model_, &RepoGraphPaneViewModel::rowsAppended, this, &GraphPane::showAppendedRows);
    connect(table_->verticalScrollBar(), &QScrollBar::valueChanged, this, &GraphPane::loadAhead);
    connect(table_->verticalScrollBar(), &QScrollBar::rangeChanged, this, &GraphPane::loadAhead);
    connect(table_, &GraphTableView::endRequested, this, &GraphPane::loadToEnd);
    connect(&model_, &RepoGraphPaneViewModel::rootReached, this, &GraphPane::followEnd);
    connect(&model_, &RepoGraphPaneViewModel::selectionChanged, this, &GraphPane::showSelection);
    connect(&model_, &RepoGraphPaneViewModel::searchChanged, rows_, &GraphTableModel::highlightsChanged);
    connect(&model_, &RepoGraphPaneViewModel::confirmationRequested, this, &GraphPane::ask);
    connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &GraphPane::userSelected);
    connect(table_, &QWidget::customContextMenuRequested, this, &GraphPane::showContextMenu);
    connect(&ThemeEngine::shared(), &ThemeEngine::themeChanged, this, &GraphPane::restyle);
    retranslate();
    showRows();
}

GraphPane::~GraphPane() = default;

// The user's widths come back from the last run; the message column has none, it takes the rest.
void GraphPane::setUpColumns() {
    const QVariantList saved = defaults_.value(columnWidthsKey).toList();
    for (int column = 0; column < GraphTableModel::columnCount_; ++column) {
        const auto at = static_cast<std::size_t>(column);
        chosenWidths_[at] = saved.size() == GraphTableModel::columnCount_ ? saved[column].toInt()
                                                                           : graphColumnBounds[at].width;
    }
    QHeaderView* header = table_->horizontalHeader();
    header->setMinimumSectionSize(graphColumnBounds[GraphTableModel::graphColumn].minimum);
    header->setStretchLastSection(false);
    for (int column = 0; column < GraphTableModel::columnCount_; ++column)
        header->setSectionResizeMode(column, column == GraphTableModel::messageColumn ? QHeaderView::Fixed
                                                                                      : QHeaderView::Interactive);
    fitColumns();
    table_->viewport()->installEventFilter(this);
    connect(header, &QHeaderView::sectionResized, this, &GraphPane::columnResized);
}

bool GraphPane::eventFilter(QObject* watched, QEvent* event) {
    if (watched == table_->viewport() && event->type() == QEvent::Resize)
        fitColumns();
    return QWidget::eventFilter(watched, event);
}

void GraphPane::fitColumns() {
    const GraphColumnWidths widths = fitGraphColumns(chosenWidths_, table_->viewport()->width());
    QHeaderView* header = table_->horizontalHeader();
    fitting_ = true;
    for (int column = 0; column < GraphTableModel::columnCount_; ++column) {
        if (header->sectionSize(column) != widths[static_cast<std::size_t>(column)])
            header->resizeSection(column, widths[static_cast<std::size_t>(column)]);
    }
    fitting_ = false;
}

// A column the user dragged keeps the width it is shown at, within its bounds and what the
// message column leaves it.
void GraphPane::columnResized(int column, int, int newWidth) {
    if (fitting_ || column < 0 || column >= GraphTableModel::columnCount_ || column == GraphTableModel::messageColumn)
        return;
    const auto at = static_cast<std::size_t>(column);
    chosenWidths_[at] = boundedColumnWidth(column, newWidth);
    fitColumns();
    chosenWidths_[at] = table_->horizontalHeader()->sectionSize(column);
    QVariantList saved;
    for (const int width : chosenWidths_)
        saved << width;
    defaults_.setValue(columnWidthsKey, saved);
}

void GraphPane::showRows() {
    rows_->reload();
    showSelection();
}

void GraphPane::showAppendedRows(int first) {
    rows_->append(first);
    followEnd();
    showSelection();
    loadAhead();
}

// Once the last row has come, the jump to the end that asked for it lands there.
void GraphPane::followEnd() {
    const int last = static_cast<int>(model_.commits().size()) - 1;
    if (followsEnd_ == EndFollowing::none || model_.hasOlderCommits() || last < 0)
        return;
    if (followsEnd_ == EndFollowing::select)
        model_.selectCommit(std::string(model_.hashAt(last)), true);
    else
        table_->scrollToBottom();
    followsEnd_ = EndFollowing::none;
}

void GraphPane::loadAhead() {
    if (!model_.hasOlderCommits())
        return;
    const int bottom = table_->rowAt(table_->viewport()->height() - 1);
    model_.loadAhead(bottom < 0 ? rows_->rowCount() - 1 : bottom);
}

void GraphPane::loadToEnd(bool byKey) {
    if (!model_.hasOlderCommits())
        return;
    followsEnd_ = byKey ? EndFollowing::select : EndFollowing::scroll;
    model_.loadToEnd();
}

void GraphPane::askForCommit() {
    auto* dialog = new QInputDialog(this);
    dialog->setObjectName(QStringLiteral("graph.go-to"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowModality(Qt::WindowModal);
    dialog->setWindowTitle(localized("Go to Commit"));
    dialog->setLabelText(localized("Hash, branch or tag:"));
    connect(dialog, &QInputDialog::textValueSelected, this, [this](const QString& text) {
        if (const QString name = text.trimmed(); !name.isEmpty())
            model_.goTo(name.toStdString());
    });
    dialog->open();
}

void GraphPane::showSelection() {
    const auto& hash = model_.selectedHash();
    const int row = hash ? model_.rowOf(*hash) : -1;
    if (row == table_->currentIndex().row() && (row < 0 || table_->selectionModel()->isRowSelected(row, {})))
        return;
    followingModel_ = true;
    if (row < 0) {
        table_->selectionModel()->clear();
    } else {
        const QModelIndex index = rows_->index(row, GraphTableModel::messageColumn);
        table_->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                             QItemSelectionModel::Rows);
        table_->scrollTo(index);
    }
    followingModel_ = false;
}

void GraphPane::userSelected() {
    if (followingModel_)
        return;
    const int row = table_->currentIndex().row();
    if (row < 0 || static_cast<std::size_t>(row) >= model_.commits().size())
        return;
    model_.selectCommit(std::string(model_.hashAt(row)), true);
}

void GraphPane::openSearch() {
    if (!model_.isSearchVisible())
        model_.toggleSearch();
    searchBar_->focusField();
}

void GraphPane::showContextMenu(const QPoint& position) {
    const QModelIndex index = table_->indexAt(position);
    if (!index.isValid())
        return;
    if (model_.isWorkingTreeRow(index.row()))
        return;
    const std::string hash(model_.hashAt(index.row()));
    QMenu* menu = contextMenu(hash);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(table_->viewport()->mapToGlobal(position));
}

QMenu* GraphPane::contextMenu(const std::string& hash) {
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("graph.context-menu"));
    const QString shortHash = QString::fromStdString(hash.substr(0, 7));
    const auto add = [this](QMenu* to, const char* objectName, const QString& text, auto action) {
        QAction* added = to->addAction(text, this, action);
        added->setObjectName(QLatin1String(objectName));
        return added;
    };
    add(menu, "graph.menu.copy-hash", localized("Copy Commit Hash"), [this, hash] {
        model_.copyHash(hash);
    })->setShortcut(QKeySequence::Copy);
    add(menu, "graph.menu.copy-message", localized("Copy Commit Message"),
        [this, hash] { model_.copyMessage(hash); });
    menu->addSeparator();
    add(menu, "graph.menu.search", localized("Search Git History…"), [this] {
        openSearch();
    })->setShortcut(QKeySequence::Find);
    menu->addSeparator();
    add(menu, "graph.menu.create-branch", localized("Create Branch from Here..."),
        [this, hash] { model_.requestCreateBranch(hash); });
    add(menu, "graph.menu.create-tag", localized("Create Tag Here..."),
        [this, hash] { model_.requestCreateTag(hash); });
    menu->addSeparator();
    add(menu, "graph.menu.cherry-pick", localized("Cherry-pick %1", shortHash),
        [this, hash] { model_.requestCherryPick(hash); });
    add(menu, "graph.menu.revert", localized("Revert %1", shortHash),
        [this, hash] { model_.requestRevert(hash); });
    menu->addSeparator();
    QMenu* reset = menu->addMenu(localized("Reset to %1...", shortHash));
    reset->setObjectName(QStringLiteral("graph.menu.reset"));
    add(reset, "graph.menu.reset-soft", localized("Soft: keep all changes staged"),
        [this, hash] { model_.requestReset(hash, ResetMode::soft); });
    add(reset, "graph.menu.reset-mixed", localized("Mixed: keep changes unstaged"),
        [this, hash] { model_.requestReset(hash, ResetMode::mixed); });
    add(reset, "graph.menu.reset-hard", localized("Hard: discard all changes"),
        [this, hash] { model_.requestReset(hash, ResetMode::hard); });
    return menu;
}

void GraphPane::ask(const GraphConfirmation& confirmation) {
    auto* box = new QMessageBox(this);
    box->setObjectName(QStringLiteral("graph.confirmation"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    box->setIcon(QMessageBox::Warning);
    box->setWindowTitle(confirmation.title());
    box->setText(confirmation.title());
    const auto showText = [this, box, confirmation] {
        const QString prediction = confirmation.predictionText(model_.confirmationPrediction());
        box->setInformativeText(prediction.isEmpty() ? confirmation.text()
                                                     : confirmation.text() + QStringLiteral("\n\n") + prediction);
    };
    showText();
    connect(&model_, &RepoGraphPaneViewModel::confirmationPredictionChanged, box, showText);
    QPushButton* cancel = box->addButton(localized("Cancel"), QMessageBox::RejectRole);
    cancel->setObjectName(QStringLiteral("graph.confirmation.cancel"));
    const bool destructive = confirmation.kind == GraphConfirmation::Kind::hardReset;
    QPushButton* accept = box->addButton(
        confirmation.acceptLabel(), destructive ? QMessageBox::DestructiveRole : QMessageBox::AcceptRole);
    accept->setObjectName(QStringLiteral("graph.confirmation.accept"));
    box->setDefaultButton(cancel);
    box->setEscapeButton(cancel);
    connect(box, &QMessageBox::finished, this, [this, box, accept, confirmation] {
        if (box->clickedButton() == accept)
            model_.confirm(confirmation);
    });
    box->open();
}

void GraphPane::restyle() {
    delegate_->refreshStyle(palette());
    table_->viewport()->update();
}

void GraphPane::retranslate() {
    searchAction_->setText(localized("Search Git History…"));
    copyHashAction_->setText(localized("Copy Commit Hash"));
    goToAction_->setText(localized("Go to Commit…"));
    table_->setAccessibleName(localized("Commit graph"));
    rows_->headerDataChanged(Qt::Horizontal, 0, GraphTableModel::columnCount_ - 1);
    restyle(); // the painted cells hold texts of the previous language
}

void GraphPane::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange)
        restyle();
    else if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

} // namespace orvel
