// The settings' Git tab: the identity and defaults in the user's global git configuration, and the
// git program the executor runs. Edits stay here until Apply writes what differs from what was
// read; Revert brings the read values back.
#pragma once

#include "core/support/LoadGeneration.h"
#include "settings/GitBinaryEntry.h"
#include "settings/SettingsPage.h"

#include <QObject>
#include <QString>

#include <memory>
#include <vector>

namespace orvel {

class GitBinaryProberProtocol;
class GitConfigProtocol;
class GitExecutorProtocol;
class UserDefaults;

class GitSettingsViewModel final : public QObject, public SettingsPage {
    Q_OBJECT

  public:
    struct Snapshot {
        QString userName;
        QString userEmail;
        QString defaultBranch;
        QString sshCommand;
        QString globalExcludes;
        QString selectedBinaryPath;

        bool operator==(const Snapshot&) const = default;
    };

    // The places where a git is looked for on this platform, and the git that PATH finds.
    static std::vector<QString> platformCandidates();

    // Without an executor the choice of program is only stored, for the next start.
    GitSettingsViewModel(std::shared_ptr<GitConfigProtocol> config,
                         std::shared_ptr<GitBinaryProberProtocol> prober, UserDefaults& defaults,
                         std::shared_ptr<GitExecutorProtocol> executor,
                         std::vector<QString> candidates = platformCandidates(), QObject* parent = nullptr);
    ~GitSettingsViewModel() override;

    // Reads the five keys at global scope and the stored program, then starts the discovery.
    QCoro::Task<void> load() override;
    QCoro::Task<void> apply() override;
    void revert() override;
    QString errorMessage() const override { return errorMessage_; }

    const QString& userName() const { return current_.userName; }
    const QString& userEmail() const { return current_.userEmail; }
    const QString& defaultBranch() const { return current_.defaultBranch; }
    const QString& sshCommand() const { return current_.sshCommand; }
    const QString& globalExcludes() const { return current_.globalExcludes; }
    // Empty: the executor finds git by itself.
    const QString& selectedBinaryPath() const { return current_.selectedBinaryPath; }
    void setUserName(const QString& value);
    void setUserEmail(const QString& value);
    void setDefaultBranch(const QString& value);
    void setSshCommand(const QString& value);
    void setGlobalExcludes(const QString& value);
    // A path from availableBinaries(), or empty for the executor's own choice.
    void selectBinary(const QString& path);
    // Probes a file the user picked; one that is not a working git is refused with errorMessage()
    // and changes nothing. Answers whether it was taken.
    QCoro::Task<bool> selectCustomBinary(QString path);

    // The programs found, a stored custom one first; replaces a discovery still running.
    QCoro::Task<void> discoverBinaries();
    const std::vector<GitBinaryEntry>& availableBinaries() const { return availableBinaries_; }
    bool isDiscovering() const { return isDiscovering_; }

    // Whether any field, trimmed, differs from what was read or last applied.
    bool hasChanges() const;

  signals:
    // A field, and with it hasChanges(), changed.
    void fieldsChanged();
    void binariesChanged();
    void errorMessageChanged();

  private:
    Snapshot trimmedFields() const;
    void setField(QString Snapshot::*field, const QString& value);
    void setErrorMessage(const QString& message);
    // Hands the executor the new program and stores it; throws when the executor refuses it.
    QCoro::Task<void> applyBinary(QString path);

    std::shared_ptr<GitConfigProtocol> config_;
    std::shared_ptr<GitBinaryProberProtocol> prober_;
    UserDefaults& defaults_;
    std::shared_ptr<GitExecutorProtocol> executor_;
    std::vector<QString> candidates_;
    Snapshot current_;
    Snapshot original_;
    std::vector<GitBinaryEntry> availableBinaries_;
    bool isDiscovering_ = false;
    QString errorMessage_;
    LoadGeneration loads_;
    LoadGeneration discoveries_;
};

} // namespace orvel
