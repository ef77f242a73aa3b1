#include "diff/ui/FileSheet.h"

#include "settings/LocalizationManager.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTreeView>
#include <QVBoxLayout>

namespace orvel {

FileSheet::FileSheet(FileSheetViewModel::Kind kind, RepoEntry repo, std::string path,
                     std::shared_ptr<GitServiceProtocol> service, QWidget* parent)
    : QDialog(parent), model_(kind, std::move(repo), std::move(path), std::move(service)),
      caption_(new QLabel(this)), count_(new QLabel(this)), placeholder_(new QLabel(this)),
      table_(new QStandardItemModel(this)), view_(new QTreeView(this)) {
    setWindowModality(Qt::WindowModal);
    resize(820, 560);
    QFont bold = caption_->font();
    bold.setBold(true);
    caption_->setFont(bold);
    caption_->setTextFormat(Qt::PlainText);
    count_->setForegroundRole(QPalette::PlaceholderText);
    placeholder_->setAlignment(Qt::AlignCenter);
    placeholder_->setWordWrap(true);
    view_->setModel(table_);
    view_->setRootIsDecorated(false);
    view_->setUniformRowHeights(true);
    view_->setAlternatingRowColors(true);
    view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view_->setSelectionBehavior(QAbstractItemView::SelectRows);
    auto* buttons = new QDialogButtonBox(this);
    done_ = buttons->addButton(QString(), QDialogButtonBox::RejectRole);
    done_->setDefault(true);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::accept);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(caption_);
    layout->addWidget(count_);
    layout->addWidget(view_, 1);
    layout->addWidget(placeholder_, 1);
    layout->addWidget(buttons);
}

void FileSheet::start() {
    connect(&model_, &FileSheetViewModel::loadStateChanged, this, &FileSheet::show);
    model_.load();
}

void FileSheet::show() {
    setWindowTitle(caption());
    caption_->setText(caption());
    done_->setText(localized("Done"));
    const bool failed = !model_.error().isEmpty();
    table_->clear();
    table_->setHorizontalHeaderLabels(columns());
    if (!model_.isLoading() && !failed)
        fill(*table_);
    const bool empty = table_->rowCount() == 0;
    count_->setVisible(!model_.isLoading() && !failed && !empty);
    count_->setText(countLine());
    placeholder_->setVisible(empty);
    placeholder_->setText(model_.isLoading() ? localized("Loading...")
                          : failed           ? model_.error()
                                             : emptyText());
    view_->setVisible(!empty);
    view_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    view_->header()->setStretchLastSection(true);
}

void FileSheet::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange)
        show();
    QDialog::changeEvent(event);
}

} // namespace orvel
