#pragma once

#include <string>

#include "base/Cancel.h"
#include "base/Date.h"
#include "base/Thread.h"
#include "base/ThreadSafety.h"

namespace brindlet {

class Clock;
class Diagnostics;
class Directories;

/// Notices that the main thread stands still, and then writes down what it stands at: one file in
/// the store's folder and one line in the system's log. At most once in a process's life: one
/// sample tells the story, and a main thread that keeps stalling would otherwise queue them.
///
/// It watches from a thread of its own, from its making to its end, and needs nothing of the main
/// one but the beats. Time is the time of day.
class Watchdog {
  public:
    /// They outlive the watchdog.
    struct Seams {
        Clock& clock;
        const Directories& directories;
        Diagnostics& diagnostics;
    };

    /// How often the main thread is to beat, in seconds.
    static constexpr double beatInterval = 1.0;
    /// A gap since the last beat up to this many seconds is no stall.
    static constexpr double threshold = 6.0;

    explicit Watchdog(const Seams& seams);
    /// Ends a capture that is under way, and waits for the thread.
    ~Watchdog();
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

    /// The main thread is alive.
    void beat();

    /// "hang-2026-11-21T07-19-50Z.txt": the second in UTC, fit for any file system.
    static std::string fileName(Date moment);

  private:
    void watch();
    void capture(double gap);

    const Seams seams_;
    const CancelToken ended_;
    Mutex lock_;
    Date lastBeat_ BRINDLET_GUARDED_BY(lock_);
    bool fired_ BRINDLET_GUARDED_BY(lock_) = false;
    /// Last, so that it sees all the rest, and ends before it.
    Thread thread_;
};

}  // namespace brindlet
