#include "core/commands/UndoJournal.h"

#include "core/commands/UndoEntryFormat.h"
#include "core/parsers/StashParser.h"
#include "core/service/GitServiceError.h"
#include "core/support/AtomicFile.h"
#include "core/support/Text.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <sys/stat.h>

namespace orvel::UndoJournal {

namespace {

namespace fs = std::filesystem;
using Arguments = GitExecutorProtocol::Arguments;

constexpr std::string_view entrySuffix = ".entry";
constexpr std::string_view refRoot = "refs/orvel/undo/";
// Paths handed to one run of git, well below the limit of a command line.
constexpr std::size_t pathsPerRun = 1000;
// What a path holds that is neither a file nor nothing; never equal to a blob.
constexpr std::string_view notAFile = "!";

std::vector<std::string> outputLines(const std::string& output) {
    std::vector<std::string> lines;
    std::istringstream in(output);
    for (std::string line; std::getline(in, line);)
        if (!line.empty())
            lines.push_back(line);
    return lines;
}

fs::path journalFolder(GitExecutorProtocol& git, const std::string& repoPath) {
    const std::string gitDir = trimmed(git.execute({"rev-parse", "--absolute-git-dir"}, repoPath));
    return fs::path(gitDir) / "orvel" / "undo";
}

// Makes the folder and its parent private to this user, also when an older one was not.
fs::path privateFolder(const fs::path& folder) {
    fs::create_directories(folder);
    for (const fs::path& each : {folder.parent_path(), folder})
        fs::permissions(each, fs::perms::owner_all, fs::perm_options::replace);
    return folder;
}

fs::path entryFile(const fs::path& folder, const std::string& id) {
    return folder / (id + std::string(entrySuffix));
}

void save(const fs::path& folder, const UndoEntry& entry) {
    writePrivateFileDurably(entryFile(privateFolder(folder), entry.id).string(), formatUndoEntry(entry));
}

std::vector<UndoEntry> readEntries(const fs::path& folder) {
    std::vector<UndoEntry> found;
    std::error_code error;
    for (const auto& item : fs::directory_iterator(folder, error)) {
        const std::string name = item.path().filename().string();
        const std::string id = name.substr(0, name.size() - std::min(name.size(), entrySuffix.size()));
        // Only the names the journal gives: twenty digits and the suffix.
        if (!name.ends_with(entrySuffix) || id.size() != 20 ||
            !std::all_of(id.begin(), id.end(), [](char c) { return c >= '0' && c <= '9'; }))
            continue;
        std::ifstream in(item.path(), std::ios::binary);
        const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        if (auto entry = parseUndoEntry(bytes, id))
            found.push_back(std::move(*entry));
    }
    std::sort(found.begin(), found.end(), [](const UndoEntry& a, const UndoEntry& b) { return a.id > b.id; });
    return found;
}

// Microseconds since the epoch, fixed-width so that names sort by age, and after every name in use.
std::string freshId(const std::vector<UndoEntry>& existing) {
    const auto now = std::chrono::duration_cast<std::chrono::microseconds>(
                         std::chrono::system_clock::now().time_since_epoch())
                         .count();
    long long value = now;
    if (!existing.empty())
        value = std::max(value, std::stoll(existing.front().id) + 1);
    char text[24];
    std::snprintf(text, sizeof text, "%020lld", value);
    return text;
}

std::string keepRef(const std::string& id, const std::string& leaf) {
    return std::string(refRoot) + id + "/" + leaf;
}

std::vector<std::string> keptRefs(GitExecutorProtocol& git, const std::string& repoPath, const std::string& id) {
    return outputLines(git.execute({"for-each-ref", "--format=%(refname)", keepRef(id, "")}, repoPath));
}

void drop(GitExecutorProtocol& git, const std::string& repoPath, const fs::path& folder, const UndoEntry& entry) {
    for (const std::string& ref : keptRefs(git, repoPath, entry.id))
        git.execute({"update-ref", "-d", ref}, repoPath);
    fs::remove(entryFile(folder, entry.id));
}

// Drops the oldest entries beyond the limits; the newest always stays.
void bound(GitExecutorProtocol& git, const std::string& repoPath, const fs::path& folder,
           const UndoLimits& limits) {
    const std::vector<UndoEntry> all = readEntries(folder);
    std::uint64_t bytes = 0;
    for (std::size_t i = 0; i < all.size(); ++i) {
        bytes += all[i].bytes;
        if (i > 0 && (i >= limits.entries || bytes > limits.bytes))
            drop(git, repoPath, folder, all[i]);
    }
}

// A new entry with its id and time; the journal's folder comes back through `folder`.
UndoEntry newEntry(GitExecutorProtocol& git, const std::string& repoPath, UndoAction action,
                   std::string subject, fs::path& folder) {
    folder = journalFolder(git, repoPath);
    UndoEntry entry;
    entry.id = freshId(readEntries(folder));
    entry.action = action;
    entry.subject = std::move(subject);
    entry.time = std::chrono::duration_cast<std::chrono::seconds>(
                     std::chrono::system_clock::now().time_since_epoch())
                     .count();
    return entry;
}

// The blobs of the files at `paths`, in their order; with `write`, also stored in the repository.
// The bytes are taken as they are on the disk, without git's filters.
std::vector<std::string> hashFiles(GitExecutorProtocol& git, const std::string& repoPath,
                                   const std::vector<std::string>& paths, bool write) {
    std::vector<std::string> hashes;
    for (std::size_t start = 0; start < paths.size(); start += pathsPerRun) {
        Arguments arguments{"hash-object"};
        if (write)
            arguments.push_back("-w");
        arguments.insert(arguments.end(), {"--no-filters", "--"});
        const auto end = paths.begin() + static_cast<long>(std::min(paths.size(), start + pathsPerRun));
        arguments.insert(arguments.end(), paths.begin() + static_cast<long>(start), end);
        const auto lines = outputLines(git.execute(arguments, repoPath));
        hashes.insert(hashes.end(), lines.begin(), lines.end());
    }
    if (hashes.size() != paths.size())
        throw GitServiceError::parseFailed("hash-object", "one hash per file expected");
    return hashes;
}

struct FileState {
    enum class Kind { missing, file, other } kind = Kind::missing;
    bool executable = false;
    std::uint64_t size = 0;
};

FileState stateOf(const std::string& repoPath, const std::string& path) {
    struct stat info {};
    if (::lstat((fs::path(repoPath) / path).c_str(), &info) != 0)
        return {};
    if (!S_ISREG(info.st_mode))
        return {FileState::Kind::other};
    return {FileState::Kind::file, (info.st_mode & S_IXUSR) != 0, static_cast<std::uint64_t>(info.st_size)};
}

// What each path holds now: its blob, empty when missing, `notAFile` for anything else.
std::vector<std::string> contents(GitExecutorProtocol& git, const std::string& repoPath,
                                  const std::vector<std::string>& paths) {
    std::vector<std::string> result(paths.size());
    std::vector<std::string> files;
    std::vector<std::size_t> where;
    for (std::size_t i = 0; i < paths.size(); ++i) {
        const FileState state = stateOf(repoPath, paths[i]);
        if (state.kind == FileState::Kind::other)
            result[i] = notAFile;
        if (state.kind == FileState::Kind::file) {
            files.push_back(paths[i]);
            where.push_back(i);
        }
    }
    const std::vector<std::string> hashes = hashFiles(git, repoPath, files, false);
    for (std::size_t i = 0; i < where.size(); ++i)
        result[where[i]] = hashes[i];
    return result;
}

// A tree naming each kept blob by its hash, written through an index of the journal's own, so
// that one ref keeps all of them.
std::string treeOf(GitExecutorProtocol& git, const std::string& repoPath, const fs::path& folder,
                   const std::string& id, const std::set<std::string>& blobs) {
    const std::string index = (privateFolder(folder) / (id + ".index")).string();
    const GitExecutorProtocol::Environment environment{{"GIT_INDEX_FILE", index}};
    struct RemoveIndex {
        std::string path;
        ~RemoveIndex() {
            std::error_code ignored;
            fs::remove(path, ignored);
        }
    } removeIndex{index};
    const std::vector<std::string> all(blobs.begin(), blobs.end());
    for (std::size_t start = 0; start < all.size(); start += pathsPerRun) {
        Arguments arguments{"update-index", "--add"};
        for (std::size_t i = start; i < std::min(all.size(), start + pathsPerRun); ++i)
            arguments.insert(arguments.end(), {"--cacheinfo", "100644," + all[i] + "," + all[i]});
        git.executeWithEnvironment(arguments, repoPath, environment);
    }
    return trimmed(git.executeWithEnvironment({"write-tree"}, repoPath, environment));
}

std::string resolve(GitExecutorProtocol& git, const std::string& repoPath, const std::string& ref) {
    try {
        return trimmed(git.execute({"rev-parse", "-q", "--verify", ref}, repoPath));
    } catch (const GitServiceError&) {
        return {};
    }
}

std::string shortName(const std::string& ref) {
    for (std::string_view prefix : {"refs/heads/", "refs/remotes/"})
        if (ref.starts_with(prefix))
            return ref.substr(prefix.size());
    return ref;
}

[[noreturn]] void refuse(const std::string& text) {
    throw GitServiceError::invalidInput(text);
}

// Runs `operation`; whether or not it fails, `seal` notes what it left, and a failure goes on.
void runThenSeal(const std::function<void()>& operation, const std::function<void()>& seal) {
    try {
        operation();
    } catch (...) {
        seal();
        throw;
    }
    seal();
}

void checkFiles(GitExecutorProtocol& git, const std::string& repoPath, const UndoEntry& entry) {
    std::vector<std::string> paths;
    for (const UndoFile& file : entry.files)
        paths.push_back(file.path);
    const std::vector<std::string> now = contents(git, repoPath, paths);
    for (std::size_t i = 0; i < paths.size(); ++i)
        if (entry.files[i].after && now[i] != *entry.files[i].after)
            refuse("\"" + paths[i] + "\" was changed after the discard; undoing would overwrite that change.");
}

void restoreFiles(GitExecutorProtocol& git, const std::string& repoPath, const UndoEntry& entry) {
    for (const UndoFile& file : entry.files) {
        const fs::path target = fs::path(repoPath) / file.path;
        if (file.before.empty()) {
            fs::remove(target);
            continue;
        }
        // git writes the blob's bytes as they are to a new file in the work tree's top folder, on
        // the same file system as the target, so the rename below replaces it at once.
        const fs::path staged = fs::path(repoPath) / trimmed(git.execute({"unpack-file", file.before}, repoPath));
        try {
            fs::permissions(staged, file.executable ? fs::perms(0755) : fs::perms(0644),
                            fs::perm_options::replace);
            fs::create_directories(target.parent_path());
            fs::rename(staged, target);
        } catch (...) {
            std::error_code ignored;
            fs::remove(staged, ignored);
            throw;
        }
    }
}

bool isCheckedOut(GitExecutorProtocol& git, const std::string& repoPath, const std::string& ref) {
    return ref == "HEAD" || checkedOutRef(git, repoPath) == ref;
}

void checkRefs(GitExecutorProtocol& git, const std::string& repoPath, const UndoEntry& entry) {
    if (entry.action == UndoAction::dropStash) {
        const auto listed = outputLines(git.execute({"stash", "list", "--format=%H"}, repoPath));
        for (const UndoRef& ref : entry.refs)
            if (std::find(listed.begin(), listed.end(), ref.before) != listed.end())
                refuse("The stash \"" + entry.subject + "\" is already in the stash list.");
        return;
    }
    for (const UndoRef& ref : entry.refs) {
        const std::string now = resolve(git, repoPath, ref.name);
        if (!ref.after || now == *ref.after)
            continue;
        if (ref.after->empty())
            refuse("A branch named \"" + shortName(ref.name) + "\" exists again; undoing would replace it.");
        refuse("\"" + shortName(ref.name) + "\" has moved since; undoing would lose the newer commits.");
    }
}

// Puts the remote's branch back at `value`, only while the remote still has what the action left.
void pushBack(GitExecutorProtocol& git, const std::string& repoPath, const std::string& remote,
              const UndoRef& ref) {
    const std::string branch = ref.name.substr(std::string("refs/remotes/").size() + remote.size() + 1);
    const std::string remoteRef = "refs/heads/" + branch;
    git.execute({"push", "--force-with-lease=" + remoteRef + ":" + ref.after.value_or(""), "--", remote,
                 ref.before + ":" + remoteRef},
                repoPath);
}

void restoreRefs(GitExecutorProtocol& git, const std::string& repoPath, const UndoEntry& entry) {
    for (const UndoRef& ref : entry.refs) {
        if (ref.after == ref.before)
            continue;
        switch (entry.action) {
        case UndoAction::dropStash:
            git.execute({"stash", "store", "-m", entry.subject, ref.before}, repoPath);
            break;
        case UndoAction::deleteRemoteBranch:
        case UndoAction::forcePush:
            pushBack(git, repoPath, entry.subject, ref);
            break;
        case UndoAction::hardReset:
        case UndoAction::rebase:
        case UndoAction::merge:
        case UndoAction::amend:
            if (isCheckedOut(git, repoPath, ref.name)) {
                // The work tree follows the branch back; "--keep" refuses rather than lose local
                // changes, and an amend's changes stay staged, as they were before it.
                const char* mode = entry.action == UndoAction::amend ? "--soft" : "--keep";
                git.execute({"reset", mode, ref.before}, repoPath);
                break;
            }
            [[fallthrough]];
        default: {
            const std::string expected = ref.after && !ref.after->empty()
                                             ? *ref.after
                                             : std::string(ref.before.size(), '0');
            git.execute({"update-ref", "-m", "undo", ref.name, ref.before, expected}, repoPath);
        }
        }
    }
}

} // namespace

std::vector<UndoEntry> entries(GitExecutorProtocol& git, const std::string& repoPath) {
    return readEntries(journalFolder(git, repoPath));
}

void journal(GitExecutorProtocol& git, const std::string& repoPath, const UndoLimits& limits, UndoAction action,
             const std::string& subject, const std::vector<std::string>& paths,
             const std::vector<std::string>& refNames, const std::function<void()>& operation) {
    if (limits.entries == 0 || (paths.empty() && refNames.empty()))
        return operation();
    std::vector<UndoFile> files;
    std::vector<std::string> present;
    std::uint64_t bytes = 0;
    std::set<std::string> seen;
    for (const std::string& path : paths) {
        if (!seen.insert(path).second)
            continue;
        const FileState state = stateOf(repoPath, path);
        if (state.kind == FileState::Kind::other)
            continue;
        files.push_back({path, {}, state.executable, std::nullopt});
        bytes += state.size;
        if (state.kind == FileState::Kind::file)
            present.push_back(path);
    }
    if (files.empty() && refNames.empty())
        return operation();
    fs::path folder;
    UndoEntry entry = newEntry(git, repoPath, action, subject, folder);
    entry.files = std::move(files);
    entry.bytes = bytes;
    const std::vector<std::string> blobs = hashFiles(git, repoPath, present, true);
    std::set<std::string> kept;
    for (std::size_t i = 0, next = 0; i < entry.files.size(); ++i) {
        if (next < present.size() && entry.files[i].path == present[next]) {
            entry.files[i].before = blobs[next++];
            kept.insert(entry.files[i].before);
        }
    }
    if (!kept.empty())
        git.execute({"update-ref", keepRef(entry.id, "files"), treeOf(git, repoPath, folder, entry.id, kept)},
                    repoPath);
    for (const std::string& name : refNames) {
        const std::string value = resolve(git, repoPath, name);
        if (!value.empty())
            git.execute({"update-ref", keepRef(entry.id, std::to_string(entry.refs.size())), value}, repoPath);
        entry.refs.push_back({name, value, std::nullopt});
    }
    save(folder, entry);
    runThenSeal(operation, [&] {
        std::vector<std::string> recorded;
        for (const UndoFile& file : entry.files)
            recorded.push_back(file.path);
        const std::vector<std::string> after = contents(git, repoPath, recorded);
        bool changed = false;
        for (std::size_t i = 0; i < after.size(); ++i) {
            entry.files[i].after = after[i];
            changed = changed || after[i] != entry.files[i].before;
        }
        for (UndoRef& ref : entry.refs) {
            ref.after = resolve(git, repoPath, ref.name);
            changed = changed || *ref.after != ref.before;
        }
        if (!changed)
            return drop(git, repoPath, folder, entry);
        save(folder, entry);
        bound(git, repoPath, folder, limits);
    });
}

void journalDiscard(GitExecutorProtocol& git, const std::string& repoPath, const UndoLimits& limits,
                    const std::vector<std::string>& paths, const std::function<void()>& discard) {
    journal(git, repoPath, limits, UndoAction::discard, {}, paths, {}, discard);
}

std::vector<std::string> locallyChangedFiles(GitExecutorProtocol& git, const std::string& repoPath) {
    std::vector<std::string> paths;
    try {
        const std::string output = git.execute({"diff", "--name-only", "-z", "--no-renames", "HEAD"}, repoPath);
        for (std::size_t start = 0, end; (end = output.find('\0', start)) != std::string::npos; start = end + 1)
            paths.push_back(output.substr(start, end - start));
    } catch (const GitServiceError&) {
        // No commit yet: a reset has nothing to go back to either.
    }
    return paths;
}

void journalStashDrop(GitExecutorProtocol& git, const std::string& repoPath, const UndoLimits& limits,
                      long index, const std::function<void()>& dropStash) {
    const std::string commit = resolve(git, repoPath, "stash@{" + std::to_string(index) + "}");
    const auto messages = outputLines(git.execute({"stash", "list", "--format=%gs"}, repoPath));
    if (limits.entries == 0 || commit.empty() || index < 0 || static_cast<std::size_t>(index) >= messages.size())
        return dropStash();
    fs::path folder;
    UndoEntry entry = newEntry(git, repoPath, UndoAction::dropStash, messages[static_cast<std::size_t>(index)], folder);
    git.execute({"update-ref", keepRef(entry.id, "0"), commit}, repoPath);
    entry.refs.push_back({"refs/stash", commit, std::string()});
    save(folder, entry);
    try {
        dropStash();
    } catch (...) {
        drop(git, repoPath, folder, entry);
        throw;
    }
    bound(git, repoPath, folder, limits);
}

std::string checkedOutRef(GitExecutorProtocol& git, const std::string& repoPath) {
    try {
        return trimmed(git.execute({"symbolic-ref", "-q", "HEAD"}, repoPath));
    } catch (const GitServiceError&) {
        return "HEAD";
    }
}

std::vector<std::string> checkedOutRefs(GitExecutorProtocol& git, const std::string& repoPath) {
    return {checkedOutRef(git, repoPath)};
}

void undo(GitExecutorProtocol& git, const std::string& repoPath, const std::string& id) {
    const fs::path folder = journalFolder(git, repoPath);
    const std::vector<UndoEntry> all = readEntries(folder);
    const auto entry = std::find_if(all.begin(), all.end(), [&id](const UndoEntry& each) { return each.id == id; });
    if (entry == all.end())
        refuse("That undo entry is no longer kept.");
    checkFiles(git, repoPath, *entry);
    checkRefs(git, repoPath, *entry);
    // The branch goes back first, so that the work tree it brings is the one the kept bytes go over.
    restoreRefs(git, repoPath, *entry);
    restoreFiles(git, repoPath, *entry);
    drop(git, repoPath, folder, *entry);
}

} // namespace orvel::UndoJournal
