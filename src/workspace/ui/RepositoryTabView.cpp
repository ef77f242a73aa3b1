#include "workspace/ui/RepositoryTabView.h"

#include "core/support/UserDefaults.h"
#include "settings/LocalizationManager.h"
#include "workspace/WorkspaceTabState.h"

#include <QEvent>
#include <QLabel>
#include <QSplitter>
#include <QVBoxLayout>

namespace orvel {

namespace {

QString splitterKey(const QSplitter& splitter) {
    return QStringLiteral("splitterState/") + splitter.objectName();
}

} // namespace

RepositoryTabView::RepositoryTabView(WorkspaceTabState& tab, UserDefaults& defaults, QWidget* parent)
    : QWidget(parent), tab_(tab), defaults_(defaults), placeholder_(new QLabel(this)) {
    setObjectName(QStringLiteral("repository-tab"));
    placeholder_->setObjectName(QStringLiteral("repository-tab.history-placeholder"));
    placeholder_->setAlignment(Qt::AlignCenter);
    placeholder_->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(placeholder_);
    connect(&tab_, &WorkspaceTabState::workingTreeCountsChanged, this, &RepositoryTabView::showCounts);
    restoreSplitterStates();
    retranslate();
}

RepositoryTabView::~RepositoryTabView() {
    saveSplitterStates();
}

void RepositoryTabView::saveSplitterStates() const {
    for (const QSplitter* splitter : findChildren<QSplitter*>())
        if (!splitter->objectName().isEmpty())
            defaults_.setValue(splitterKey(*splitter), splitter->saveState());
}

void RepositoryTabView::restoreSplitterStates() {
    for (QSplitter* splitter : findChildren<QSplitter*>())
        if (!splitter->objectName().isEmpty())
            splitter->restoreState(defaults_.value(splitterKey(*splitter)).toByteArray());
}

void RepositoryTabView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void RepositoryTabView::showCounts(int staged, int unstaged) {
    staged_ = staged;
    unstaged_ = unstaged;
    retranslate();
}

void RepositoryTabView::retranslate() {
    placeholder_->setText(localized("%1\n\nStaged: %2   Unstaged: %3")
                              .arg(QString::fromStdString(tab_.repo().path))
                              .arg(staged_)
                              .arg(unstaged_));
}

} // namespace orvel
