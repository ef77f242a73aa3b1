#include "content/CreateBranchViewModel.h"

#include "content/OperationFailure.h"
#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"
#include "settings/LocalizationManager.h"

namespace orvel {

CreateBranchViewModel::CreateBranchViewModel(RepoEntry repo, std::string startPoint,
                                             std::shared_ptr<GitServiceProtocol> service,
                                             QString spaceReplacement, QObject* parent)
    : QObject(parent), repo_(std::move(repo)), startPoint_(std::move(startPoint)),
      service_(std::move(service)), spaceReplacement_(std::move(spaceReplacement)) {}

std::optional<QString> CreateBranchViewModel::validationMessage() const {
    if (name_.isEmpty() || validationErrors_.empty())
        return std::nullopt;
    return BranchNameValidator::message(validationErrors_.front());
}

bool CreateBranchViewModel::canCreate() const {
    return nameToHandOver().has_value();
}

std::optional<QString> CreateBranchViewModel::nameToHandOver() const {
    if (isCreating_)
        return std::nullopt;
    QString handedOver = normalizedBranchName(name_, spaceReplacement_);
    if (handedOver.isEmpty() || !BranchNameValidator::validate(handedOver).empty())
        return std::nullopt;
    return handedOver;
}

void CreateBranchViewModel::setName(const QString& typed) {
    name_ = sanitize(typed, spaceReplacement_);
    validationErrors_ = BranchNameValidator::validate(name_);
    if (name_ != typed)
        emit nameChanged(name_);
    emit stateChanged();
}

void CreateBranchViewModel::setCheckoutAfterCreate(bool checkout) {
    if (checkout == checkoutAfterCreate_)
        return;
    checkoutAfterCreate_ = checkout;
    emit stateChanged();
}

void CreateBranchViewModel::setLocalChanges(LocalChangesOption option) {
    if (option == localChanges_)
        return;
    localChanges_ = option;
    emit stateChanged();
}

QCoro::Task<bool> CreateBranchViewModel::create() {
    const std::optional<QString> handedOver = nameToHandOver();
    if (!handedOver)
        co_return false;
    const QString name = *handedOver;
    auto ticket = creations_.begin(this);
    isCreating_ = true;
    createError_.reset();
    emit stateChanged();
    const std::string branch = name.toStdString();
    auto creation = checkoutAfterCreate_
                        ? service_->checkoutNewBranch(repo_, branch, startPoint_, ticket.stopToken())
                        : service_->createBranch(repo_, branch, startPoint_, ticket.stopToken());
    auto outcome = failureOf(std::move(creation));
    const std::optional<std::string> failure = co_await std::move(outcome);
    if (!ticket.isCurrent())
        co_return false;
    isCreating_ = false;
    if (failure) {
        qCDebug(lcRefs, "op=branch.create reason=%s", failure->c_str());
        createError_ = localized("Create branch failed: %1", QString::fromUtf8(*failure));
    } else {
        qCDebug(lcRefs, "op=branch.create checkout=%d", checkoutAfterCreate_ ? 1 : 0);
    }
    emit stateChanged();
    if (failure)
        co_return false;
    emit created(name);
    co_return true;
}

} // namespace orvel
