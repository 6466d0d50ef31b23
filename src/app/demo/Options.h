#pragma once

#include <QSize>
#include <cstdint>
#include <optional>
#include <string>

#include "app/demo/DemoWorld.h"
#include "app/demo/Visit.h"

namespace brindlet::demo {

struct Options {
    std::int64_t messages = 2'000;
    /// Where everything lies, and stays; a temporary folder when empty.
    std::string keep;
    /// Where the tour puts its pictures; no tour when empty.
    std::string tour;
    /// The one visit of the tour to be played; all of them, each by a process of its own, without.
    std::optional<Visit> visit;
    WorldSettings world;
    /// Nothing was ever sorted before.
    bool firstTime = false;
    bool withoutAccounts = false;
    bool light = false;
    QSize size;
    bool help = false;
    /// What was not understood; empty when all was.
    std::string problem;
};

Options parseOptions(int argc, char** argv);
extern const char* const usage;

}  // namespace brindlet::demo
