#include "settings/GitSettingsViewModel.h"

#include "core/process/GitExecutorProtocol.h"
#include "core/queue/BackgroundWork.h"
#include "core/service/GitConfigProtocol.h"
#include "core/support/Log.h"
#include "core/support/UserDefaults.h"
#include "settings/GitBinaryProberProtocol.h"
#include "settings/LocalizationManager.h"

#include <QPointer>
#include <QStandardPaths>

#include <algorithm>

namespace orvel {

namespace {

const QString binaryPathKey = QStringLiteral("gitBinaryPath");

// The keys of the tab, in the order in which they are read and written.
struct ConfigField {
    QString GitSettingsViewModel::Snapshot::*field;
    const char* key;
    const char* logName;
};

constexpr ConfigField configFields[] = {
    {&GitSettingsViewModel::Snapshot::userName, "user.name", "userName"},
    {&GitSettingsViewModel::Snapshot::userEmail, "user.email", "userEmail"},
    {&GitSettingsViewModel::Snapshot::defaultBranch, "init.defaultBranch", "defaultBranch"},
    {&GitSettingsViewModel::Snapshot::sshCommand, "core.sshCommand", "sshCommand"},
    {&GitSettingsViewModel::Snapshot::globalExcludes, "core.excludesfile", "globalExcludes"},
};

// What the logs call a program: where it comes from, never the path, which may hold a name.
const char* pathKind(const QString& path) {
    if (path.isEmpty())
        return "automatic";
    if (path == QLatin1String("/usr/bin/git"))
        return "system";
    if (path == QLatin1String("/usr/local/bin/git"))
        return "local";
    return "custom";
}

std::string utf8(const QString& text) {
    return text.toStdString();
}

QString fromUtf8(const std::string& bytes) {
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

bool containsSpace(const QString& text) {
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.isSpace(); });
}

GitBinaryEntry binaryEntry(const QString& path, const std::string& version, bool isCustom) {
    GitBinaryEntry entry;
    entry.path = path;
    entry.version = fromUtf8(version);
    entry.label = path + QStringLiteral(" (") + entry.version + QLatin1Char(')');
    entry.isCustom = isCustom;
    return entry;
}

bool listsPath(const std::vector<GitBinaryEntry>& entries, const QString& path) {
    return std::any_of(entries.begin(), entries.end(),
                       [&](const GitBinaryEntry& entry) { return entry.path == path; });
}

} // namespace

std::vector<QString> GitSettingsViewModel::platformCandidates() {
    std::vector<QString> candidates{QStringLiteral("/usr/bin/git"), QStringLiteral("/usr/local/bin/git")};
    const QString onPath = QStandardPaths::findExecutable(QStringLiteral("git"));
    if (!onPath.isEmpty())
        candidates.push_back(onPath);
    return candidates;
}

GitSettingsViewModel::GitSettingsViewModel(std::shared_ptr<GitConfigProtocol> config,
                                           std::shared_ptr<GitBinaryProberProtocol> prober,
                                           UserDefaults& defaults,
                                           std::shared_ptr<GitExecutorProtocol> executor,
                                           std::vector<QString> candidates, QObject* parent)
    : QObject(parent), config_(std::move(config)), prober_(std::move(prober)), defaults_(defaults),
      executor_(std::move(executor)), candidates_(std::move(candidates)) {}

GitSettingsViewModel::~GitSettingsViewModel() = default;

QCoro::Task<void> GitSettingsViewModel::load() {
    auto ticket = loads_.begin(this);
    qCDebug(lcApp, "op=settings.gitConfig.load");
    auto config = config_;
    Snapshot read;
    for (const ConfigField& field : configFields) {
        try {
            const std::optional<std::string> value = co_await config->get(field.key, GitConfigScope::global);
            read.*field.field = value ? fromUtf8(*value) : QString();
        } catch (const std::exception& error) {
            qCDebug(lcApp, "op=settings.gitConfig.load reason=%s", redactForLog(error.what()).c_str());
        }
        if (!ticket.isCurrent())
            co_return;
    }
    read.selectedBinaryPath = defaults_.string(binaryPathKey);
    current_ = read;
    original_ = read;
    emit fieldsChanged();
    discoverBinaries();
}

QCoro::Task<void> GitSettingsViewModel::apply() {
    QPointer<GitSettingsViewModel> self(this);
    auto config = config_;
    setErrorMessage({});
    const Snapshot wanted = trimmedFields();
    Snapshot applied = original_;
    for (const ConfigField& field : configFields) {
        const QString& value = wanted.*field.field;
        if (value == original_.*field.field)
            continue;
        if (field.field == &Snapshot::defaultBranch) {
            if (containsSpace(value)) {
                setErrorMessage(localized("Branch name must not contain spaces."));
                continue;
            }
            qCDebug(lcApp, "op=settings.gitConfig.defaultBranch.set empty=%d", value.isEmpty());
        } else {
            qCDebug(lcApp, "op=settings.gitConfig.%s.set", field.logName);
        }
        try {
            // An emptied field is erased; it was read as present, or it would not differ.
            if (value.isEmpty())
                co_await config->unset(field.key, GitConfigScope::global);
            else
                co_await config->set(field.key, utf8(value), GitConfigScope::global);
            applied.*field.field = value;
        } catch (const std::exception& error) {
            qCDebug(lcApp, "op=settings.gitConfig.apply reason=%s", redactForLog(error.what()).c_str());
            if (self)
                setErrorMessage(QString::fromUtf8(error.what()));
        }
        if (!self)
            co_return;
    }
    if (wanted.selectedBinaryPath != original_.selectedBinaryPath) {
        try {
            co_await applyBinary(wanted.selectedBinaryPath);
            applied.selectedBinaryPath = wanted.selectedBinaryPath;
            qCDebug(lcApp, "op=settings.gitBinary.changed path.kind=%s", pathKind(wanted.selectedBinaryPath));
        } catch (const std::exception& error) {
            qCDebug(lcApp, "op=settings.gitBinary.changed reason=%s", redactForLog(error.what()).c_str());
            if (self)
                setErrorMessage(QString::fromUtf8(error.what()));
        }
        if (!self)
            co_return;
    }
    original_ = applied;
    // What was written shows as written (trimmed); a refused field keeps the user's text.
    for (const ConfigField& field : configFields) {
        if (applied.*field.field == wanted.*field.field)
            current_.*field.field = applied.*field.field;
    }
    emit fieldsChanged();
}

QCoro::Task<void> GitSettingsViewModel::applyBinary(QString path) {
    QPointer<GitSettingsViewModel> self(this);
    if (executor_) {
        auto told = runOnPool(backgroundPool(), [executor = executor_, path = utf8(path)] {
            executor->setGitPathOverride(path.empty() ? std::nullopt : std::optional<std::string>(path));
        });
        co_await std::move(told);
    }
    if (!self)
        co_return;
    if (path.isEmpty())
        defaults_.remove(binaryPathKey);
    else
        defaults_.setValue(binaryPathKey, path);
}

void GitSettingsViewModel::revert() {
    current_ = original_;
    setErrorMessage({});
    emit fieldsChanged();
}

void GitSettingsViewModel::setUserName(const QString& value) {
    setField(&Snapshot::userName, value);
}

void GitSettingsViewModel::setUserEmail(const QString& value) {
    setField(&Snapshot::userEmail, value);
}

void GitSettingsViewModel::setDefaultBranch(const QString& value) {
    setField(&Snapshot::defaultBranch, value);
}

void GitSettingsViewModel::setSshCommand(const QString& value) {
    setField(&Snapshot::sshCommand, value);
}

void GitSettingsViewModel::setGlobalExcludes(const QString& value) {
    setField(&Snapshot::globalExcludes, value);
}

void GitSettingsViewModel::selectBinary(const QString& path) {
    setField(&Snapshot::selectedBinaryPath, path);
}

void GitSettingsViewModel::setField(QString Snapshot::*field, const QString& value) {
    if (current_.*field == value)
        return;
    current_.*field = value;
    emit fieldsChanged();
}

QCoro::Task<bool> GitSettingsViewModel::selectCustomBinary(QString path) {
    QPointer<GitSettingsViewModel> self(this);
    auto prober = prober_;
    const std::optional<std::string> version = co_await prober->probe(utf8(path));
    if (!self)
        co_return false;
    if (!version) {
        qCDebug(lcApp, "op=settings.gitBinary.changed reason=probe-failed");
        setErrorMessage(localized("'%1' is not a valid git executable.", path));
        co_return false;
    }
    if (!listsPath(availableBinaries_, path)) {
        availableBinaries_.push_back(binaryEntry(path, *version, true));
        emit binariesChanged();
    }
    qCDebug(lcApp, "op=settings.gitBinary.changed path.kind=custom");
    // An earlier refusal no longer stands once a working git is chosen.
    setErrorMessage({});
    selectBinary(path);
    co_return true;
}

QCoro::Task<void> GitSettingsViewModel::discoverBinaries() {
    auto ticket = discoveries_.begin(this);
    auto prober = prober_;
    isDiscovering_ = true;
    emit binariesChanged();
    std::vector<GitBinaryEntry> found;
    const QString stored = defaults_.string(binaryPathKey);
    std::vector<std::pair<QString, bool>> paths;
    if (!stored.isEmpty() && std::find(candidates_.begin(), candidates_.end(), stored) == candidates_.end())
        paths.emplace_back(stored, true);
    for (const QString& candidate : candidates_)
        paths.emplace_back(candidate, false);
    for (const auto& [path, isCustom] : paths) {
        if (listsPath(found, path))
            continue;
        const std::optional<std::string> version = co_await prober->probe(utf8(path));
        if (!ticket.isCurrent())
            co_return;
        if (version)
            found.push_back(binaryEntry(path, *version, isCustom));
    }
    // A program the user picked while the discovery ran stays offered.
    for (const GitBinaryEntry& entry : availableBinaries_) {
        if (entry.isCustom && !listsPath(found, entry.path))
            found.push_back(entry);
    }
    availableBinaries_ = std::move(found);
    isDiscovering_ = false;
    emit binariesChanged();
}

bool GitSettingsViewModel::hasChanges() const {
    return trimmedFields() != original_;
}

GitSettingsViewModel::Snapshot GitSettingsViewModel::trimmedFields() const {
    return {current_.userName.trimmed(),       current_.userEmail.trimmed(),
            current_.defaultBranch.trimmed(),  current_.sshCommand.trimmed(),
            current_.globalExcludes.trimmed(), current_.selectedBinaryPath.trimmed()};
}

void GitSettingsViewModel::setErrorMessage(const QString& message) {
    if (errorMessage_ == message)
        return;
    errorMessage_ = message;
    emit errorMessageChanged();
}

} // namespace orvel
