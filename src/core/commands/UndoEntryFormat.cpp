#include "core/commands/UndoEntryFormat.h"

#include <array>
#include <charconv>
#include <utility>

namespace orvel {

namespace {

constexpr std::string_view magic = "orvel-undo 2";
// Entries written before the index was kept: the same fields without the index part.
constexpr std::string_view magicWithoutIndex = "orvel-undo 1";
// Stands for a value the entry does not know yet.
constexpr std::string_view unknown = "?";

constexpr std::array<std::pair<UndoAction, const char*>, 10> actionNames{{
    {UndoAction::discard, "discard"},
    {UndoAction::hardReset, "hard-reset"},
    {UndoAction::deleteBranch, "delete-branch"},
    {UndoAction::deleteRemoteBranch, "delete-remote-branch"},
    {UndoAction::dropStash, "drop-stash"},
    {UndoAction::rebase, "rebase"},
    {UndoAction::merge, "merge"},
    {UndoAction::amend, "amend"},
    {UndoAction::forcePush, "force-push"},
    {UndoAction::pull, "pull"},
}};

constexpr std::array<std::pair<UndoFileMode, std::string_view>, 3> modeNames{{
    {UndoFileMode::regular, "-"},
    {UndoFileMode::executable, "x"},
    {UndoFileMode::link, "l"},
}};

void put(std::string& out, std::string_view field) {
    out.append(field);
    out.push_back('\0');
}

void putOptional(std::string& out, const std::optional<std::string>& field) {
    put(out, field ? std::string_view(*field) : unknown);
}

// Hands out the NUL-ended fields one by one; fails once the bytes run out.
class Fields {
  public:
    explicit Fields(std::string_view bytes) : rest_(bytes) {}

    std::optional<std::string_view> next() {
        const auto end = rest_.find('\0');
        if (end == std::string_view::npos)
            return std::nullopt;
        const std::string_view field = rest_.substr(0, end);
        rest_.remove_prefix(end + 1);
        return field;
    }
    template <typename Number>
    std::optional<Number> number() {
        const auto field = next();
        Number value{};
        if (!field || field->empty())
            return std::nullopt;
        const auto [end, error] = std::from_chars(field->data(), field->data() + field->size(), value);
        if (error != std::errc() || end != field->data() + field->size())
            return std::nullopt;
        return value;
    }
    std::optional<std::optional<std::string>> optional() {
        const auto field = next();
        if (!field)
            return std::nullopt;
        if (*field == unknown)
            return std::optional<std::string>();
        return std::optional<std::string>(std::string(*field));
    }
    bool atEnd() const { return rest_.empty(); }

  private:
    std::string_view rest_;
};

// A staged state as one field: the mode and the blob with a blank between, empty for none.
std::string stagedField(const UndoStaged& staged) {
    return staged.blob.empty() ? std::string() : staged.mode + " " + staged.blob;
}

std::optional<UndoStaged> stagedNamed(std::string_view field) {
    if (field.empty())
        return UndoStaged{};
    const auto blank = field.find(' ');
    if (blank == 0 || blank == std::string_view::npos || blank + 1 == field.size() ||
        field.find(' ', blank + 1) != std::string_view::npos)
        return std::nullopt;
    return UndoStaged{std::string(field.substr(0, blank)), std::string(field.substr(blank + 1))};
}

std::optional<UndoAction> actionNamed(std::string_view name) {
    for (const auto& [action, text] : actionNames)
        if (name == text)
            return action;
    return std::nullopt;
}

std::optional<UndoFileMode> modeNamed(std::optional<std::string_view> name) {
    for (const auto& [mode, text] : modeNames)
        if (name == text)
            return mode;
    return std::nullopt;
}

std::string_view modeName(UndoFileMode mode) {
    for (const auto& [candidate, text] : modeNames)
        if (candidate == mode)
            return text;
    return "-";
}

} // namespace

const char* undoActionName(UndoAction action) {
    for (const auto& [candidate, text] : actionNames)
        if (candidate == action)
            return text;
    return "discard";
}

std::string formatUndoEntry(const UndoEntry& entry) {
    std::string out;
    put(out, magic);
    put(out, undoActionName(entry.action));
    put(out, entry.subject);
    put(out, std::to_string(entry.time));
    put(out, std::to_string(entry.bytes));
    put(out, std::to_string(entry.files.size()));
    for (const UndoFile& file : entry.files) {
        put(out, file.path);
        put(out, file.before);
        put(out, modeName(file.mode));
        putOptional(out, file.after);
    }
    put(out, std::to_string(entry.refs.size()));
    for (const UndoRef& ref : entry.refs) {
        put(out, ref.name);
        put(out, ref.before);
        putOptional(out, ref.after);
    }
    put(out, std::to_string(entry.index.size()));
    for (const UndoIndexEntry& staged : entry.index) {
        put(out, staged.path);
        put(out, stagedField(staged.before));
        putOptional(out, staged.after ? std::optional(stagedField(*staged.after)) : std::nullopt);
    }
    return out;
}

std::optional<UndoEntry> parseUndoEntry(std::string_view bytes, std::string id) {
    Fields fields(bytes);
    UndoEntry entry;
    entry.id = std::move(id);
    const auto version = fields.next();
    if (version != magic && version != magicWithoutIndex)
        return std::nullopt;
    const auto action = fields.next();
    const auto subject = fields.next();
    if (!action || !subject || !actionNamed(*action))
        return std::nullopt;
    entry.action = *actionNamed(*action);
    entry.subject = std::string(*subject);
    const auto time = fields.number<std::int64_t>();
    const auto size = fields.number<std::uint64_t>();
    const auto fileCount = fields.number<std::size_t>();
    if (!time || !size || !fileCount)
        return std::nullopt;
    entry.time = *time;
    entry.bytes = *size;
    // Each file takes at least four bytes, so a count larger than that is a lie, not a reservation.
    if (*fileCount > bytes.size() / 4)
        return std::nullopt;
    for (std::size_t i = 0; i < *fileCount; ++i) {
        const auto path = fields.next();
        const auto before = fields.next();
        const auto mode = fields.next();
        const auto after = fields.optional();
        if (!path || !before || !after || !modeNamed(mode))
            return std::nullopt;
        entry.files.push_back({std::string(*path), std::string(*before), *modeNamed(mode), *after});
    }
    const auto refCount = fields.number<std::size_t>();
    if (!refCount || *refCount > bytes.size() / 3)
        return std::nullopt;
    for (std::size_t i = 0; i < *refCount; ++i) {
        const auto name = fields.next();
        const auto before = fields.next();
        const auto after = fields.optional();
        if (!name || !before || !after)
            return std::nullopt;
        entry.refs.push_back({std::string(*name), std::string(*before), *after});
    }
    const auto indexCount = version == magic ? fields.number<std::size_t>() : std::optional<std::size_t>(0);
    if (!indexCount || *indexCount > bytes.size() / 3)
        return std::nullopt;
    for (std::size_t i = 0; i < *indexCount; ++i) {
        const auto path = fields.next();
        const auto before = fields.next();
        const auto after = fields.optional();
        if (!path || !before || !after)
            return std::nullopt;
        const auto stagedBefore = stagedNamed(*before);
        const auto stagedAfter = *after ? stagedNamed(**after) : std::optional<UndoStaged>();
        if (!stagedBefore || (*after && !stagedAfter))
            return std::nullopt;
        entry.index.push_back({std::string(*path), *stagedBefore, stagedAfter});
    }
    if (!fields.atEnd())
        return std::nullopt;
    return entry;
}

} // namespace orvel
