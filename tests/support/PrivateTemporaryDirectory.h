// A test whose process gets a private, empty temporary directory (TMPDIR), so that a temporary file
// the code under test leaves behind shows: the test fails when the directory is not empty at its end.
#pragma once

#include "support/GitFixture.h"
#include "support/ScopedEnvironment.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <set>
#include <string>

namespace orvel::test {

class PrivateTemporaryDirectoryTest : public ::testing::Test {
  protected:
    // Members of a derived fixture are made before TMPDIR moves, so its repositories lie elsewhere.
    void SetUp() override { tmpdir.emplace("TMPDIR", tmp.path()); }
    void TearDown() override {
        EXPECT_TRUE(tmpIsEmpty()) << "a temporary file was left behind";
        tmpdir.reset();
    }

    bool tmpIsEmpty() const { return std::filesystem::is_empty(tmp.path()); }
    std::set<std::string> temporaryFiles() const {
        std::set<std::string> names;
        for (const auto& file : std::filesystem::directory_iterator(tmp.path()))
            names.insert(file.path().filename().string());
        return names;
    }

    TempDir work; // for repositories and other files of the test
    TempDir tmp;
    std::optional<ScopedEnvironment> tmpdir;
};

} // namespace orvel::test
