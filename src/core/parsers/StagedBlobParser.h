// Reads what git lists of the staged blobs the undo journal keeps: the index entries of paths,
// `ls-files -s -z` ("<mode> <blob> <stage>\t<path>"), and the sizes of the blobs in a tree,
// `ls-tree -l -z` ("<mode> <type> <object> <size>\t<name>", the size padded with blanks).
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace orvel::GitOutputParser {

struct IndexRecord {
    std::string mode; // in octal, as git writes it
    std::string blob;
    int stage = 0; // 0 when merged; 1 to 3 for the sides of a conflict
    std::string path;

    bool operator==(const IndexRecord&) const = default;
};

// A record of another shape is dropped.
std::vector<IndexRecord> parseIndexRecords(std::string_view text);

// The size of each blob of the tree by its name; a record of another shape, or no blob, is dropped.
std::map<std::string, std::uint64_t> parseTreeBlobSizes(std::string_view text);

} // namespace orvel::GitOutputParser
