#include "core/commands/UndoJournal.h"

#include "core/commands/UndoEntryFormat.h"
#include "core/parsers/StagedBlobParser.h"
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
#include <map>
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
constexpr std::string_view regularMode = "100644";
constexpr std::string_view linkMode = "120000";

std::vector<std::string> outputLines(const std::string& output) {
    std::vector<std::string> lines;
    std::istringstream in(output);
    for (std::string line; std::getline(in, line);)
        if (!line.empty())
            lines.push_back(line);
    return lines;
}

fs::path gitDirectory(GitExecutorProtocol& git, const std::string& repoPath) {
    return trimmed(git.execute({"rev-parse", "--absolute-git-dir"}, repoPath));
}

fs::path journalFolder(const fs::path& gitDir) {
    return gitDir / "orvel" / "undo";
}

fs::path journalFolder(GitExecutorProtocol& git, const std::string& repoPath) {
    return journalFolder(gitDirectory(git, repoPath));
}

// The note of a merge or rebase stopped in the middle: what began it, for the step that ends it.
fs::path stopNote(const fs::path& folder) {
    return folder / "stopped";
}

std::string fileText(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
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
        if (auto entry = parseUndoEntry(fileText(item.path()), id))
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

// A new entry of the journal in `folder`, with its id and time.
UndoEntry newEntry(const fs::path& folder, UndoAction action, std::string subject) {
    UndoEntry entry;
    entry.id = freshId(readEntries(folder));
    entry.action = action;
    entry.subject = std::move(subject);
    entry.time = std::chrono::duration_cast<std::chrono::seconds>(
                     std::chrono::system_clock::now().time_since_epoch())
                     .count();
    return entry;
}

// Runs git with `arguments` and then `paths`, so many at a time that each command line stays short;
// hands back the outputs one after the other. With no paths, git does not run.
std::string withPaths(GitExecutorProtocol& git, const std::string& repoPath, const Arguments& arguments,
                      const std::vector<std::string>& paths) {
    std::string output;
    for (std::size_t start = 0; start < paths.size(); start += pathsPerRun) {
        Arguments batch = arguments;
        const auto end = paths.begin() + static_cast<long>(std::min(paths.size(), start + pathsPerRun));
        batch.insert(batch.end(), paths.begin() + static_cast<long>(start), end);
        output += git.execute(batch, repoPath);
    }
    return output;
}

// The blobs of the files at `paths`, in their order; with `write`, also stored in the repository.
// The bytes are taken as they are on the disk, without git's filters.
std::vector<std::string> hashFiles(GitExecutorProtocol& git, const std::string& repoPath,
                                   const std::vector<std::string>& paths, bool write) {
    Arguments arguments{"hash-object"};
    if (write)
        arguments.push_back("-w");
    arguments.insert(arguments.end(), {"--no-filters", "--"});
    const std::vector<std::string> hashes = outputLines(withPaths(git, repoPath, arguments, paths));
    if (hashes.size() != paths.size())
        throw GitServiceError::parseFailed("hash-object", "one hash per file expected");
    return hashes;
}

struct FileState {
    enum class Kind { missing, file, link, other } kind = Kind::missing;
    UndoFileMode mode = UndoFileMode::regular;
    std::uint64_t size = 0;
};

FileState stateOf(const std::string& repoPath, const std::string& path) {
    struct stat info {};
    if (::lstat((fs::path(repoPath) / path).c_str(), &info) != 0)
        return {};
    const auto size = static_cast<std::uint64_t>(info.st_size);
    if (S_ISLNK(info.st_mode))
        return {FileState::Kind::link, UndoFileMode::link, size};
    if (!S_ISREG(info.st_mode))
        return {FileState::Kind::other};
    return {FileState::Kind::file, (info.st_mode & S_IXUSR) != 0 ? UndoFileMode::executable : UndoFileMode::regular,
            size};
}

// The blobs of the links at `paths`, in their order: each holds the link's target, as git keeps a
// link. hash-object reads the file a link points at, so each target is first written to a file
// of its own in the journal's private folder. With `write`, also stored in the repository.
std::vector<std::string> hashLinks(GitExecutorProtocol& git, const std::string& repoPath,
                                   const std::vector<std::string>& paths, bool write) {
    if (paths.empty())
        return {};
    const fs::path folder = privateFolder(journalFolder(git, repoPath)) / "links";
    fs::remove_all(folder);
    struct RemoveFolder {
        fs::path path;
        ~RemoveFolder() {
            std::error_code ignored;
            fs::remove_all(path, ignored);
        }
    } removeFolder{folder};
    fs::create_directory(folder);
    std::vector<std::string> targets;
    for (const std::string& path : paths) {
        targets.push_back((folder / std::to_string(targets.size())).string());
        writePrivateFileDurably(targets.back(), fs::read_symlink(fs::path(repoPath) / path).string());
    }
    return hashFiles(git, repoPath, targets, write);
}

// The blob of what each of `paths` holds, in their order: a file's bytes, a link's target; empty
// for nothing, `notAFile` for anything else. With `write`, the blobs are stored in the repository.
std::vector<std::string> contents(GitExecutorProtocol& git, const std::string& repoPath,
                                  const std::vector<std::string>& paths, bool write = false) {
    std::vector<std::string> result(paths.size());
    std::vector<std::string> files, links;
    std::vector<std::size_t> whereFiles, whereLinks;
    for (std::size_t i = 0; i < paths.size(); ++i) {
        switch (stateOf(repoPath, paths[i]).kind) {
        case FileState::Kind::other:
            result[i] = notAFile;
            break;
        case FileState::Kind::file:
            files.push_back(paths[i]);
            whereFiles.push_back(i);
            break;
        case FileState::Kind::link:
            links.push_back(paths[i]);
            whereLinks.push_back(i);
            break;
        case FileState::Kind::missing:
            break;
        }
    }
    const std::vector<std::string> fileHashes = hashFiles(git, repoPath, files, write);
    const std::vector<std::string> linkHashes = hashLinks(git, repoPath, links, write);
    for (std::size_t i = 0; i < whereFiles.size(); ++i)
        result[whereFiles[i]] = fileHashes[i];
    for (std::size_t i = 0; i < whereLinks.size(); ++i)
        result[whereLinks[i]] = linkHashes[i];
    return result;
}

// What the index holds for each of `paths`, in their order: its entry, or none when it has none.
// Unset for a path in conflict or holding a submodule, which the journal leaves as the action
// leaves it: the sides of a conflict would come back without the merge that made them, which the
// action may have ended, while the file's bytes, markers and all, are kept anyway; and a
// submodule's commit lives in a repository of its own.
std::vector<std::optional<UndoStaged>> stagedStates(GitExecutorProtocol& git, const std::string& repoPath,
                                                    const std::vector<std::string>& paths) {
    std::map<std::string, std::vector<GitOutputParser::IndexRecord>> found;
    const Arguments arguments{"--literal-pathspecs", "ls-files", "--stage", "-z", "--"};
    for (GitOutputParser::IndexRecord& record :
         GitOutputParser::parseIndexRecords(withPaths(git, repoPath, arguments, paths)))
        found[record.path].push_back(std::move(record));
    std::vector<std::optional<UndoStaged>> states;
    for (const std::string& path : paths) {
        const auto records = found.find(path);
        if (records == found.end())
            states.emplace_back(UndoStaged{});
        else if (const auto& only = records->second.front();
                 records->second.size() == 1 && only.stage == 0 && only.mode != "160000")
            states.emplace_back(UndoStaged{only.mode, only.blob});
        else
            states.emplace_back();
    }
    return states;
}

// The paths a discard of `paths` may change, each once: a folder stands for every file and link
// under it, but for what lies in a repository of its own, which no discard deletes.
std::vector<std::string> expandFolders(const std::string& repoPath, const std::vector<std::string>& paths) {
    std::vector<std::string> expanded;
    std::set<std::string> seen;
    const auto add = [&](const std::string& path) {
        if (seen.insert(path).second)
            expanded.push_back(path);
    };
    for (const std::string& path : paths) {
        const fs::path top = fs::path(repoPath) / path;
        std::error_code error;
        if (!fs::is_directory(fs::symlink_status(top, error))) {
            add(path);
            continue;
        }
        std::vector<std::string> found;
        for (auto item = fs::recursive_directory_iterator(top, error); !error && item != fs::end(item);
             item.increment(error)) {
            const auto status = item->symlink_status(error);
            if (fs::is_directory(status) && fs::exists(fs::symlink_status(item->path() / ".git", error)))
                item.disable_recursion_pending();
            else if (fs::is_regular_file(status) || fs::is_symlink(status))
                found.push_back((fs::path(path) / fs::relative(item->path(), top)).generic_string());
        }
        if (!fs::exists(fs::symlink_status(top / ".git", error))) {
            std::sort(found.begin(), found.end());
            std::for_each(found.begin(), found.end(), add);
        }
    }
    return expanded;
}

// Puts each path's staged state into the index `environment` names (the repository's own when it
// names none).
void putInIndex(GitExecutorProtocol& git, const std::string& repoPath,
                const GitExecutorProtocol::Environment& environment,
                const std::vector<std::pair<std::string, UndoStaged>>& entries) {
    for (std::size_t start = 0; start < entries.size(); start += pathsPerRun) {
        Arguments arguments{"update-index", "--add"};
        for (std::size_t i = start; i < std::min(entries.size(), start + pathsPerRun); ++i) {
            const auto& [path, staged] = entries[i];
            arguments.insert(arguments.end(), {"--cacheinfo", staged.mode + "," + staged.blob + "," + path});
        }
        git.executeWithEnvironment(arguments, repoPath, environment);
    }
}

// The name of a kept blob in the tree of an entry: its hash, with ".link" for a link's target.
std::string keptName(const std::string& blob, UndoFileMode mode) {
    return mode == UndoFileMode::link ? blob + ".link" : blob;
}

// A tree naming each kept blob by keptName, a link's target as a link, written through an index
// of the journal's own, so that one ref keeps all of them.
std::string treeOf(GitExecutorProtocol& git, const std::string& repoPath, const fs::path& folder,
                   const std::string& id, const std::set<std::pair<std::string, UndoFileMode>>& blobs) {
    const std::string index = (privateFolder(folder) / (id + ".index")).string();
    const GitExecutorProtocol::Environment environment{{"GIT_INDEX_FILE", index}};
    struct RemoveIndex {
        std::string path;
        ~RemoveIndex() {
            std::error_code ignored;
            fs::remove(path, ignored);
        }
    } removeIndex{index};
    std::vector<std::pair<std::string, UndoStaged>> entries;
    for (const auto& [blob, mode] : blobs)
        entries.push_back({keptName(blob, mode),
                           {std::string(mode == UndoFileMode::link ? linkMode : regularMode), blob}});
    putInIndex(git, repoPath, environment, entries);
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

// The index entries the action changed, which an undo puts back.
std::vector<UndoIndexEntry> restagings(const UndoEntry& entry) {
    std::vector<UndoIndexEntry> changed;
    std::copy_if(entry.index.begin(), entry.index.end(), std::back_inserter(changed),
                 [](const UndoIndexEntry& each) { return each.after && *each.after != each.before; });
    return changed;
}

void checkIndex(GitExecutorProtocol& git, const std::string& repoPath, const UndoEntry& entry) {
    const std::vector<UndoIndexEntry> changed = restagings(entry);
    std::vector<std::string> paths;
    for (const UndoIndexEntry& each : changed)
        paths.push_back(each.path);
    const std::vector<std::optional<UndoStaged>> now = stagedStates(git, repoPath, paths);
    for (std::size_t i = 0; i < changed.size(); ++i)
        if (now[i] != changed[i].after)
            refuse("\"" + paths[i] + "\" was staged or unstaged after the discard; undoing would " +
                   "overwrite what is staged now.");
}

void restoreIndex(GitExecutorProtocol& git, const std::string& repoPath, const UndoEntry& entry) {
    std::vector<std::pair<std::string, UndoStaged>> put;
    std::vector<std::string> removed;
    for (const UndoIndexEntry& each : restagings(entry)) {
        if (each.before.blob.empty())
            removed.push_back(each.path);
        else
            put.emplace_back(each.path, each.before);
    }
    withPaths(git, repoPath, {"update-index", "--force-remove", "--"}, removed);
    putInIndex(git, repoPath, {}, put);
}

// Puts `staged`, a new file or link beside the work tree's files, in the place of `target` at once.
void moveInPlace(const fs::path& staged, const fs::path& target) {
    try {
        fs::create_directories(target.parent_path());
        fs::rename(staged, target);
    } catch (...) {
        std::error_code ignored;
        fs::remove(staged, ignored);
        throw;
    }
}

void restoreFiles(GitExecutorProtocol& git, const std::string& repoPath, const UndoEntry& entry) {
    for (std::size_t i = 0; i < entry.files.size(); ++i) {
        const UndoFile& file = entry.files[i];
        const fs::path target = fs::path(repoPath) / file.path;
        if (file.before.empty()) {
            fs::remove(target);
        } else if (file.mode == UndoFileMode::link) {
            const fs::path staged = fs::path(repoPath) / (".orvel-undo-" + entry.id + "-" + std::to_string(i));
            fs::create_symlink(git.execute({"cat-file", "blob", file.before}, repoPath), staged);
            moveInPlace(staged, target);
        } else {
            // git writes the blob's bytes as they are to a new file in the work tree's top folder,
            // on the same file system as the target, so the rename replaces it at once.
            const fs::path staged =
                fs::path(repoPath) / trimmed(git.execute({"unpack-file", file.before}, repoPath));
            fs::permissions(staged, file.mode == UndoFileMode::executable ? fs::perms(0755) : fs::perms(0644),
                            fs::perm_options::replace);
            moveInPlace(staged, target);
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
        case UndoAction::pull:
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

bool stops(UndoAction action) {
    return action == UndoAction::merge || action == UndoAction::rebase || action == UndoAction::pull;
}

// The merge or rebase stopped in the middle, if any, as an entry of the one ref the step that
// ends it moves, with its value from before it began: git keeps a rebased branch where it was
// until the end and names it in the rebase's state, and a merge ends in a commit on HEAD.
std::optional<UndoEntry> stoppedOperation(GitExecutorProtocol& git, const std::string& repoPath,
                                          const fs::path& gitDir) {
    UndoEntry stopped;
    for (const char* state : {"rebase-merge", "rebase-apply"}) {
        const std::string head = trimmed(fileText(gitDir / state / "head-name"));
        const std::string before = trimmed(fileText(gitDir / state / "orig-head"));
        if (head.empty() || before.empty())
            continue;
        stopped.action = UndoAction::rebase;
        stopped.refs.push_back({head.starts_with("refs/") ? head : "HEAD", before, std::nullopt});
        return stopped;
    }
    if (!fs::exists(gitDir / "MERGE_HEAD"))
        return std::nullopt;
    stopped.action = UndoAction::merge;
    stopped.refs.push_back({checkedOutRef(git, repoPath), resolve(git, repoPath, "HEAD"), std::nullopt});
    return stopped;
}

// Notes in `entry` what the index holds for `paths`, and adds the staged blobs to `kept`, the blobs
// the entry's tree keeps. Gives back the names (keptName) of those that add to the entry's size:
// the blobs neither kept as files already nor staged as HEAD has them, which its history keeps.
std::set<std::string> keepStaged(GitExecutorProtocol& git, const std::string& repoPath,
                                 const std::vector<std::string>& paths, UndoEntry& entry,
                                 std::set<std::pair<std::string, UndoFileMode>>& kept) {
    const std::vector<std::optional<UndoStaged>> staged = stagedStates(git, repoPath, paths);
    std::map<std::string, std::string> added; // path → the name of a blob new to `kept`
    for (std::size_t i = 0; i < staged.size(); ++i) {
        if (!staged[i])
            continue;
        entry.index.push_back({paths[i], *staged[i], std::nullopt});
        const UndoFileMode mode = staged[i]->mode == linkMode ? UndoFileMode::link : UndoFileMode::regular;
        if (!staged[i]->blob.empty() && kept.emplace(staged[i]->blob, mode).second)
            added.emplace(paths[i], keptName(staged[i]->blob, mode));
    }
    std::vector<std::string> addedPaths;
    for (const auto& [path, name] : added)
        addedPaths.push_back(path);
    std::set<std::string> counted;
    const Arguments stagedChanges{"--literal-pathspecs", "diff", "--cached", "--name-only",
                                  "-z", "--no-renames", "--"};
    const std::string changed = withPaths(git, repoPath, stagedChanges, addedPaths);
    for (const std::string_view path : splitFields(changed, '\0'))
        if (const auto found = added.find(std::string(path)); found != added.end())
            counted.insert(found->second);
    return counted;
}

// Keeps the bytes of `paths` and the refs at their values in `refs`, runs `operation`, then notes
// what it left, as journal says.
void journalRefs(GitExecutorProtocol& git, const std::string& repoPath, const UndoLimits& limits,
                 UndoAction action, const std::string& subject, const std::vector<std::string>& paths,
                 std::vector<UndoRef> refs, const std::function<void()>& operation) {
    std::vector<UndoFile> files;
    std::uint64_t bytes = 0;
    for (const std::string& path : expandFolders(repoPath, paths)) {
        const FileState state = stateOf(repoPath, path);
        if (state.kind == FileState::Kind::other)
            continue;
        files.push_back({path, {}, state.mode, std::nullopt});
        bytes += state.size;
    }
    if (files.empty() && refs.empty())
        return operation();
    const fs::path gitDir = gitDirectory(git, repoPath);
    const fs::path folder = journalFolder(gitDir);
    UndoEntry entry = newEntry(folder, action, subject);
    entry.bytes = bytes;
    std::vector<std::string> recorded;
    for (const UndoFile& file : files)
        recorded.push_back(file.path);
    const std::vector<std::string> blobs = contents(git, repoPath, recorded, true);
    std::set<std::pair<std::string, UndoFileMode>> kept;
    for (std::size_t i = 0; i < files.size(); ++i) {
        files[i].before = blobs[i];
        if (!blobs[i].empty() && blobs[i] != notAFile)
            kept.emplace(blobs[i], files[i].mode);
    }
    entry.files = std::move(files);
    const std::set<std::string> counted = keepStaged(git, repoPath, recorded, entry, kept);
    if (!kept.empty()) {
        const std::string tree = treeOf(git, repoPath, folder, entry.id, kept);
        git.execute({"update-ref", keepRef(entry.id, "files"), tree}, repoPath);
        if (!counted.empty())
            for (const auto& [name, size] :
                 GitOutputParser::parseTreeBlobSizes(git.execute({"ls-tree", "-l", "-z", tree}, repoPath)))
                entry.bytes += counted.contains(name) ? size : 0;
    }
    for (std::size_t i = 0; i < refs.size(); ++i)
        if (!refs[i].before.empty())
            git.execute({"update-ref", keepRef(entry.id, std::to_string(i)), refs[i].before}, repoPath);
    entry.refs = std::move(refs);
    save(folder, entry);
    runThenSeal(operation, [&] {
        // Stopped in the middle: what it left is no state to go back from; the note tells the
        // step that ends it what began it.
        if (stops(action) && stoppedOperation(git, repoPath, gitDir)) {
            drop(git, repoPath, folder, entry);
            UndoEntry note = entry;
            note.files.clear();
            writePrivateFileDurably(stopNote(folder).string(), formatUndoEntry(note));
            return;
        }
        std::error_code ignored;
        if (stops(action))
            fs::remove(stopNote(folder), ignored);
        const std::vector<std::string> after = contents(git, repoPath, recorded);
        bool changed = false;
        for (std::size_t i = 0; i < after.size(); ++i) {
            entry.files[i].after = after[i];
            changed = changed || after[i] != entry.files[i].before;
        }
        std::vector<std::string> indexPaths;
        for (const UndoIndexEntry& each : entry.index)
            indexPaths.push_back(each.path);
        const std::vector<std::optional<UndoStaged>> stagedAfter = stagedStates(git, repoPath, indexPaths);
        for (std::size_t i = 0; i < stagedAfter.size(); ++i) {
            // A path the action left in conflict is left so by an undo too.
            entry.index[i].after = stagedAfter[i];
            changed = changed || (stagedAfter[i] && *stagedAfter[i] != entry.index[i].before);
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

} // namespace

std::vector<UndoEntry> entries(GitExecutorProtocol& git, const std::string& repoPath) {
    return readEntries(journalFolder(git, repoPath));
}

void journal(GitExecutorProtocol& git, const std::string& repoPath, const UndoLimits& limits, UndoAction action,
             const std::string& subject, const std::vector<std::string>& paths,
             const std::vector<std::string>& refNames, const std::function<void()>& operation) {
    if (limits.entries == 0 || (paths.empty() && refNames.empty()))
        return operation();
    std::vector<UndoRef> refs;
    for (const std::string& name : refNames)
        refs.push_back({name, resolve(git, repoPath, name), std::nullopt});
    journalRefs(git, repoPath, limits, action, subject, paths, std::move(refs), operation);
}

void journalResumed(GitExecutorProtocol& git, const std::string& repoPath, const UndoLimits& limits,
                    const std::function<void()>& operation) {
    if (limits.entries == 0)
        return operation();
    const fs::path gitDir = gitDirectory(git, repoPath);
    std::optional<UndoEntry> stopped = stoppedOperation(git, repoPath, gitDir);
    if (!stopped)
        return operation();
    // The note names the action only while it is about the same ref and value: a merge or rebase
    // begun elsewhere leaves none, or an older one.
    const auto note = parseUndoEntry(fileText(stopNote(journalFolder(gitDir))), "0");
    if (note && note->refs == stopped->refs) {
        stopped->action = note->action;
        stopped->subject = note->subject;
    }
    journalRefs(git, repoPath, limits, stopped->action, stopped->subject, {}, std::move(stopped->refs), operation);
}

void journalDiscard(GitExecutorProtocol& git, const std::string& repoPath, const UndoLimits& limits,
                    const std::vector<std::string>& paths, const std::function<void()>& discard) {
    journal(git, repoPath, limits, UndoAction::discard, {}, paths, {}, discard);
}

std::vector<std::string> locallyChangedFiles(GitExecutorProtocol& git, const std::string& repoPath) {
    std::vector<std::string> paths;
    std::set<std::string> seen;
    try {
        // The work tree against HEAD, then the index: a staged change undone in the work tree
        // shows in the second only.
        for (const bool staged : {false, true}) {
            Arguments arguments{"diff", "--name-only", "-z", "--no-renames", "HEAD"};
            if (staged)
                arguments.insert(arguments.begin() + 1, "--cached");
            const std::string output = git.execute(arguments, repoPath);
            for (const std::string_view path : splitFields(output, '\0'))
                if (!path.empty() && seen.emplace(path).second)
                    paths.emplace_back(path);
        }
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
    const fs::path folder = journalFolder(git, repoPath);
    UndoEntry entry = newEntry(folder, UndoAction::dropStash, messages[static_cast<std::size_t>(index)]);
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
    checkIndex(git, repoPath, *entry);
    checkRefs(git, repoPath, *entry);
    // The branch goes back first, so that the work tree and index it brings are the ones the kept
    // bytes and staged entries go over.
    restoreRefs(git, repoPath, *entry);
    restoreFiles(git, repoPath, *entry);
    restoreIndex(git, repoPath, *entry);
    drop(git, repoPath, folder, *entry);
}

} // namespace orvel::UndoJournal
