// The sheet that lists a repository's remotes with their URLs, adds one from a name and a URL, and
// removes one after a question. Copying a URL and removing are in each row's context menu.
#pragma once

#include "core/records/RepoEntry.h"
#include "widgets/OSheet.h"

#include <memory>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QStackedWidget;

namespace orvel {

class GitServiceProtocol;
class ManageRemotesViewModel;
class OEmptyState;
class ToastManager;

class ManageRemotesSheet final : public OSheet {
    Q_OBJECT

  public:
    ManageRemotesSheet(RepoEntry repo, std::shared_ptr<GitServiceProtocol> service, ToastManager& toasts,
                       QWidget* parent = nullptr);

  signals:
    // A remote was added or removed.
    void remotesChanged();

  protected:
    void retranslate() override;

  private:
    void showState();
    void showMenu(const QPoint& position);
    void confirmRemove(int row);
    void addRemote();

    ManageRemotesViewModel* model_;
    QStackedWidget* pages_;
    QLabel* loading_;
    OEmptyState* empty_;
    QListWidget* list_;
    QLabel* addCaption_;
    QLabel* nameLabel_;
    QLineEdit* nameField_;
    QLabel* urlLabel_;
    QLineEdit* urlField_;
    OInlineMessage* addError_;
    QPushButton* addButton_;
};

} // namespace orvel
