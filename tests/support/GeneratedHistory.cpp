#include "support/GeneratedHistory.h"

#include "core/process/ChildProcess.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <fstream>
#include <optional>

namespace orvel::test {

void importHistory(const TempRepo& repo, const GeneratedHistoryShape& shape) {
    constexpr int lineCount = 4;
    const std::string streamPath = repo / ".git/history-import";
    {
        std::ofstream out(streamPath, std::ios::binary);
        std::array<std::optional<int>, lineCount> tips;
        std::optional<int> mainTip;
        std::uint32_t random = 12345;
        const auto next = [&random] {
            random = random * 1103515245u + 12345u;
            return (random >> 16) & 0x7fff;
        };
        int rootsLeft = shape.roots;
        for (int n = 0; n < shape.commits; ++n) {
            // Roots first open lines; once every root is spent, a commit lands on a line that has one.
            int line = static_cast<int>(next() % lineCount);
            if (rootsLeft > 0 && (n == 0 || next() % 40 == 0)) {
                line = shape.roots - rootsLeft;
                --rootsLeft;
                tips[static_cast<std::size_t>(line)].reset();
            } else {
                while (!tips[static_cast<std::size_t>(line)])
                    line = (line + 1) % lineCount;
            }
            std::string message = "commit " + std::to_string(n) + " of the history";
            if (shape.longSubjects)
                message += ": rework the way the scheduler hands queued operations to its workers, and "
                           "keep their order per repository\n\nA body line that the graph does not show.";
            const long date = 1767268800L + 60L * n;
            out << "commit refs/heads/" << (line == 0 ? "later" : "line" + std::to_string(line)) << "\n"
                << "mark :" << n + 1 << "\n"
                << "author Orvel Test <test@orvel.invalid> " << date << " +0000\n"
                << "committer Orvel Test <test@orvel.invalid> " << date << " +0000\n"
                << "data " << message.size() << "\n"
                << message << "\n";
            auto& tip = tips[static_cast<std::size_t>(line)];
            if (tip)
                out << "from :" << *tip + 1 << "\n";
            // About one commit in four merges the tip of another line.
            if (tip && next() % 4 == 0) {
                const int other = static_cast<int>(next() % lineCount);
                const auto& otherTip = tips[static_cast<std::size_t>(other)];
                if (other != line && otherTip)
                    out << "merge :" << *otherTip + 1 << "\n";
            }
            out << "\n";
            tip = n;
            if (line == 0 && (shape.mainStopsAt < 0 || n <= shape.mainStopsAt))
                mainTip = n;
            if (n % 100 == 0)
                out << "reset refs/tags/t" << n << "\nfrom :" << n + 1 << "\n\n";
        }
        if (mainTip)
            out << "reset refs/heads/main\nfrom :" << *mainTip + 1 << "\n\n";
        for (int k = 0; k < shape.extraTags && shape.commits > 0; ++k) {
            const int at = static_cast<int>(static_cast<long>(k) * shape.commits / shape.extraTags);
            const std::string name = k % 3 == 0   ? "v" + std::to_string(k / 300) + "." + std::to_string(k / 30 % 10) +
                                                        "." + std::to_string(k % 30)
                                     : k % 3 == 1 ? "release-" + std::to_string(2015 + k / 100) + "." +
                                                        std::to_string(k % 100)
                                                  : "build_" + std::to_string(k);
            out << "reset refs/tags/" << name << "\nfrom :" << at + 1 << "\n\n";
        }
        for (int k = 0; k < shape.extraBranches && shape.commits > 0; ++k) {
            const int at = shape.commits - 1 - static_cast<int>(static_cast<long>(k) * shape.commits / (2 * shape.extraBranches));
            out << "reset refs/heads/feature/topic-" << k << "\nfrom :" << at + 1 << "\n\n";
        }
    }
    ChildRequest request;
    request.executable = "/usr/bin/git";
    request.arguments = {"-C", repo.path(), "fast-import", "--quiet"};
    request.stdinPath = streamPath;
    request.environment = inheritedEnvironment();
    request.stdoutCapture = StreamCapture::discarded();
    request.stderrCapture = StreamCapture::capture(1 << 20);
    const ChildOutcome outcome = runChild(request);
    ASSERT_TRUE(outcome.succeeded()) << outcome.err;
    repo.git({"checkout", "-q", "main"});
}

} // namespace orvel::test
