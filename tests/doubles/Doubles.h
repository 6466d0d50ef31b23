#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <thread>
#include <variant>
#include <vector>

#include "base/ThreadSafety.h"
#include "doubles/MapKeyStore.h"
#include "doubles/ScriptedProcessRunner.h"
#include "doubles/Transcript.h"
#include "platform/Clock.h"
#include "platform/Desktop.h"
#include "platform/Directories.h"
#include "platform/LanguageModel.h"
#include "platform/Locale.h"
#include "platform/MainQueue.h"
#include "platform/Power.h"
#include "platform/RunningApps.h"
#include "platform/Services.h"
#include "platform/UserDefaults.h"

/// One recording double for each seam. They are set from the test's thread and may be used from
/// any.
namespace brindlet::doubles {

/// Time that moves only when the test says so.
class ManualClock : public Clock {
  public:
    Date now() const override;
    bool sleep(double seconds, const CancelToken& token) override;

    void set(Date now);
    /// Moves on, waking the sleepers whose time has come.
    void advance(double seconds);
    /// Blocks until so many sleeps have begun since the start.
    void waitForSleeps(int count);
    /// The lengths of all sleeps begun so far.
    std::vector<double> sleeps() const;

  private:
    mutable Mutex mutex_;
    Condition changed_;
    Date now_ BRINDLET_GUARDED_BY(mutex_) = Date::fromUnix(1'700'000'000);
    std::vector<double> sleeps_ BRINDLET_GUARDED_BY(mutex_);
};

/// A home, a temporary folder and a store of the test's own, removed at its end.
class TemporaryDirectories : public Directories {
  public:
    TemporaryDirectories();
    ~TemporaryDirectories() override;

    std::string home() const override { return root_ + "/home"; }
    std::string temporary() const override { return root_ + "/tmp"; }
    std::string store() const override;
    /// Another place for the store, to be created or not.
    void setStore(std::string path) { store_ = std::move(path); }
    const std::string& root() const { return root_; }
    /// Removes the folders before the end.
    void clear();

  private:
    std::string root_;
    std::string store_;
};

/// The main queue of a test: the test's thread is the main thread and pumps it by hand.
class PumpedQueue : public MainQueue {
  public:
    void post(std::function<void()> job) override;
    bool isMainThread() const override { return main_ == std::this_thread::get_id(); }

    /// Runs what is queued now, and what that queues; returns the number of jobs run.
    int pump();
    /// Runs one job if one is there; returns how many ran.
    int tryOne();
    /// Pumps until the condition holds; false after ten seconds.
    bool pumpUntil(const std::function<bool()>& condition);
    /// Drops what is queued and all that comes: the loop has ended.
    void end();
    std::size_t waiting() const;

  private:
    const std::thread::id main_ = std::this_thread::get_id();
    mutable Mutex mutex_;
    Condition changed_;
    std::deque<std::function<void()>> jobs_ BRINDLET_GUARDED_BY(mutex_);
    bool ended_ BRINDLET_GUARDED_BY(mutex_) = false;
};

/// Settings in memory. `raw` shows what stands under a key.
class MemoryDefaults : public UserDefaults {
  public:
    /// Bytes are told from text by the wrapper; a mixed dictionary by its own type.
    struct Data {
        std::string bytes;
        friend bool operator==(const Data&, const Data&) = default;
    };
    struct MixedDictionary {
        friend bool operator==(const MixedDictionary&, const MixedDictionary&) = default;
    };
    using Value = std::variant<bool, std::int64_t, double, std::string, Data, Strings, Dictionary,
                               MixedDictionary>;

    std::optional<bool> boolean(std::string_view key) const override;
    std::optional<std::int64_t> integer(std::string_view key) const override;
    std::optional<double> number(std::string_view key) const override;
    std::optional<std::string> string(std::string_view key) const override;
    std::optional<std::string> data(std::string_view key) const override;
    std::optional<Strings> strings(std::string_view key) const override;
    std::optional<Dictionary> dictionary(std::string_view key) const override;
    void setBoolean(std::string_view key, bool value) override;
    void setInteger(std::string_view key, std::int64_t value) override;
    void setNumber(std::string_view key, double value) override;
    void setString(std::string_view key, const std::string& value) override;
    void setData(std::string_view key, const std::string& bytes) override;
    void setStrings(std::string_view key, const Strings& value) override;
    void setDictionary(std::string_view key, const Dictionary& value) override;
    void remove(std::string_view key) override;

    std::map<std::string, Value, std::less<>> raw;
};

/// Answers by a function of the prompt; records every call.
class ScriptedModel : public LanguageModel {
  public:
    struct Call {
        std::string instructions;
        std::string schema;
        std::string prompt;
        ModelOptions options;
    };
    using Script = std::function<std::optional<Answer>(const Call&)>;

    /// Answers every label prompt with the word.
    static Script always(std::string category);

    ModelAvailability availability() const override { return available; }
    std::optional<Answer> respond(const std::string& instructions, const ModelSchema& schema,
                                  const std::string& prompt, const ModelOptions& options) override;

    void setScript(Script script);
    /// From now on calls block, until `release`.
    void block();
    void release();
    void waitForCalls(std::size_t count);
    std::vector<Call> calls() const;
    int mostInFlight() const;

    ModelAvailability available = ModelAvailability::available;

  private:
    mutable Mutex mutex_;
    Condition changed_;
    Script script_ BRINDLET_GUARDED_BY(mutex_) = always("cannotTell");
    std::vector<Call> calls_ BRINDLET_GUARDED_BY(mutex_);
    bool blocked_ BRINDLET_GUARDED_BY(mutex_) = false;
    int inFlight_ BRINDLET_GUARDED_BY(mutex_) = 0;
    int mostInFlight_ BRINDLET_GUARDED_BY(mutex_) = 0;
};

class SettablePower : public Power {
  public:
    bool onBattery() const override { return battery.get(); }
    std::unique_ptr<Activity> keepAwake(const std::string& reason) override;

    Locked<bool> battery{false};
    /// Reasons of all activities ever begun, and how many run now.
    std::vector<std::string> begun;
    int running() const { return *running_; }

  private:
    std::shared_ptr<int> running_ = std::make_shared<int>(0);
};

class RecordingDesktop : public Desktop {
  public:
    void openLink(const std::string& url) override { opened.push_back(url); }
    void openDiskAccessSettings() override { opened.push_back("disk access settings"); }
    void openSettings() override { opened.push_back("settings"); }
    void openMail() override { opened.push_back("mail"); }

    std::vector<std::string> opened;
};

/// Groups by commas; relative words are what the test sets, dates are in UTC: "2023-11-14 22:13".
class FixedLocale : public Locale {
  public:
    std::string grouped(std::int64_t number) const override;
    std::string relative(Date, Date) const override { return words; }
    std::string dateTime(Date date) const override;

    std::string words = "X";
};

class SettableRunningApps : public RunningApps {
  public:
    bool isRunning(const std::string& bundleIdentifier) const override {
        return running.get().contains(bundleIdentifier);
    }

    /// Bundle identifiers; at first the mail program's.
    Locked<std::set<std::string>> running{std::set<std::string>{"com.apple.mail"}};
};

/// All doubles together.
struct World {
    ManualClock clock;
    TemporaryDirectories directories;
    PumpedQueue mainQueue;
    MemoryDefaults defaults;
    ScriptedModel model;
    SettablePower power;
    RecordingDesktop desktop;
    FixedLocale locale;
    ScriptedProcessRunner processes;
    SettableRunningApps runningApps;
    MapKeyStore keys;
    /// Nobody answers until a test adds a transcript.
    TranscriptConnector tls{std::vector<Transcript>{}};
    std::string scriptHost = "/doubles/osascript";

    Services services() {
        return {clock,  directories, mainQueue,   defaults, model, power,     desktop,
                locale, processes,   runningApps, keys,     tls,   scriptHost};
    }

    /// A world that lasts as long as the process, as the real adapters do: for tests whose subject
    /// leaves work behind that may outlive it. Call `retire` at the test's end.
    static World& lasting();
    /// Ends the main queue, lets blocked calls go and removes the folders.
    void retire();
};

}  // namespace brindlet::doubles
