#include "content/ui/WelcomeView.h"

#include "content/CloneViewModel.h"
#include "content/InitViewModel.h"
#include "content/RecentRepositoriesModel.h"
#include "content/WelcomeViewModel.h"
#include "content/ui/CloneSheet.h"
#include "content/ui/InitSheet.h"
#include "content/ui/RecentRepositoryDelegate.h"
#include "content/ui/RepositoryPreview.h"
#include "content/ui/SheetParts.h"
#include "content/ui/WelcomeCard.h"
#include "core/support/Log.h"
#include "settings/LocalizationManager.h"
#include "widgets/OEmptyState.h"
#include "widgets/OInlineBanner.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace orvel {

namespace {

void logAction(const char* action) {
    qCDebug(lcUi, "op=welcome.action action=%s", action);
}

} // namespace

WelcomeView::WelcomeView(WelcomeViewModel& model, QWidget* parent)
    : QWidget(parent), model_(model), recentsModel_(new RecentRepositoriesModel(this)),
      recentsTitle_(new QLabel(this)), recentsStack_(new QStackedWidget(this)), recents_(new QListView(this)),
      recentsEmpty_(new OEmptyState(QStringLiteral("folder"), QString(), QString(), this)),
      notice_(new OInlineBanner(this)), detailStack_(new QStackedWidget(this)), detail_(new QWidget(this)),
      title_(new QLabel(this)), subtitle_(makeSecondaryLabel(this)),
      openCard_(new WelcomeCard(QStringLiteral("folder-open"), this)),
      cloneCard_(new WelcomeCard(QStringLiteral("vcs-clone"), this)),
      initCard_(new WelcomeCard(QStringLiteral("folder-new"), this)), dropHint_(makeSecondaryLabel(this)),
      preview_(new RepositoryPreview(model, this)) {
    setObjectName(QStringLiteral("welcome"));

    recents_->setObjectName(QStringLiteral("welcome.recents"));
    recents_->setModel(recentsModel_);
    recents_->setItemDelegate(new RecentRepositoryDelegate(recents_));
    recents_->setUniformItemSizes(true);
    recents_->setFrameShape(QFrame::NoFrame);
    recents_->setAttribute(Qt::WA_Hover);
    recents_->setContextMenuPolicy(Qt::CustomContextMenu);
    recentsEmpty_->setObjectName(QStringLiteral("welcome.recents.empty"));
    QFont sidebarTitleFont = recentsTitle_->font();
    sidebarTitleFont.setBold(true);
    recentsTitle_->setFont(sidebarTitleFont);
    recentsStack_->addWidget(recents_);
    recentsStack_->addWidget(recentsEmpty_);

    auto* sidebar = new QWidget(this);
    sidebar->setObjectName(QStringLiteral("welcome.sidebar"));
    auto* sidebarLayout = new QVBoxLayout(sidebar);
    sidebarLayout->setContentsMargins(12, 16, 4, 8);
    sidebarLayout->addWidget(recentsTitle_);
    sidebarLayout->addWidget(recentsStack_, 1);

    QFont titleFont = title_->font();
    titleFont.setPointSizeF(titleFont.pointSizeF() * 22.0 / 13.0);
    titleFont.setBold(true);
    title_->setFont(titleFont);
    title_->setObjectName(QStringLiteral("welcome.title"));
    openCard_->setObjectName(QStringLiteral("welcome.open"));
    cloneCard_->setObjectName(QStringLiteral("welcome.clone"));
    initCard_->setObjectName(QStringLiteral("welcome.init"));
    dropHint_->setAlignment(Qt::AlignCenter);
    auto* cards = new QVBoxLayout;
    cards->setSpacing(10);
    for (WelcomeCard* card : {openCard_, cloneCard_, initCard_})
        cards->addWidget(card);
    auto* column = new QVBoxLayout;
    column->addStretch(2);
    column->addWidget(title_);
    column->addWidget(subtitle_);
    column->addSpacing(24);
    column->addLayout(cards);
    column->addSpacing(16);
    column->addWidget(dropHint_);
    column->addStretch(3);
    auto* centred = new QHBoxLayout(detail_);
    centred->addStretch(1);
    centred->addLayout(column, 3);
    centred->addStretch(1);
    detail_->setObjectName(QStringLiteral("welcome.detail"));
    detailStack_->addWidget(detail_);
    detailStack_->addWidget(preview_);

    notice_->setObjectName(QStringLiteral("welcome.notice"));
    notice_->hide();
    auto* main = new QWidget(this);
    auto* mainLayout = new QVBoxLayout(main);
    mainLayout->setContentsMargins(0, 0, 0, 0);
    mainLayout->addWidget(notice_);
    mainLayout->addWidget(detailStack_, 1);

    auto* splitter = new QSplitter(this);
    splitter->addWidget(sidebar);
    splitter->addWidget(main);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({280, 1000});
    splitter->setChildrenCollapsible(false);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter);

    setTabOrder(recents_, openCard_);
    setTabOrder(openCard_, cloneCard_);
    setTabOrder(cloneCard_, initCard_);

    connect(recents_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) { selectRow(current); });
    connect(recents_, &QListView::clicked, this, &WelcomeView::selectRow);
    connect(recents_, &QListView::activated, this, [this](const QModelIndex& index) {
        emit openRepositoryRequested(index.data(RecentRepositoriesModel::PathRole).toString());
    });
    connect(recents_, &QListView::customContextMenuRequested, this, &WelcomeView::showRecentMenu);
    connect(openCard_, &WelcomeCard::clicked, this, &WelcomeView::browseForRepository);
    connect(cloneCard_, &WelcomeCard::clicked, this, &WelcomeView::showCloneSheet);
    connect(initCard_, &WelcomeCard::clicked, this, &WelcomeView::showInitSheet);
    connect(preview_, &RepositoryPreview::openRequested, this, &WelcomeView::openRepositoryRequested);
    connect(preview_, &RepositoryPreview::closeRequested, this, [this] {
        recents_->clearSelection();
        recents_->setCurrentIndex({});
        model_.clearSelection();
    });
    connect(&model_, &WelcomeViewModel::recentsChanged, this, &WelcomeView::showRecents);
    connect(&model_, &WelcomeViewModel::previewChanged, this, &WelcomeView::showSelection);
    connect(&model_, &WelcomeViewModel::noticeChanged, this, &WelcomeView::showNotice);
    retranslate();
    showRecents();
    showSelection();
}

void WelcomeView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void WelcomeView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    qCDebug(lcUi, "op=welcome.shown");
}

void WelcomeView::retranslate() {
    recentsTitle_->setText(localized("Recent Repositories"));
    recents_->setAccessibleName(localized("Recent repositories"));
    recentsEmpty_->setTitle(localized("No Recents Yet"));
    recentsEmpty_->setMessage(localized("Open, clone or initialize a repository to see it here."));
    title_->setText(localized("Welcome to Orvel"));
    subtitle_->setText(localized("Pick a repository to see its graph, its changes and its branches."));
    openCard_->setTexts(localized("Open a Repository"),
                        localized("point Orvel at a folder already under Git"));
    cloneCard_->setTexts(localized("Clone"), localized("from origin, GitHub, GitLab, or any SSH URL"));
    initCard_->setTexts(localized("Initialize"), localized("start a new repo from an empty folder"));
    dropHint_->setText(localized("or drag a folder anywhere in this window"));
}

void WelcomeView::showRecents() {
    recentsModel_->setPaths(model_.recents());
    recentsStack_->setCurrentWidget(model_.recents().isEmpty() ? static_cast<QWidget*>(recentsEmpty_)
                                                               : recents_);
    showSelection();
}

void WelcomeView::showSelection() {
    const auto& selected = model_.selectedPath();
    detailStack_->setCurrentWidget(selected ? static_cast<QWidget*>(preview_) : detail_);
    const int row = selected ? static_cast<int>(model_.recents().indexOf(*selected)) : -1;
    const QModelIndex index = recentsModel_->index(row, 0);
    if (index.isValid() && recents_->currentIndex() != index)
        recents_->setCurrentIndex(index);
}

void WelcomeView::showNotice() {
    if (model_.notice())
        notice_->setMessage(OInlineBanner::Kind::warning, *model_.notice());
    notice_->setVisible(model_.notice().has_value());
}

void WelcomeView::selectRow(const QModelIndex& index) {
    if (!index.isValid())
        return;
    const QString path = index.data(RecentRepositoriesModel::PathRole).toString();
    if (model_.selectedPath() != path)
        model_.select(path);
}

void WelcomeView::showRecentMenu(const QPoint& position) {
    const QModelIndex index = recents_->indexAt(position);
    if (!index.isValid())
        return;
    const QString path = index.data(RecentRepositoriesModel::PathRole).toString();
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(localized("Open"), this, [this, path] { emit openRepositoryRequested(path); });
    menu->addAction(localized("Remove from Recents"), this, [this, path] { model_.removeRecent(path); });
    menu->popup(recents_->viewport()->mapToGlobal(position));
}

void WelcomeView::browseForRepository() {
    logAction("open");
    chooseFolder(this, localized("Select a Git repository"), QString(),
                 [this](const QString& folder) { emit openRepositoryRequested(folder); });
}

void WelcomeView::showCloneSheet() {
    logAction("clone");
    auto* cloneModel = new CloneViewModel(model_.service(), model_.userDefaults());
    auto* sheet = new CloneSheet(*cloneModel, this);
    cloneModel->setParent(sheet);
    connect(sheet, &CloneSheet::repositoryReady, this, [this, sheet](const QString& path) {
        sheet->deleteLater();
        emit openRepositoryRequested(path);
    });
    connect(sheet, &QDialog::rejected, sheet, &QObject::deleteLater);
    sheet->open();
}

void WelcomeView::showInitSheet() {
    logAction("init");
    auto* initModel = new InitViewModel(model_.service());
    auto* sheet = new InitSheet(*initModel, this);
    initModel->setParent(sheet);
    connect(sheet, &InitSheet::repositoryReady, this, [this, sheet](const QString& path) {
        sheet->deleteLater();
        emit openRepositoryRequested(path);
    });
    connect(sheet, &QDialog::rejected, sheet, &QObject::deleteLater);
    sheet->open();
}

} // namespace orvel
