#include "diff/FileSheetViewModel.h"

#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"
#include "settings/LocalizationManager.h"

namespace orvel {

FileSheetViewModel::FileSheetViewModel(Kind kind, RepoEntry repo, std::string path,
                                       std::shared_ptr<GitServiceProtocol> service, QObject* parent)
    : QObject(parent), kind_(kind), repo_(std::move(repo)), path_(std::move(path)), service_(std::move(service)) {}

QCoro::Task<void> FileSheetViewModel::load() {
    auto ticket = loads_.begin(this);
    isLoading_ = true;
    error_.clear();
    emit loadStateChanged();
    try {
        if (kind_ == Kind::blame) {
            auto entries = co_await service_->blame(repo_, path_, ticket.stopToken());
            if (!ticket.isCurrent())
                co_return;
            blame_ = std::move(entries);
        } else {
            auto entries = co_await service_->fileHistory(repo_, path_, historyLimit, ticket.stopToken());
            if (!ticket.isCurrent())
                co_return;
            history_ = std::move(entries);
        }
    } catch (const std::exception& failure) {
        if (!ticket.isCurrent())
            co_return;
        qCWarning(lcGraph, "op=%s reason=%s", kind_ == Kind::blame ? "file.blame" : "file.history",
                  redactForLog(failure.what()).c_str());
        error_ = (kind_ == Kind::blame ? localized("Blame failed: ") : localized("History failed: ")) +
                 QString::fromUtf8(failure.what());
    }
    isLoading_ = false;
    emit loadStateChanged();
}

} // namespace orvel
