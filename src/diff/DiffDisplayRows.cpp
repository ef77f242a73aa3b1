#include "diff/DiffDisplayRows.h"

#include "diff/SplitRows.h"

#include <algorithm>

namespace orvel {

namespace {

RowTone toneOf(DiffLineType type) {
    switch (type) {
    case DiffLineType::addition:
        return RowTone::addition;
    case DiffLineType::deletion:
        return RowTone::deletion;
    case DiffLineType::noNewlineAtEnd:
        return RowTone::noNewline;
    case DiffLineType::context:
        break;
    }
    return RowTone::context;
}

RowTone toneOf(SplitCellType type) {
    switch (type) {
    case SplitCellType::addition:
        return RowTone::addition;
    case SplitCellType::deletion:
        return RowTone::deletion;
    case SplitCellType::empty:
        return RowTone::empty;
    case SplitCellType::context:
        break;
    }
    return RowTone::context;
}

DiffDisplayRow headerRow(const DiffHunk& hunk, int index) {
    DiffDisplayRow row;
    row.isHunkHeader = true;
    row.hunk = index;
    row.left = TextSlice(hunkHeaderText(hunk));
    return row;
}

// Slices of `text`, one a line.
template <typename Visit>
void forEachLine(const std::shared_ptr<const std::string>& text, Visit visit) {
    const std::string& bytes = *text;
    std::size_t start = 0;
    while (start < bytes.size()) {
        auto end = bytes.find('\n', start);
        if (end == std::string::npos)
            end = bytes.size();
        visit(TextSlice(text, start, end - start));
        start = end + 1;
    }
}

} // namespace

std::string hunkHeaderText(const DiffHunk& hunk) {
    std::string text = "@@ -" + std::to_string(hunk.oldStart) + "," + std::to_string(hunk.oldCount) + " +" +
                       std::to_string(hunk.newStart) + "," + std::to_string(hunk.newCount) + " @@";
    if (hunk.sectionHeader)
        text += " " + *hunk.sectionHeader;
    return text;
}

std::string shownHunk(const std::vector<DiffDisplayRow>& rows, int hunk) {
    if (hunk < 0)
        return {};
    // The rows stand in the order of their hunks.
    auto row = std::partition_point(rows.begin(), rows.end(),
                                    [hunk](const DiffDisplayRow& each) { return each.hunk < hunk; });
    std::string shown;
    for (; row != rows.end() && row->hunk == hunk; ++row) {
        shown += char('0' + int(row->leftTone));
        shown += row->left.view();
        shown += '\0';
        shown += char('0' + int(row->rightTone));
        shown += row->right.view();
        shown += '\n';
    }
    return shown;
}

bool showsChange(const DiffDisplayRow& row, bool right) {
    const RowTone tone = right ? row.rightTone : row.leftTone;
    return !row.isHunkHeader && row.hunk >= 0 && (right ? row.rightLine : row.leftLine) >= 0 &&
           (tone == RowTone::addition || tone == RowTone::deletion);
}

std::vector<ChosenLines> chosenLines(const std::vector<DiffDisplayRow>& rows, int first, int last,
                                     bool right) {
    if (first > last)
        std::swap(first, last);
    first = std::max(first, 0);
    last = std::min(last, int(rows.size()) - 1);
    std::vector<ChosenLines> chosen;
    for (int index = first; index <= last; ++index) {
        const DiffDisplayRow& row = rows[std::size_t(index)];
        if (!showsChange(row, right))
            continue;
        if (chosen.empty() || chosen.back().hunk != row.hunk)
            chosen.push_back({row.hunk, shownHunk(rows, row.hunk), {}});
        chosen.back().lines.push_back(right ? row.rightLine : row.leftLine);
    }
    return chosen;
}

std::vector<DiffDisplayRow> unifiedRows(const FileDiff& file) {
    std::vector<DiffDisplayRow> rows;
    for (std::size_t h = 0; h < file.hunks.size(); ++h) {
        const DiffHunk& hunk = file.hunks[h];
        rows.reserve(rows.size() + hunk.lines.size() + 1);
        rows.push_back(headerRow(hunk, int(h)));
        for (std::size_t l = 0; l < hunk.lines.size(); ++l) {
            const DiffLine& line = hunk.lines[l];
            DiffDisplayRow row;
            row.hunk = int(h);
            row.leftLine = int(l);
            row.leftNumber = line.oldLineNumber;
            row.rightNumber = line.newLineNumber;
            row.left = line.content;
            row.leftTone = toneOf(line.type);
            rows.push_back(std::move(row));
        }
    }
    return rows;
}

std::vector<DiffDisplayRow> sideBySideRows(const FileDiff& file) {
    std::vector<DiffDisplayRow> rows;
    for (std::size_t h = 0; h < file.hunks.size(); ++h) {
        rows.push_back(headerRow(file.hunks[h], int(h)));
        for (SplitDiffRow& split : splitRows(file.hunks[h])) {
            DiffDisplayRow row;
            row.hunk = int(h);
            row.leftNumber = split.leftLineNumber;
            row.left = std::move(split.leftContent);
            row.leftTone = toneOf(split.leftType);
            row.rightNumber = split.rightLineNumber;
            row.right = std::move(split.rightContent);
            row.rightTone = toneOf(split.rightType);
            row.leftLine = split.leftLine;
            row.rightLine = split.rightLine;
            rows.push_back(std::move(row));
        }
    }
    return rows;
}

std::vector<DiffDisplayRow> fileRows(const std::shared_ptr<const std::string>& text) {
    std::vector<DiffDisplayRow> rows;
    forEachLine(text, [&](TextSlice line) {
        DiffDisplayRow row;
        row.rightNumber = int(rows.size()) + 1;
        row.left = std::move(line);
        rows.push_back(std::move(row));
    });
    return rows;
}

std::vector<DiffDisplayRow> conflictRows(const std::shared_ptr<const std::string>& text) {
    enum class Section : char { outside, ours, base, theirs };
    std::vector<DiffDisplayRow> rows;
    Section section = Section::outside;
    int conflict = -1;
    int number = 0;
    forEachLine(text, [&](TextSlice line) {
        const std::string_view view = line.view();
        DiffDisplayRow row;
        row.rightNumber = ++number;
        if (view.starts_with("<<<<<<<")) {
            section = Section::ours;
            row.isHunkHeader = true;
            ++conflict;
        } else if (section != Section::outside && view.starts_with("|||||||")) {
            section = Section::base;
            row.leftTone = RowTone::noNewline;
        } else if (section != Section::outside && view.starts_with("=======")) {
            section = Section::theirs;
            row.leftTone = RowTone::noNewline;
        } else if (section != Section::outside && view.starts_with(">>>>>>>")) {
            section = Section::outside;
            row.leftTone = RowTone::noNewline;
        } else {
            row.leftTone = section == Section::ours     ? RowTone::deletion
                           : section == Section::theirs ? RowTone::addition
                                                        : RowTone::context;
        }
        row.hunk = conflict;
        row.left = std::move(line);
        rows.push_back(std::move(row));
    });
    return rows;
}

FileDiff untrackedFileDiff(const std::string& path, const std::shared_ptr<const std::string>& text) {
    FileDiff file;
    file.newPath = path;
    file.status = DiffStatus::added;
    DiffHunk hunk;
    hunk.newStart = 1;
    forEachLine(text, [&](TextSlice line) {
        DiffLine added;
        added.type = DiffLineType::addition;
        added.content = std::move(line);
        added.newLineNumber = ++hunk.newCount;
        hunk.lines.push_back(std::move(added));
    });
    file.additions = hunk.newCount;
    if (!hunk.lines.empty())
        file.hunks.push_back(std::move(hunk));
    return file;
}

} // namespace orvel
