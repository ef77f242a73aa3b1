// Finds the keys on this machine that git can sign with: the GPG secret keys that gpg lists, and
// the SSH public keys in the user's key folder. Both look-ups block (gpg is a child process, the
// folder a disk read), so they run on worker threads.
#pragma once

#include "settings/SigningKeyEntry.h"

#include <QString>

#include <cstdint>
#include <string>
#include <vector>

namespace orvel {

class SigningKeyService {
  public:
    // The gpg programs tried in order; the first that lists any key wins. The PATH isn't searched.
    static std::vector<std::string> defaultGpgPrograms() { return {"/usr/bin/gpg", "/usr/local/bin/gpg"}; }
    // "~/.ssh".
    static QString defaultSshFolder();

    explicit SigningKeyService(std::vector<std::string> gpgPrograms = defaultGpgPrograms(),
                               QString sshFolder = defaultSshFolder());

    // A program that is missing, can't start or fails counts as listing nothing.
    std::vector<SigningKeyEntry> detectGPGKeys() const;
    // The ".pub" files of the folder, by name. Throws std::filesystem::filesystem_error when the
    // folder can't be read.
    std::vector<SigningKeyEntry> detectSSHKeys() const;

    const QString& sshFolder() const { return sshFolder_; }

  private:
    std::vector<std::string> gpgPrograms_;
    QString sshFolder_;
};

// The expiry of a key as a date in the user's locale, with the year in full.
QString formatKeyExpiry(std::int64_t secondsSinceEpoch);

} // namespace orvel
