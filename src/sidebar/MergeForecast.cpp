#include "sidebar/MergeForecast.h"

#include "core/service/GitServiceProtocol.h"
#include "settings/LocalizationManager.h"

namespace orvel {

QString mergeForecast(const std::optional<MergePrediction>& prediction, const std::string& branch,
                      const std::string& into) {
    if (!prediction)
        return localized("Checking for conflicts…");
    switch (prediction->outcome) {
    case MergePrediction::Outcome::clean:
        return localized("Merging '%1' into '%2' will be clean.", branch, into);
    case MergePrediction::Outcome::conflicts:
        return localized("Merging '%1' into '%2' will conflict in %3 file(s): %4", branch, into,
                         static_cast<int>(prediction->files.size()), shownFiles(prediction->files));
    case MergePrediction::Outcome::unknown:
        return prediction->reason.empty() ? QString()
                                          : localized("No conflict preview: %1", prediction->reason);
    }
    return {};
}

QCoro::Task<MergePrediction> predictMergeOf(std::shared_ptr<GitServiceProtocol> service, RepoEntry repo,
                                            std::string branch, std::stop_token cancellation) {
    try {
        co_return co_await service->predictMerge(std::move(repo), std::move(branch), std::move(cancellation));
    } catch (const std::exception& error) {
        co_return MergePrediction::unknown(error.what());
    }
}

} // namespace orvel
