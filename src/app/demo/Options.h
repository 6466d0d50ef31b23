#pragma once

#include <QSize>
#include <cstdint>
#include <string>

namespace brindlet::demo {

struct Options {
    std::int64_t messages = 2'000;
    /// Where everything lies, and stays; a temporary folder when empty.
    std::string keep;
    /// Where the tour puts its pictures; no tour when empty.
    std::string tour;
    /// A model server on this machine; the model inside when empty.
    std::string modelServer;
    std::string modelServerName;
    bool light = false;
    bool onBattery = false;
    QSize size;
    bool help = false;
    /// What was not understood; empty when all was.
    std::string problem;
};

Options parseOptions(int argc, char** argv);
extern const char* const usage;

}  // namespace brindlet::demo
