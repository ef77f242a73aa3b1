// diff-view-10k: from selecting a working-tree file whose 10,000 lines all changed to the diff
// pane painted with it (inspection, git's diff through the queue, the parse, the rows and the
// first paint with its colours), against git's own time for the same `git diff` in the same run.
#include "e2e/Scenario.h"
#include "e2e/SyntheticRepo.h"

#include "diff/DiffDetailViewModel.h"
#include "diff/ui/DiffPane.h"
#include "diff/ui/DiffTextView.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace orvel::bench {

namespace {

void writeLines(const std::string& path, int lines, const char* word) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    for (int i = 0; i < lines; ++i)
        file << "    int " << word << i << " = compute(" << i << ", \"text\"); // line " << i << "\n";
}

int runDiffView(const ScenarioOptions& options) {
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
        std::fprintf(stderr, "diff-view-10k needs the widget application\n");
        return 1;
    }
    const int lines = options.tiny ? 500 : 10'000;
    const std::string file = options.repo + "/changed.cpp";
    if (!std::filesystem::exists(std::filesystem::path(options.repo) / ".git")) {
        std::filesystem::create_directories(options.repo);
        runGit(options.repo, {"init", "-q"});
        writeLines(file, lines, "before");
        runGit(options.repo, {"add", "changed.cpp"});
        runGit(options.repo, {"-c", "user.name=Bench", "-c", "user.email=bench@example.invalid", "commit",
                              "-q", "-m", "base"});
        writeLines(file, lines, "after");
    }

    BenchService bench(options.repo);
    DiffDetailViewModel model(bench.repo, std::shared_ptr<GitServiceProtocol>(&bench.service, [](auto*) {}));
    DiffPane pane(model);
    pane.resize(1200, 800);
    QImage image(pane.size(), QImage::Format_ARGB32_Premultiplied);
    FileChange changed;
    changed.path = "changed.cpp";
    changed.status = FileStatusKind::tracked(TrackedStatus::unmodified, TrackedStatus::modified);

    std::vector<double> ours, git;
    std::size_t rows = 0;
    bool painted = true;
    alternate(
        options.rounds, [&] { git.push_back(milliseconds([&] { gitOutput(options.repo, {"diff"}); })); },
        [&] {
            model.closeDiff();
            QCoreApplication::processEvents();
            ours.push_back(milliseconds([&] {
                model.showDiff(changed, std::nullopt, false, false);
                while (model.content() == DiffDetailViewModel::Content::loading)
                    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
                pane.render(&image);
            }));
            rows = std::size_t(pane.textView().rowCount());
            painted = painted && model.content() == DiffDetailViewModel::Content::diff;
        });
    char extra[96];
    std::snprintf(extra, sizeof extra, " rows=%zu painted=%s", rows, painted ? "yes" : "no");
    report(options.tiny ? "diff-view-10k-tiny" : "diff-view-10k", ours, git, extra);
    return painted && rows > std::size_t(lines) ? 0 : 1;
}

const ScenarioRegistration registration("diff-view-10k", runDiffView);

} // namespace

} // namespace orvel::bench
