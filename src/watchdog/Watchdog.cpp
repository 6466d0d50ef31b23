#include "watchdog/Watchdog.h"

#include <chrono>
#include <cmath>
#include <cstdint>
#include <string>

#include "platform/Clock.h"
#include "platform/Diagnostics.h"
#include "platform/Directories.h"

namespace brindlet {
namespace {

constexpr double lookInterval = 2.0;
constexpr Thread::Settings threadSettings = {"brindlet.watchdog", 131'072};

template <class Number>
std::string twoDigits(Number number) {
    const auto text = std::to_string(number);
    return text.size() < 2 ? '0' + text : text;
}

}  // namespace

Watchdog::Watchdog(const Seams& seams)
    : seams_(seams), lastBeat_(seams.clock.now()), thread_(threadSettings, [this] { watch(); }) {}

Watchdog::~Watchdog() {
    ended_.cancel();
}

void Watchdog::beat() {
    Lock lock(lock_);
    lastBeat_ = seams_.clock.now();
}

void Watchdog::watch() {
    while (seams_.clock.sleep(lookInterval, ended_)) {
        double gap = 0;
        bool before = false;
        {
            Lock lock(lock_);
            gap = seams_.clock.now() - lastBeat_;
            if (gap <= threshold) continue;
            before = fired_;
            fired_ = true;
        }
        if (!before) capture(gap);
    }
}

void Watchdog::capture(double gap) {
    const auto path = seams_.directories.store() + '/' + fileName(seams_.clock.now());
    seams_.diagnostics.sample(path, ended_);
    // Whole seconds, the nearest.
    seams_.diagnostics.log("Brindlet: main thread stalled " + std::to_string(std::llrint(gap)) +
                           "s; wrote " + path);
}

std::string Watchdog::fileName(Date moment) {
    using namespace std::chrono;
    const auto second = sys_seconds(seconds(static_cast<std::int64_t>(std::floor(moment.unix()))));
    const auto midnight = floor<days>(second);
    const year_month_day date(midnight);
    const hh_mm_ss time(second - midnight);
    return "hang-" + std::to_string(static_cast<int>(date.year())) + '-' +
           twoDigits(static_cast<unsigned>(date.month())) + '-' +
           twoDigits(static_cast<unsigned>(date.day())) + 'T' + twoDigits(time.hours().count()) +
           '-' + twoDigits(time.minutes().count()) + '-' + twoDigits(time.seconds().count()) +
           "Z.txt";
}

}  // namespace brindlet
