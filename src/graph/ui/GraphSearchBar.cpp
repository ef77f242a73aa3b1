#include "graph/ui/GraphSearchBar.h"

#include "graph/RepoGraphPaneViewModel.h"
#include "settings/LocalizationManager.h"
#include "widgets/Icons.h"

#include <QActionGroup>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>

namespace orvel {

namespace {

struct ScopeTitle {
    CommitSearchType scope;
    const char* title;
};

constexpr ScopeTitle scopeTitles[] = {
    {CommitSearchType::all, translatable("All")},
    {CommitSearchType::message, translatable("Message")},
    {CommitSearchType::author, translatable("Author")},
    {CommitSearchType::ref, translatable("Branch / Tag")},
    {CommitSearchType::hash, translatable("Hash")},
    {CommitSearchType::diff, translatable("Code Changes")},
    {CommitSearchType::filePath, translatable("File Path")},
};

QToolButton* toolButton(const char* objectName, const QString& icon, QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setObjectName(QLatin1String(objectName));
    button->setIcon(themedIcon(icon));
    button->setAutoRaise(true);
    return button;
}

} // namespace

GraphSearchBar::GraphSearchBar(RepoGraphPaneViewModel& model, QWidget* parent)
    : QWidget(parent), model_(model), field_(new QLineEdit(this)),
      scope_(toolButton("graph.search-scope", "edit-find", this)), position_(new QLabel(this)),
      previous_(toolButton("graph.search-previous", "go-up", this)),
      next_(toolButton("graph.search-next", "go-down", this)),
      close_(toolButton("graph.search-close", "window-close", this)) {
    setObjectName(QStringLiteral("graph.search-bar"));
    field_->setObjectName(QStringLiteral("graph.search-field"));
    field_->setClearButtonEnabled(true);
    position_->setObjectName(QStringLiteral("graph.search-position"));
    scope_->setPopupMode(QToolButton::InstantPopup);
    scope_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);

    auto* menu = new QMenu(scope_);
    auto* group = new QActionGroup(menu);
    for (const auto& entry : scopeTitles) {
        QAction* action = menu->addAction(localized(entry.title));
        action->setCheckable(true);
        action->setData(static_cast<int>(entry.scope));
        group->addAction(action);
        connect(action, &QAction::triggered, this,
                [this, scope = entry.scope] { model_.setSearchScope(scope); });
    }
    scope_->setMenu(menu);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 4, 6, 4);
    layout->setSpacing(4);
    layout->addWidget(field_, 1);
    layout->addWidget(scope_);
    layout->addWidget(position_);
    layout->addWidget(previous_);
    layout->addWidget(next_);
    layout->addWidget(close_);

    connect(field_, &QLineEdit::textEdited, this,
            [this](const QString& text) { model_.setSearchQuery(text.toStdString()); });
    connect(field_, &QLineEdit::returnPressed, this, [this] { model_.nextMatch(); });
    connect(previous_, &QToolButton::clicked, this, [this] { model_.previousMatch(); });
    connect(next_, &QToolButton::clicked, this, [this] { model_.nextMatch(); });
    connect(close_, &QToolButton::clicked, this, [this] { model_.clearSearch(); });
    connect(&model_, &RepoGraphPaneViewModel::searchChanged, this, &GraphSearchBar::showSearch);
    connect(&model_, &RepoGraphPaneViewModel::selectionChanged, this,
            [this] { position_->setText(positionText()); });
    retranslate();
    showSearch();
}

void GraphSearchBar::focusField() {
    field_->setFocus(Qt::ShortcutFocusReason);
    field_->selectAll();
}

void GraphSearchBar::showSearch() {
    setVisible(model_.isSearchVisible());
    const QString query = QString::fromStdString(model_.searchQuery());
    if (field_->text() != query)
        field_->setText(query);
    for (QAction* action : scope_->menu()->actions()) {
        const bool current = action->data().toInt() == static_cast<int>(model_.searchScope());
        action->setChecked(current);
        if (current)
            scope_->setText(action->text());
    }
    position_->setText(positionText());
    const int count = static_cast<int>(model_.matchingHashesOrdered().size());
    previous_->setEnabled(count > 0);
    next_->setEnabled(count > 0);
}

// Where the selected row stands among the matches; the count alone while the selection is none of
// them; and that nothing matches once git has answered too.
QString GraphSearchBar::positionText() const {
    const int count = static_cast<int>(model_.matchingHashesOrdered().size());
    if (count == 0)
        return model_.searchQuery().empty() || model_.isSearching() ? QString() : localized("No commits match");
    const int selected = model_.selectedMatchIndex();
    if (selected < 0)
        return localized("%1 match(es)", count);
    return localized("%1 of %2", selected + 1, count);
}

void GraphSearchBar::retranslate() {
    field_->setPlaceholderText(localized("Search commits..."));
    field_->setAccessibleName(localized("Search commits"));
    scope_->setToolTip(localized("Scope"));
    scope_->setAccessibleName(localized("Scope"));
    previous_->setToolTip(localized("Previous match"));
    previous_->setAccessibleName(localized("Previous match"));
    next_->setToolTip(localized("Next match"));
    next_->setAccessibleName(localized("Next match"));
    close_->setToolTip(localized("Close search"));
    close_->setAccessibleName(localized("Close search"));
    const auto actions = scope_->menu()->actions();
    for (int i = 0; i < actions.size(); ++i)
        actions[i]->setText(localized(scopeTitles[i].title));
    showSearch();
}

void GraphSearchBar::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void GraphSearchBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        model_.clearSearch();
        return;
    }
    QWidget::keyPressEvent(event);
}

} // namespace orvel
