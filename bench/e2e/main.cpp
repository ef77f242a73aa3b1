// The end-to-end benchmark tool. Each scenario runs one operation of the service on a generated
// repository and git's own command for the same output, alternately in one process run, and
// prints "scenario=<name> ours_ms=<x> git_ms=<y> ratio=<x/y>" with the medians.
#include "e2e/Scenario.h"

#include <QApplication>

#include <cstdlib>
#include <iostream>

int main(int argc, char** argv) {
    // Scenarios that paint need the widget application; without a display it paints offscreen.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    using orvel::bench::scenarios;
    std::string scenario = "status-100k";
    orvel::bench::ScenarioOptions options;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        auto value = [&]() -> std::string { return i + 1 < argc ? argv[++i] : ""; };
        if (argument == "--scenario")
            scenario = value();
        else if (argument == "--repo")
            options.repo = value();
        else if (argument == "--rounds")
            options.rounds = std::max(1, std::atoi(value().c_str()));
        else if (argument == "--tiny")
            options.tiny = true;
        else if (argument == "--list") {
            for (const auto& [name, run] : scenarios())
                std::cout << name << "\n";
            return 0;
        } else {
            std::cerr << "usage: orvel-bench [--scenario NAME] --repo DIR [--rounds N] [--tiny] | --list\nscenarios:";
            for (const auto& [name, run] : scenarios())
                std::cerr << " " << name;
            std::cerr << "\n";
            return 2;
        }
    }
    if (options.repo.empty()) {
        std::cerr << "orvel-bench: --repo DIR is required (it is generated when it holds no repository)\n";
        return 2;
    }
    const auto found = scenarios().find(scenario);
    if (found == scenarios().end()) {
        std::cerr << "orvel-bench: unknown scenario " << scenario << "\n";
        return 2;
    }
    return found->second(options);
}
