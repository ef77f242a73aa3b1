// The state of the create-branch sheet: the name as the user types it (cleaned at every change),
// the rules it breaks, the checkout choice, and the creation through the git service.
#pragma once

#include "content/BranchNameValidator.h"
#include "content/LocalChangesOption.h"
#include "core/records/RepoEntry.h"
#include "core/support/LoadGeneration.h"

#include <QObject>
#include <QString>

#include <QCoro/QCoroTask>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

class GitServiceProtocol;

// Lives on the GUI thread; git runs only through the service.
class CreateBranchViewModel final : public QObject {
    Q_OBJECT

  public:
    CreateBranchViewModel(RepoEntry repo, std::string startPoint, std::shared_ptr<GitServiceProtocol> service,
                          QString spaceReplacement, QObject* parent = nullptr);

    const std::string& startPoint() const { return startPoint_; }
    const QString& name() const { return name_; }
    const std::vector<BranchNameValidator::ValidationError>& validationErrors() const {
        return validationErrors_;
    }
    // The first error's message, when the field has text and that error has a message.
    std::optional<QString> validationMessage() const;
    bool checkoutAfterCreate() const { return checkoutAfterCreate_; }
    LocalChangesOption localChanges() const { return localChanges_; }
    bool isCreating() const { return isCreating_; }
    const std::optional<QString>& createError() const { return createError_; }
    // The name Create would hand over is valid and nothing is under way.
    bool canCreate() const;
    // The cleaned name Create hands over, when it is valid.
    std::optional<QString> nameToHandOver() const;

    // Cleans `typed` and validates the result; nameChanged gives the field the cleaned text when
    // cleaning changed what was typed.
    void setName(const QString& typed);
    void setCheckoutAfterCreate(bool checkout);
    // Only a sheet that hands its answer to the toolbar's or menu's commands offers this choice.
    void setLocalChanges(LocalChangesOption option);

    // Creates the branch at the start point (and checks it out when asked). Answers whether it was
    // created; a failure keeps the sheet's state and sets createError.
    QCoro::Task<bool> create();

  signals:
    void nameChanged(const QString& name);
    // validationErrors, checkoutAfterCreate, isCreating or createError changed.
    void stateChanged();
    void created(const QString& name);

  private:
    RepoEntry repo_;
    std::string startPoint_;
    std::shared_ptr<GitServiceProtocol> service_;
    QString spaceReplacement_;
    QString name_;
    std::vector<BranchNameValidator::ValidationError> validationErrors_ = BranchNameValidator::validate({});
    bool checkoutAfterCreate_ = true;
    LocalChangesOption localChanges_ = LocalChangesOption::dontChange;
    bool isCreating_ = false;
    std::optional<QString> createError_;
    LoadGeneration creations_;
};

} // namespace orvel
