#include "support/SilentRemote.h"

#include "support/GitFixture.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace orvel::test {

SilentRemote::SilentRemote(const std::string& directory, const std::string& name)
    : script_(directory + "/silent-" + name + ".sh"), marker_(directory + "/silent-" + name + ".reached") {
    // The shell keeps its stdout, the connection to git, open while cat drains the requests.
    writeScript(script_, "#!/bin/sh\n: > '" + marker_ + "'\ncat > /dev/null\n");
}

void SilentRemote::addTo(const std::string& repo) const {
    git(repo, {"remote", "add", "origin", "ext::" + script_});
    git(repo, {"config", "protocol.ext.allow", "always"});
}

bool SilentRemote::reached() const {
    return std::filesystem::exists(marker_);
}

bool SilentRemote::running() const {
    for (const auto& process : std::filesystem::directory_iterator("/proc")) {
        // A process may end between the listing and the read, which then fails with ESRCH.
        try {
            std::ifstream commandLine(process.path() / "cmdline");
            const std::string text{std::istreambuf_iterator<char>(commandLine), {}};
            if (text.find(script_) != std::string::npos)
                return true;
        } catch (const std::ios_base::failure&) {
        }
    }
    return false;
}

} // namespace orvel::test
