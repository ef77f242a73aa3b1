// graph-paint: one frame of the graph table, 50 rows of a busy graph (20 lanes, merges, ref pills
// on many rows), painted offscreen by the graph's delegate, against the same rows painted as plain
// text by Qt's own delegate. Prints the median milliseconds of a repaint of rows already painted
// (target under 2 ms), of a first paint of those rows, and both against the plain text.
#include "e2e/Scenario.h"

#include "graph/RepoGraphPaneViewModel.h"
#include "graph/ui/GraphRowDelegate.h"
#include "graph/ui/GraphTableModel.h"
#include "notices/ToastManager.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QStyleOptionViewItem>

#include <array>
#include <cstdio>

namespace orvel::bench {

namespace {

constexpr int lineCount = 20;
constexpr int viewportRows = 50;
constexpr int width = 1400;
// The spec's column widths, with the graph column wide enough to show all twenty lanes.
constexpr std::array<int, GraphTableModel::columnCount_> columnWidths{420, 140, 535, 100, 75, 90};

std::string hashOf(int number) {
    char hash[41];
    std::snprintf(hash, sizeof hash, "%040x", number + 1);
    return hash;
}

// Twenty lines of development that advance in turn, each commit on the line's previous one; every
// fifth commit also merges the next line's, and lines carry a branch at their tips and tags on the way.
std::vector<GraphCommit> busyHistory(int commits) {
    std::vector<GraphCommit> history;
    for (int i = 0; i < commits; ++i) {
        GraphCommit commit;
        commit.hash = hashOf(i);
        if (i + lineCount < commits)
            commit.parentHashes.push_back(hashOf(i + lineCount));
        if (i % 5 == 0 && i + lineCount + 1 < commits)
            commit.parentHashes.push_back(hashOf(i + lineCount + 1));
        commit.subject = "Change " + std::to_string(i) + " of line " + std::to_string(i % lineCount);
        commit.authors.push_back({{}, "Ada Example", "ada@example.invalid", {}, {}});
        if (i < lineCount)
            commit.refs.push_back({"line/" + std::to_string(i), GraphRefType::localBranch, i == 0});
        if (i % 9 == 0)
            commit.refs.push_back({"v" + std::to_string(i), GraphRefType::tag, false});
        if (i % 13 == 0)
            commit.refs.push_back(
                {"origin/line/" + std::to_string(i % lineCount), GraphRefType::remoteBranch, false});
        commit.isHead = i == 0;
        history.push_back(std::move(commit));
    }
    return history;
}

void paintFrame(QPainter& painter, const QAbstractItemDelegate& delegate, const GraphTableModel& table,
                int firstRow) {
    QStyleOptionViewItem option;
    option.palette = QApplication::palette();
    option.font = QApplication::font();
    option.state = QStyle::State_Enabled | QStyle::State_Active;
    painter.fillRect(QRect(0, 0, width, viewportRows * GraphRowDelegate::rowHeight),
                     option.palette.color(QPalette::Base));
    for (int row = 0; row < viewportRows; ++row) {
        int left = 0;
        for (int column = 0; column < GraphTableModel::columnCount_; ++column) {
            option.rect = QRect(left, row * GraphRowDelegate::rowHeight, columnWidths[column],
                                GraphRowDelegate::rowHeight);
            delegate.paint(&painter, option, table.index(firstRow + row, column));
            left += columnWidths[column];
        }
    }
}

int runGraphPaint(const ScenarioOptions& options) {
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
        std::fprintf(stderr, "graph-paint needs the widget application\n");
        return 1;
    }
    BenchService bench(options.repo); // only its service object: nothing here runs git
    ToastManager toasts;
    RepoGraphPaneViewModel model(bench.repo,
                                 std::shared_ptr<GitServiceProtocol>(&bench.service, [](auto*) {}), toasts);
    model.applyCommits(busyHistory(400));
    const GraphTableModel table(model);
    GraphRowDelegate graph(model, QApplication::palette());
    const QStyledItemDelegate plain;
    const int firstRow = 200; // deep in the history, where every line runs
    std::size_t lanes = 0, pills = 0;
    for (int row = firstRow; row < firstRow + viewportRows; ++row) {
        lanes = std::max(lanes, model.commits()[static_cast<std::size_t>(row)].lanes.size());
        pills += model.refsByRow()[static_cast<std::size_t>(row)].size();
    }

    QImage image(width, viewportRows * GraphRowDelegate::rowHeight, QImage::Format_ARGB32_Premultiplied);
    std::vector<double> ours, cold, text;
    const int frames = options.tiny ? 4 : std::max(options.rounds, 1) * 20;
    alternate(
        frames,
        [&] {
            QPainter painter(&image);
            text.push_back(milliseconds([&] { paintFrame(painter, plain, table, firstRow); }));
        },
        [&] {
            QPainter painter(&image);
            // A first paint of these rows, then a repaint of the same rows from the delegate's cells.
            graph.refreshStyle(QApplication::palette());
            cold.push_back(milliseconds([&] { paintFrame(painter, graph, table, firstRow); }));
            ours.push_back(milliseconds([&] { paintFrame(painter, graph, table, firstRow); }));
        });
    const double frame = median(ours);
    const double coldFrame = median(cold);
    const double plainFrame = median(text);
    std::printf("scenario=graph-paint frame_ms=%.3f first_paint_ms=%.3f plain_ms=%.3f ratio=%.2f "
                "first_paint_ratio=%.2f rows=%d lanes=%zu pills=%zu\n",
                frame, coldFrame, plainFrame, frame / plainFrame, coldFrame / plainFrame, viewportRows, lanes,
                pills);
    return lanes >= static_cast<std::size_t>(lineCount) ? 0 : 1;
}

const ScenarioRegistration registration("graph-paint", runGraphPaint);

} // namespace

} // namespace orvel::bench
