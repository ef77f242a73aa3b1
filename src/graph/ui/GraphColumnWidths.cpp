#include "graph/ui/GraphColumnWidths.h"

#include <algorithm>
#include <numeric>

namespace orvel {

int boundedColumnWidth(int column, int width) {
    const GraphColumnBounds& bounds = graphColumnBounds[static_cast<std::size_t>(column)];
    return std::max(bounds.minimum, bounds.maximum > 0 ? std::min(width, bounds.maximum) : width);
}

GraphColumnWidths fitGraphColumns(const GraphColumnWidths& chosen, int available) {
    GraphColumnWidths widths{};
    for (int column = 0; column < GraphTableModel::columnCount_; ++column)
        widths[static_cast<std::size_t>(column)] = boundedColumnWidth(column, chosen[static_cast<std::size_t>(column)]);
    constexpr auto message = static_cast<std::size_t>(GraphTableModel::messageColumn);
    widths[message] = 0;
    const int others = std::accumulate(widths.begin(), widths.end(), 0);
    const int messageMinimum = graphColumnBounds[message].minimum;
    const int lacking = messageMinimum - (available - others);
    if (lacking > 0) {
        constexpr auto graph = static_cast<std::size_t>(GraphTableModel::graphColumn);
        constexpr auto refs = static_cast<std::size_t>(GraphTableModel::refsColumn);
        const int graphRoom = widths[graph] - graphColumnBounds[graph].minimum;
        const int refsRoom = widths[refs] - graphColumnBounds[refs].minimum;
        const int given = std::min(lacking, graphRoom + refsRoom);
        const int fromGraph = given == 0 ? 0 : given * graphRoom / (graphRoom + refsRoom);
        widths[graph] -= fromGraph;
        widths[refs] -= given - fromGraph;
    }
    widths[message] =
        std::max(messageMinimum, available - std::accumulate(widths.begin(), widths.end(), 0));
    return widths;
}

} // namespace orvel
