// The program's own preferences as one value: the ten keys of the General tab (and the appearance
// control of the Appearance tab) with their defaults, read from and written to the settings store.
// Other parts read single keys where they use them, naming the same key and default.
#pragma once

#include <QString>

namespace orvel {

class UserDefaults;

// The file that starts a repository cloned empty; stored by its name ("gitkeep").
enum class EmptyRepoInitFile { gitkeep, readme, gitignore };

inline constexpr EmptyRepoInitFile allEmptyRepoInitFiles[] = {
    EmptyRepoInitFile::gitkeep, EmptyRepoInitFile::readme, EmptyRepoInitFile::gitignore};

QString rawValue(EmptyRepoInitFile file);
// ".gitkeep", "README.md", ".gitignore": the file's name and its label alike.
QString initialFileName(EmptyRepoInitFile file);
// A stored name, or a file name; anything else is .gitkeep.
EmptyRepoInitFile emptyRepoInitFileOf(const QString& stored);

// "Init by Orvel <version> - Git GUI", the default of "emptyRepoInitDesc".
QString defaultEmptyRepoInitDescription();

struct GeneralSettings {
    QString appearance = QStringLiteral("system"); // "system", "light" or "dark"
    QString language;
    int autoFetchInterval = 5; // minutes; below 1 turns the fetch off
    bool autoPrune = true;
    QString branchSpaceReplacement = QStringLiteral("-");
    int largeFileSizeMB = 10;
    int largeFileLineCountK = 15;
    QString emptyRepoInitMessage = QStringLiteral("Initialization");
    QString emptyRepoInitDesc;
    EmptyRepoInitFile emptyRepoInitFile = EmptyRepoInitFile::gitkeep;

    // The defaults; the language is the current locale's, or "en".
    static GeneralSettings defaults();
    // Each key, or its default when it is absent or of the wrong type.
    static GeneralSettings read(const UserDefaults& store);
    // All ten keys, changed or not.
    void write(UserDefaults& store) const;

    bool operator==(const GeneralSettings&) const = default;
};

} // namespace orvel
