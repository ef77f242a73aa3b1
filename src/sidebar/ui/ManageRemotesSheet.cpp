#include "sidebar/ui/ManageRemotesSheet.h"

#include "settings/LocalizationManager.h"
#include "sidebar/ManageRemotesViewModel.h"
#include "widgets/OAlert.h"
#include "widgets/OEmptyState.h"
#include "widgets/OInlineMessage.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QStackedWidget>

namespace orvel {

namespace {

QString decoded(const std::string& bytes) {
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

} // namespace

ManageRemotesSheet::ManageRemotesSheet(RepoEntry repo, std::shared_ptr<GitServiceProtocol> service,
                                       ToastManager& toasts, QWidget* parent)
    : OSheet(parent), model_(new ManageRemotesViewModel(std::move(repo), std::move(service), toasts, this)),
      pages_(new QStackedWidget(this)), loading_(new QLabel(pages_)),
      empty_(new OEmptyState(QStringLiteral("vcs-remote"), {}, {}, pages_)), list_(new QListWidget(pages_)),
      addCaption_(new QLabel(this)), nameLabel_(new QLabel(this)), nameField_(new QLineEdit(this)),
      urlLabel_(new QLabel(this)), urlField_(new QLineEdit(this)), addError_(new OInlineMessage(this)),
      addButton_(new QPushButton(this)) {
    setObjectName(QStringLiteral("manage-remotes-sheet"));
    setMinimumSize(520, 380);
    cancelButton()->hide();
    acceptButton()->setObjectName(QStringLiteral("manage-remotes.done-button"));
    connect(acceptButton(), &QPushButton::clicked, this, &QDialog::accept);
    list_->setObjectName(QStringLiteral("manage-remotes.list"));
    list_->setContextMenuPolicy(Qt::CustomContextMenu);
    list_->setWordWrap(true);
    loading_->setAlignment(Qt::AlignCenter);
    pages_->addWidget(loading_);
    pages_->addWidget(empty_);
    pages_->addWidget(list_);
    nameField_->setObjectName(QStringLiteral("manage-remotes.name-field"));
    urlField_->setObjectName(QStringLiteral("manage-remotes.url-field"));
    addError_->setObjectName(QStringLiteral("manage-remotes.add-error"));
    addButton_->setObjectName(QStringLiteral("manage-remotes.add-button"));
    addButton_->setAutoDefault(false);
    nameLabel_->setBuddy(nameField_);
    urlLabel_->setBuddy(urlField_);
    QFont bold = addCaption_->font();
    bold.setBold(true);
    addCaption_->setFont(bold);

    auto* form = new QFormLayout;
    form->addRow(nameLabel_, nameField_);
    form->addRow(urlLabel_, urlField_);
    form->addRow(QString(), addError_);
    auto* addRow = new QHBoxLayout;
    addRow->addStretch(1);
    addRow->addWidget(addButton_);
    contentLayout()->addWidget(pages_, 1);
    contentLayout()->addWidget(addCaption_);
    contentLayout()->addLayout(form);
    contentLayout()->addLayout(addRow);

    connect(model_, &ManageRemotesViewModel::stateChanged, this, &ManageRemotesSheet::showState);
    connect(model_, &ManageRemotesViewModel::remotesChanged, this, &ManageRemotesSheet::remotesChanged);
    connect(list_, &QWidget::customContextMenuRequested, this, &ManageRemotesSheet::showMenu);
    connect(addButton_, &QPushButton::clicked, this, &ManageRemotesSheet::addRemote);
    connect(urlField_, &QLineEdit::returnPressed, this, &ManageRemotesSheet::addRemote);
    for (QLineEdit* field : {nameField_, urlField_})
        connect(field, &QLineEdit::textChanged, this, &ManageRemotesSheet::showState);

    retranslate();
    model_->load();
}

void ManageRemotesSheet::retranslate() {
    setWindowTitle(localized("Manage Remotes"));
    caption()->setText(localized("Manage Remotes"));
    loading_->setText(localized("Loading remotes…"));
    empty_->setTitle(localized("No remotes configured"));
    empty_->setMessage(localized("Add a remote to push and pull from a server."));
    list_->setAccessibleName(localized("Remotes"));
    addCaption_->setText(localized("Add Remote"));
    nameLabel_->setText(localized("Name"));
    urlLabel_->setText(localized("Remote URL"));
    nameField_->setAccessibleName(localized("Name"));
    urlField_->setAccessibleName(localized("Remote URL"));
    addButton_->setText(localized("Add"));
    acceptButton()->setText(localized("Done"));
    showState();
}

void ManageRemotesSheet::showState() {
    errorLine()->setMessage(model_->loadError());
    addError_->setMessage(model_->addError());
    const auto& remotes = model_->remotes();
    if (model_->isLoading() && remotes.empty())
        pages_->setCurrentWidget(loading_);
    else
        pages_->setCurrentWidget(remotes.empty() ? static_cast<QWidget*>(empty_) : list_);
    list_->clear();
    for (const RemoteEntry& remote : remotes) {
        QString text = decoded(remote.name) + QLatin1Char('\n') + decoded(remote.fetchURL);
        if (remote.pushURL != remote.fetchURL)
            text += QLatin1Char('\n') + localized("push:") + QLatin1Char(' ') + decoded(remote.pushURL);
        list_->addItem(text);
    }
    addButton_->setEnabled(!model_->isAddingRemote() && !nameField_->text().trimmed().isEmpty() &&
                           !urlField_->text().trimmed().isEmpty());
}

void ManageRemotesSheet::addRemote() {
    if (!addButton_->isEnabled())
        return;
    QPointer<ManageRemotesSheet> self(this);
    [](QPointer<ManageRemotesSheet> sheet, QCoro::Task<bool> adding) -> QCoro::Task<void> {
        if (co_await std::move(adding) && sheet) {
            sheet->nameField_->clear();
            sheet->urlField_->clear();
        }
    }(self, model_->addRemote(nameField_->text(), urlField_->text()));
}

void ManageRemotesSheet::showMenu(const QPoint& position) {
    QListWidgetItem* item = list_->itemAt(position);
    if (!item)
        item = list_->currentItem();
    if (!item)
        return;
    const int row = list_->row(item);
    const RemoteEntry remote = model_->remotes().at(static_cast<std::size_t>(row));
    QMenu menu(this);
    menu.addAction(localized("Copy Fetch URL"), this, [this, remote] { model_->copyURL(remote.fetchURL); });
    menu.addAction(localized("Copy Push URL"), this, [this, remote] { model_->copyURL(remote.pushURL); });
    menu.addSeparator();
    menu.addAction(localized("Remove '%1'", remote.name), this, [this, row] { confirmRemove(row); });
    menu.exec(list_->viewport()->mapToGlobal(list_->visualItemRect(item).center()));
}

void ManageRemotesSheet::confirmRemove(int row) {
    const std::string name = model_->remotes().at(static_cast<std::size_t>(row)).name;
    showAlert(
        this, QMessageBox::Warning, localized("Remove Remote"),
        localized("Are you sure you want to remove the remote '%1'? This will remove all remote-tracking "
                  "branches and configuration for this remote.",
                  name),
        {{localized("Cancel"), QMessageBox::RejectRole}, {localized("Remove"), QMessageBox::DestructiveRole}},
        0, [this, name](int chosen) {
            if (chosen == 1)
                model_->removeRemote(name);
        });
}

} // namespace orvel
