#include <sqlite3.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "Rounds.h"
#include "base/Task.h"
#include "doubles/Doubles.h"
#include "mail/MailStore.h"
#include "platform/linux/Memory.h"
#include "platform/posix/RunLoop.h"
#include "session/AppState.h"

// A whole scan through the session object, of messages no two of which are alike, with a model that
// answers at once: what is left is the reading and everything that the scan adds to it.

namespace brindlet::bench {
namespace {

using Steady = std::chrono::steady_clock;

double millisecondsSince(Steady::time_point start) {
    return std::chrono::duration<double, std::milli>(Steady::now() - start).count();
}

/// The main queue, with a watch on how long each job holds the main thread.
class WatchedLoop : public MainQueue {
  public:
    void post(std::function<void()> job) override {
        loop_.post([this, job = std::move(job)] {
            const auto start = Steady::now();
            job();
            held.push_back(millisecondsSince(start));
        });
    }
    bool isMainThread() const override { return loop_.isMainThread(); }
    void run() { loop_.run(); }
    void stop() { loop_.stop(); }

    std::vector<double> held;

  private:
    RunLoop loop_;
};

class RealClock : public Clock {
  public:
    Date now() const override {
        return Date::fromUnix(
            std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch())
                .count());
    }
    bool sleep(double seconds, const CancelToken& token) override { return token.sleep(seconds); }
};

/// Answers at once; half of all mail is junk.
class InstantModel : public LanguageModel {
  public:
    ModelAvailability availability() const override { return ModelAvailability::available; }
    std::optional<Answer> respond(const std::string&, const ModelSchema&, const std::string& prompt,
                                  const ModelOptions&) override {
        return Answer{{"category", prompt.size() % 2 ? "newsletterOrDigest" : "billOrPayment"}};
    }
};

class Places : public Directories {
  public:
    Places(std::string home, const doubles::TemporaryDirectories& others)
        : home_(std::move(home)), others_(others) {}
    std::string home() const override { return home_; }
    std::string temporary() const override { return others_.temporary(); }
    std::string store() const override { return others_.store(); }

  private:
    std::string home_;
    const doubles::TemporaryDirectories& others_;
};

/// Megabytes of memory that the process holds right now.
double residentMegabytes() {
    std::ifstream file("/proc/self/statm");
    double size = 0;
    double resident = 0;
    file >> size >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1024 * 1024);
}

double peakMegabytes() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

/// A copy of the sample's index in which every message has a sender of its own, beside links to the
/// sample's files.
std::string unlikeHome(const std::string& sample, const std::string& root) {
    namespace fs = std::filesystem;
    const std::string from = sample + "/Library/Mail/V10";
    const std::string to = root + "/unlike/Library/Mail/V10";
    fs::create_directories(to);
    for (const auto& entry : fs::directory_iterator(from))
        if (entry.path().filename() != "MailData")
            fs::create_directory_symlink(entry.path(), to + "/" + entry.path().filename().string());
    fs::copy(from + "/MailData", to + "/MailData", fs::copy_options::recursive);
    sqlite3* index = nullptr;
    sqlite3_open((to + "/MailData/Envelope Index").c_str(), &index);
    const char* const statements =
        "PRAGMA synchronous=OFF;"
        "INSERT INTO addresses (ROWID, address, comment)"
        " SELECT ROWID + 10000000, 'sender' || ROWID || '@unlike.example', 'Sender ' || ROWID"
        " FROM messages;"
        "UPDATE messages SET sender = ROWID + 10000000;";
    char* problem = nullptr;
    if (sqlite3_exec(index, statements, nullptr, nullptr, &problem) != SQLITE_OK)
        std::fprintf(stderr, "The index could not be changed: %s\n", problem);
    sqlite3_close(index);
    return root + "/unlike";
}

/// What so many model calls take by themselves, four in flight and each answer handed back before
/// the next is asked for, as a scan must make them: milliseconds. With a model that answers at once
/// this is the price of the threads alone.
double modelCalls(LanguageModel& model, std::size_t count) {
    const auto classifier = std::make_shared<const Classifier>(model);
    const auto call = [classifier, body = std::string(700, 'x')] {
        return classifier->classify("Sender 17 <sender17@unlike.example>", "Your weekly report",
                                    body);
    };
    return wallMilliseconds([&] {
        TaskGroup<Category> group(4);
        std::size_t next = 0;
        while (next < std::min<std::size_t>(count, 4)) ++next, group.add(call);
        while (group.next())
            if (next < count) ++next, group.add(call);
    });
}

struct Target {
    MailAccount account;
    MailFolder folder;
};

/// The mailbox with the most messages.
std::optional<Target> fullest(const MailStore& mail) {
    std::optional<Target> best;
    for (const auto& account : mail.loadAccounts(false, false))
        for (const auto& folder : account.folders)
            if (!best || folder.count > best->folder.count) best = Target{account, folder};
    return best;
}

int main(const std::string& sample, int scans) {
    const double slack = strictness().slack;
    shareHeaps();
    doubles::World world;
    WatchedLoop loop;
    RealClock clock;
    InstantModel model;
    Places places(unlikeHome(sample, world.directories.root()), world.directories);
    world.defaults.setString("scan.reach", "everything");
    world.defaults.setInteger("scan.limit", 0);
    world.defaults.setBoolean("skipSeen", false);
    const Services services{clock,
                            places,
                            loop,
                            world.defaults,
                            model,
                            world.power,
                            world.desktop,
                            world.locale,
                            world.processes,
                            world.runningApps,
                            world.keys,
                            world.tls,
                            world.scriptHost};
    const auto target = fullest(MailStore(services));
    if (!target) {
        std::fprintf(stderr, "There is no mail in %s.\n", sample.c_str());
        return 2;
    }
    const double before = peakMegabytes();
    auto state = AppState::make(services, 2);

    std::vector<double> ratios;
    double longestHop = 0;
    double readPeak = 0;
    double wholePeak = 0;
    std::vector<double> resident;
    std::size_t verdicts = 0;
    int scan = 0;
    double reading = 0;
    Steady::time_point start;
    const auto watch = state->subscribe([&] {
        if (reading > 0 || *state->stage != "Sorting with the on-device model") return;
        reading = millisecondsSince(start);
        if (scan == 0) readPeak = peakMegabytes();
    });
    std::function<void()> begin;
    const auto end = [&] {
        const double whole = millisecondsSince(start);
        state->drainWrites();
        verdicts = state->verdicts->size();
        if (scan == 0) wholePeak = peakMegabytes();
        resident.push_back(residentMegabytes());
        // The first job began this scan; the last one books what it found and saves three files
        // whole.
        const double booking = loop.held.back();
        const double hop = *std::max_element(loop.held.begin() + 1, loop.held.end() - 1);
        longestHop = longestHop == 0 ? hop : std::min(longestHop, hop);
        const double calls = modelCalls(model, verdicts);
        const double ratio = (whole - calls) / reading;
        // The first reads from the disk, against which anything looks quick.
        if (scan > 0) ratios.push_back(ratio);
        std::printf(
            "scan %d of %zu messages: reading %.0f ms, whole %.0f ms, of it model calls %.0f ms, "
            "ratio %.2f; longest hop "
            "%.2f ms, booking %.1f ms; %.0f MB\n",
            scan + 1, verdicts, reading, whole, calls, ratio, hop, booking, resident.back());
        std::fflush(stdout);
        if (++scan == scans)
            loop.stop();
        else
            begin();
    };
    begin = [&] {
        reading = 0;
        loop.held.clear();
        start = Steady::now();
        state->startScan(target->account, target->folder);
        runDetached(TaskPriority::userInitiated, [&loop, &end, task = *state->scanTask()] {
            task.wait();
            loop.post(end);
        });
    };
    loop.post(begin);
    loop.run();
    const auto count = static_cast<double>(verdicts);
    const double share = count / 100'000;
    const double readMost = std::max(160 * share, 40.0);
    const double wholeMost = std::max(220 * share, 60.0);
    bool good = true;
    const auto line = [&](const char* name, double value, const char* unit, double most) {
        const bool kept = value <= most * slack;
        good = good && kept;
        std::printf("%-34s %8.2f %-3s at most %.2f%s\n", name, value, unit, most,
                    kept ? "" : "  TOO MUCH");
    };
    line("scan less its calls, over reading",
         strictness().quick ? *std::min_element(ratios.begin(), ratios.end()) : median(ratios), "",
         2.0);
    line("longest hop while it runs", longestHop, "ms", 8.0);
    line("read phase above the program", readPeak - before, "MB", readMost);
    line("whole scan above the program", wholePeak - before, "MB", wholeMost);
    if (resident.size() > 2)
        line("growth from second to last scan", resident.back() - resident[1], "MB",
             std::max(20 * share, 8.0));
    return good ? 0 : 1;
}

}  // namespace
}  // namespace brindlet::bench

int main(int count, char** values) {
    if (count < 2) {
        std::fprintf(stderr, "usage: scan_bench HOME [SCANS]\n");
        return 2;
    }
    return brindlet::bench::main(std::filesystem::absolute(values[1]),
                                 count > 2 ? std::max(2, std::atoi(values[2])) : 4);
}
