// The sidebar lists tags newest version first, across the naming schemes a long-lived repository
// gathers: the tags git lists by name come back in version order.
#include "sidebar/TagVersionOrder.h"
#include "sidebar/SidebarOnRealGit.h"
#include "support/Await.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace orvel;

namespace {

// Newest first; names of the same version in two schemes by name, names without a number last.
const std::vector<std::string> newestFirst = {
    "release-2024-01-15",
    "REL_16_0",
    "REL9_6_0",
    "v2.40.0.windows.1",
    "2.40.0",
    "v2.40.0",
    "v2.40.0-rc2",
    "v2.40.0-rc1",
    "v2.10",
    "v2.9",
    "v2.0",
    "v2.0-beta",
    "v2.0-alpha",
    "1.10",
    "v1.10",
    "v1.9",
    "v1.0",
    "v1.0b2",
    "v1.0a1",
    "gitgui-0.10.0",
    "gitgui-0.9.3",
    "latest",
    "stable",
};

std::vector<std::string> names(const std::vector<TagEntry>& tags) {
    std::vector<std::string> result;
    for (const TagEntry& tag : tags)
        result.push_back(tag.name);
    return result;
}

} // namespace

TEST(TagVersionOrder, NewestVersionFirstAcrossNamingSchemes) {
    std::vector<TagEntry> tags;
    for (const std::string& name : newestFirst)
        tags.push_back({name, "hash", std::nullopt});
    std::ranges::shuffle(tags, std::mt19937(7));
    sortNewestFirst(tags);
    EXPECT_EQ(names(tags), newestFirst);

    // A strict weak order: never before itself, and before a later name only.
    for (std::size_t i = 0; i < newestFirst.size(); ++i)
        for (std::size_t j = 0; j < newestFirst.size(); ++j)
            EXPECT_EQ(listsBefore(newestFirst[i], newestFirst[j]), i < j)
                << newestFirst[i] << " " << newestFirst[j];
}

class SidebarTags : public ::testing::Test, public test::SidebarOnRealGit {};

TEST_F(SidebarTags, TheSidebarListsGitsTagsNewestVersionFirst) {
    for (const std::string& name : newestFirst)
        repo.git({"tag", name});
    test::await(sidebar.loadBranches(entry));
    EXPECT_EQ(names(sidebar.localTags()), newestFirst);
    // A tag created later takes its place among the others.
    test::await(sidebar.createTag("v2.11", std::nullopt, ""));
    ASSERT_GE(sidebar.localTags().size(), 10u);
    EXPECT_EQ(sidebar.localTags()[8].name, "v2.11");
}
