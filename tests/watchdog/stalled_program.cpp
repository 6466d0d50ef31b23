#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>

#include "base/ThreadSafety.h"
#include "doubles/Doubles.h"
#include "platform/linux/LinuxDiagnostics.h"
#include "platform/posix/PosixProcessRunner.h"
#include "platform/posix/RunLoop.h"
#include "watchdog/Watchdog.h"

// A program whose main loop runs into a function that never returns, with the real watchdog and the
// real sampler over a clock that runs ahead. The log line goes to standard output and ends it.

namespace brindlet {
namespace {

class OneFolder : public Directories {
  public:
    explicit OneFolder(std::string path) : path_(std::move(path)) {}
    std::string home() const override { return path_; }
    std::string temporary() const override { return path_; }
    std::string store() const override { return path_; }

  private:
    std::string path_;
};

class LastWords : public LinuxDiagnostics {
  public:
    using LinuxDiagnostics::LinuxDiagnostics;
    void log(const std::string& line) override {
        std::puts(line.c_str());
        std::fflush(stdout);
        std::_Exit(EXIT_SUCCESS);
    }
};

void runTheClock(doubles::ManualClock& clock) {
    clock.waitForSleeps(1);  // the watchdog's
    clock.advance(8);
    for (const int sampling : {2, 3}) {
        clock.waitForSleeps(sampling);
        clock.advance(1);
    }
}

[[gnu::noinline]] void standStillForGood(doubles::ManualClock& clock) {
    std::thread(runTheClock, std::ref(clock)).detach();
    Mutex mutex;
    Condition never;
    Lock lock(mutex);
    while (true) never.wait(mutex);
}

}  // namespace
}  // namespace brindlet

int main(int count, char** values) {
    using namespace brindlet;
    if (count != 2) return EXIT_FAILURE;
    doubles::ManualClock clock;
    const OneFolder directories(values[1]);
    PosixProcessRunner processes;
    LastWords diagnostics(processes, clock);
    RunLoop loop;
    const Watchdog watchdog({clock, directories, diagnostics});
    loop.post([&] { standStillForGood(clock); });
    loop.run();
}
