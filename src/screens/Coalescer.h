#pragma once

#include <QObject>
#include <cstdint>
#include <functional>

#include "base/Observable.h"

namespace brindlet::screens {

/// Turns the many will-change signals of one turn of the event loop into one refresh on the next.
/// The signals come before the changes, so nothing may be read when they come. Main thread.
class Coalescer : public QObject {
    Q_OBJECT

  public:
    Coalescer(Observable& observed, std::function<void()> refresh);

    /// How often it has refreshed.
    std::uint64_t refreshes() const { return refreshes_; }

  private:
    void refreshNow();

    std::function<void()> refresh_;
    bool queued_ = false;
    std::uint64_t refreshes_ = 0;
    Subscription subscription_;
};

}  // namespace brindlet::screens
