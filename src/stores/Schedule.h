#pragma once

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Date.h"
#include "base/EnumInfo.h"
#include "base/Observable.h"
#include "platform/Services.h"

namespace brindlet {

enum class SortMode { review, automatic };
enum class Cadence { hourly, every6h, daily, weekly };

template <>
struct EnumInfo<SortMode> {
    static constexpr std::array<std::pair<SortMode, std::string_view>, 2> all{{
        {SortMode::review, "review"},
        {SortMode::automatic, "automatic"},
    }};
};

template <>
struct EnumInfo<Cadence> {
    static constexpr std::array<std::pair<Cadence, std::string_view>, 4> all{{
        {Cadence::hourly, "hourly"},
        {Cadence::every6h, "every6h"},
        {Cadence::daily, "daily"},
        {Cadence::weekly, "weekly"},
    }};
};

double cadenceSeconds(Cadence cadence);
std::string_view cadenceLabel(Cadence cadence);

struct WatchedMailbox {
    /// The account's id.
    std::string account;
    /// The mailbox's full name.
    std::string folder;

    friend bool operator==(const WatchedMailbox&, const WatchedMailbox&) = default;
};

/// The settings of automatic runs, in user defaults; each setter writes its key at once. Main
/// thread.
class Schedule : public Observable {
  public:
    explicit Schedule(Services services);

    bool enabled() const { return *enabled_; }
    std::optional<Date> enabledAt() const { return *enabledAt_; }
    SortMode mode() const { return *mode_; }
    Cadence cadence() const { return *cadence_; }
    std::optional<Date> lastRun() const { return *lastRun_; }
    bool pauseOnBattery() const { return *pauseOnBattery_; }
    /// The same switch for a scan, which asks after every message: a hop each would cost more than
    /// the message. Follows every change; any thread.
    std::shared_ptr<const std::atomic<bool>> pauseOnBatteryFlag() const { return pauseFlag_; }
    const std::vector<WatchedMailbox>& watched() const { return *watched_; }

    void setEnabled(bool enabled);
    void setMode(SortMode mode);
    void setCadence(Cadence cadence);
    void setLastRun(std::optional<Date> lastRun);
    void setPauseOnBattery(bool pause);
    void setWatched(std::vector<WatchedMailbox> watched);
    void toggle(const std::string& account, const std::string& folder);

    std::optional<Date> nextRun() const;
    bool isDue() const;
    std::string summary() const;

  private:
    /// A schedule that is on needs a moment to count from.
    void startCountingIfNeeded();
    void setEnabledAt(std::optional<Date> enabledAt);
    Services services_;
    Published<bool> enabled_{*this};
    Published<std::optional<Date>> enabledAt_{*this};
    Published<SortMode> mode_{*this};
    Published<Cadence> cadence_{*this};
    Published<std::optional<Date>> lastRun_{*this};
    Published<bool> pauseOnBattery_{*this};
    const std::shared_ptr<std::atomic<bool>> pauseFlag_ = std::make_shared<std::atomic<bool>>(true);
    Published<std::vector<WatchedMailbox>> watched_{*this};
};

}  // namespace brindlet
