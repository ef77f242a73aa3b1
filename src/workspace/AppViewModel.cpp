#include "workspace/AppViewModel.h"

#include "changes/ChangesPaneViewModel.h"
#include "core/service/GitServiceError.h"
#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"
#include "core/support/Text.h"
#include "core/support/UserDefaults.h"
#include "graph/RepoGraphPaneViewModel.h"
#include "settings/LocalizationManager.h"
#include "workspace/AutoFetchScheduler.h"

#include <QPointer>
#include <QStringList>

#include <algorithm>
#include <filesystem>

namespace orvel {

namespace {

// Whether git ran and answered that the folder holds no repository. Any other failure (git missing,
// broken or killed) says nothing about the folder, and the entry stays.
bool saysNotARepository(const std::exception& failure) {
    const auto* error = dynamic_cast<const GitServiceError*>(&failure);
    return error && error->kind() == GitServiceError::Kind::commandFailed &&
           error->stderrText().find("not a git repository") != std::string::npos;
}

const QString recentsKey = QStringLiteral("recentRepositoryPaths");

std::string lastPathComponent(const std::string& path) {
    std::filesystem::path value(path);
    if (!value.has_filename())
        value = value.parent_path();
    return value.filename().string();
}

// The repository ORVEL_AUTOTEST_OPEN_REPO names: its value trimmed, when a ".git" exists there.
std::optional<std::string> autotestRepository(const QByteArray& value) {
    std::string path = trimmed(value.toStdString());
    std::error_code error;
    if (path.empty() || !std::filesystem::exists(std::filesystem::path(path) / ".git", error))
        return std::nullopt;
    return path;
}

} // namespace

const char* toString(AppMode mode) {
    return mode == AppMode::working ? "working" : "welcome";
}

AppViewModel::AppViewModel(std::shared_ptr<GitServiceProtocol> service, UserDefaults& defaults,
                           QObject* parent)
    : QObject(parent), service_(std::move(service)), defaults_(defaults),
      autoFetch_(std::make_unique<AutoFetchScheduler>(*this, defaults)) {
    for (const QString& path : defaults_.value(recentsKey).toStringList()) {
        RepoEntry entry;
        entry.path = path.toStdString();
        recentRepositories_.push_back(std::move(entry));
    }
    qCDebug(lcApp, "op=recents.loaded count=%ld", static_cast<long>(recentRepositories_.size()));
}

AppViewModel::~AppViewModel() = default;

void AppViewModel::start(std::optional<QByteArray> autotestValue) {
    const bool opensAtStart = autotestValue && autotestRepository(*autotestValue);
    if (autotestValue)
        openFromEnvironment(std::move(autotestValue));
    if (!opensAtStart)
        pruneInvalidRecents();
}

WorkspaceTabState* AppViewModel::activeTab() const {
    if (!activeTabID_)
        return nullptr;
    const auto found = std::find_if(openTabs_.begin(), openTabs_.end(),
                                    [this](const auto& tab) { return tab->id() == *activeTabID_; });
    return found == openTabs_.end() ? nullptr : found->get();
}

QCoro::Task<void> AppViewModel::openRepository(std::string path) {
    qCDebug(lcApp, "op=repo.open");
    QPointer<AppViewModel> self(this);
    auto ticket = opens_.begin(this);
    auto service = service_;
    auto opening = service->open(path);
    // A new tab's first wait is its newest page of history. Queued right behind the open, git
    // reads it while this thread builds the tab, instead of after.
    std::optional<QCoro::Task<std::vector<GraphCommit>>> newestPage;
    if (!tabFor(path)) {
        RepoEntry unopened;
        unopened.path = path;
        newestPage = service->commitGraph(std::move(unopened), RepoGraphPaneViewModel::loadLimit);
    }
    try {
        RepoEntry entry = co_await std::move(opening);
        if (!self)
            co_return;
        // A superseded open still counts as a use of the repository.
        addToRecents(entry);
        if (!ticket.isCurrent())
            co_return;
        setActiveRepository(entry);
        openTab(entry, std::move(newestPage));
        setMode(AppMode::working);
        qCDebug(lcApp, "op=repo.open status=success");
    } catch (const std::exception& error) {
        if (!ticket.isCurrent())
            co_return;
        qCDebug(lcApp, "op=repo.open reason=%s", redactForLog(error.what()).c_str());
        toastManager_.show(localized("Failed to open repository: %1", QString::fromUtf8(error.what())),
                           ToastType::error);
    }
}

QCoro::Task<void> AppViewModel::openFromEnvironment(std::optional<QByteArray> value) {
    if (!value)
        co_return;
    const std::optional<std::string> path = autotestRepository(*value);
    if (!path) {
        qCWarning(lcApp, "ORVEL_AUTOTEST_OPEN_REPO is set but path is invalid or not a git repo");
        co_return;
    }
    qCDebug(lcApp, "env var present: %s", path->c_str());
    qCDebug(lcApp, "gitDir=%s/.git exists=true", path->c_str());
    QPointer<AppViewModel> self(this);
    co_await openRepository(*path);
    if (!self)
        co_return;
    qCDebug(lcApp, "openRepository returned; mode=%s activeRepo=%s", toString(self->mode_),
            self->activeRepository_ ? self->activeRepository_->path.c_str() : "nil");
}

void AppViewModel::switchToRepository(const RepoEntry& entry) {
    qCDebug(lcApp, "op=repo.switch");
    setActiveRepository(entry);
    addToRecents(entry);
    openTab(entry);
    setMode(AppMode::working);
}

void AppViewModel::switchToTab(const QUuid& id) {
    const auto found =
        std::find_if(openTabs_.begin(), openTabs_.end(), [&id](const auto& tab) { return tab->id() == id; });
    if (found == openTabs_.end() || activeTabID_ == id)
        return;
    activeTabID_ = id;
    setActiveRepository((*found)->repo());
    emit activeTabChanged();
}

void AppViewModel::openTab(const RepoEntry& entry, std::optional<QCoro::Task<std::vector<GraphCommit>>> newestPage) {
    if (const WorkspaceTabState* existing = tabFor(entry.path)) {
        // Its state lives on; nothing reloads.
        qCDebug(lcApp, "op=tab.switch existing=true");
        switchToTab(existing->id());
        return;
    }
    qCDebug(lcApp, "op=tab.open tabCount=%ld", static_cast<long>(openTabs_.size() + 1));
    WorkspaceTabState::Options options;
    options.maintainCommitGraph = defaults_.value(QStringLiteral("maintainCommitGraph"), true).toBool();
    options.defaults = &defaults_;
    options.gitConfig = gitConfig_;
    auto tab = std::make_unique<WorkspaceTabState>(entry, service_, toastManager_, options);
    WorkspaceTabState* opened = tab.get();
    // The tab's actions show one activity at a time: a new message replaces the tab's last one.
    auto slot = std::make_shared<std::optional<QUuid>>();
    QPointer<AppViewModel> self(this);
    auto activity = [self, slot](std::optional<QString> message) {
        if (!self)
            return;
        if (*slot)
            self->popActivity(**slot);
        slot->reset();
        if (message)
            *slot = self->pushActivity(*message);
    };
    tab->graph().setActivityCallback(activity);
    tab->changes().setActivityCallback(activity);
    tab->loadData(std::move(newestPage));
    openTabs_.push_back(std::move(tab));
    activeTabID_ = opened->id();
    emit tabOpened(opened);
    emit activeTabChanged();
    autoFetch_->start();
}

WorkspaceTabState* AppViewModel::tabFor(const std::string& path) const {
    const auto found = std::find_if(openTabs_.begin(), openTabs_.end(),
                                    [&path](const auto& tab) { return tab->repo().path == path; });
    return found == openTabs_.end() ? nullptr : found->get();
}

void AppViewModel::closeTab(const QUuid& id) {
    qCDebug(lcApp, "op=tab.close");
    const auto found =
        std::find_if(openTabs_.begin(), openTabs_.end(), [&id](const auto& tab) { return tab->id() == id; });
    if (found == openTabs_.end())
        return;
    std::unique_ptr<WorkspaceTabState> tab = std::move(*found);
    openTabs_.erase(found);
    tab->cancelAllTasks();
    emit tabClosing(tab.get());
    if (activeTabID_ == id) {
        activeTabID_.reset();
        if (!openTabs_.empty())
            activeTabID_ = openTabs_.back()->id();
        emit activeTabChanged();
    }
    WorkspaceTabState* active = activeTab();
    setActiveRepository(active ? std::optional(active->repo()) : std::nullopt);
    if (openTabs_.empty()) {
        qCDebug(lcApp, "op=tab.close allClosed=true");
        autoFetch_->stop();
        setMode(AppMode::welcome);
    }
    // Coroutines of the tab may still be suspended; their tickets see it gone.
    tab.release()->deleteLater();
}

void AppViewModel::addToRecents(const RepoEntry& entry) {
    std::erase_if(recentRepositories_,
                  [&entry](const RepoEntry& recent) { return recent.path == entry.path; });
    recentRepositories_.insert(recentRepositories_.begin(), entry);
    if (recentRepositories_.size() > maxRecentRepositories)
        recentRepositories_.resize(maxRecentRepositories);
    saveRecents();
    emit recentRepositoriesChanged();
}

void AppViewModel::removeFromRecents(const std::string& path) {
    std::erase_if(recentRepositories_, [&path](const RepoEntry& recent) { return recent.path == path; });
    if (selectedRecentRepoPath_ == path)
        selectedRecentRepoPath_.reset();
    saveRecents();
    emit recentRepositoriesChanged();
}

void AppViewModel::setSelectedRecentRepoPath(std::optional<std::string> path) {
    selectedRecentRepoPath_ = std::move(path);
}

void AppViewModel::saveRecents() {
    QStringList paths;
    for (const RepoEntry& entry : recentRepositories_)
        paths.append(QString::fromStdString(entry.path));
    defaults_.setValue(recentsKey, paths);
    qCDebug(lcApp, "op=recents.saved count=%ld", static_cast<long>(paths.size()));
}

QCoro::Task<void> AppViewModel::pruneInvalidRecents() {
    QPointer<AppViewModel> self(this);
    auto service = service_;
    const std::vector<RepoEntry> recents = recentRepositories_;
    std::vector<std::string> invalid;
    for (const RepoEntry& entry : recents) {
        std::error_code error;
        if (!std::filesystem::exists(entry.path, error)) {
            invalid.push_back(lastPathComponent(entry.path));
            continue;
        }
        try {
            co_await service->open(entry.path);
        } catch (const std::exception& failure) {
            qCDebug(lcApp, "op=recents.validate reason=%s", redactForLog(failure.what()).c_str());
            if (saysNotARepository(failure))
                invalid.push_back(lastPathComponent(entry.path));
        }
        if (!self)
            co_return;
    }
    if (!self || invalid.empty())
        co_return;
    // By name, not by path: a repository that shares its folder's name with a stale one goes too.
    std::erase_if(self->recentRepositories_, [&invalid](const RepoEntry& recent) {
        return std::find(invalid.begin(), invalid.end(), lastPathComponent(recent.path)) != invalid.end();
    });
    qCDebug(lcApp, "op=recents.pruned count=%ld", static_cast<long>(invalid.size()));
    self->saveRecents();
    emit self->recentRepositoriesChanged();
    QStringList names;
    for (const std::string& name : invalid)
        names.append(QString::fromStdString(name));
    self->toastManager_.show(localized("Removed invalid repos: %1", names.join(QStringLiteral(", "))),
                             ToastType::warning);
}

QUuid AppViewModel::pushActivity(const QString& message) {
    const QUuid id = QUuid::createUuid();
    activityStack_.emplace_back(id, message);
    activityMessage_ = message;
    emit activityChanged();
    return id;
}

void AppViewModel::popActivity(const QUuid& id) {
    const auto removed =
        std::erase_if(activityStack_, [&id](const auto& activity) { return activity.first == id; });
    if (removed == 0)
        return;
    activityMessage_ = activityStack_.empty() ? std::nullopt : std::optional(activityStack_.back().second);
    emit activityChanged();
}

void AppViewModel::setMode(AppMode mode) {
    if (mode_ == mode)
        return;
    mode_ = mode;
    emit modeChanged();
}

void AppViewModel::setActiveRepository(std::optional<RepoEntry> entry) {
    activeRepository_ = std::move(entry);
    emit activeRepositoryChanged();
}

} // namespace orvel
