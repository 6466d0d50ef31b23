#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "base/Files.h"
#include "doubles/Doubles.h"
#include "mover/Mover.h"

namespace brindlet {

/// Time in which each sleep is over at once. What happens meanwhile can be told. Used from the
/// thread that moves.
class PassingClock : public Clock {
  public:
    Date now() const override { return {}; }
    bool sleep(double seconds, const CancelToken&) override {
        sleeps.push_back(seconds);
        if (meanwhile) meanwhile(static_cast<int>(sleeps.size()));
        return true;
    }

    std::vector<double> sleeps;
    /// Gets the number of the sleep, from 1.
    std::function<void(int)> meanwhile;
};

/// The arguments of a run of the bulk script, by their meaning.
struct BulkArguments {
    explicit BulkArguments(const std::vector<std::string>& run)
        : address(run.at(2)),
          destination(run.at(3)),
          source(run.at(4)),
          ids(run.at(5)),
          progress(run.at(6)),
          done(run.at(7)),
          labelOnly(run.at(8)) {}
    std::string address, destination, source, ids, progress, done, labelOnly;
};

/// A mover over doubles, three messages to move and what it told on the way.
struct MoverWorld : doubles::World {
    using Launch = doubles::ScriptedProcessRunner::Launch;
    using Reply = doubles::ScriptedProcessRunner::Reply;
    using Step = std::tuple<Mover::Phase, std::int64_t, std::int64_t>;

    PassingClock passing;
    Mover mover{Services{passing, directories, mainQueue, defaults, model, power, desktop, locale,
                         processes, runningApps, keys, tls, scriptHost}};
    Mover::Request request{{{11, "a@x"}, {12, "b@x"}, {13, "c@x"}},
                           {"A1", "ann@home.example", "Home", {}},
                           "INBOX",
                           "Junk"};
    std::vector<Step> steps;

    MoveOutcome moveMessages() { return mover.moveMessages(request, false, recorder()); }
    MoveOutcome moveByMenu() { return mover.moveByMenu(request, recorder()); }
    Mover::Progress recorder() {
        return [this](Mover::Phase phase, std::int64_t done, std::int64_t total) {
            steps.emplace_back(phase, done, total);
        };
    }

    /// The bulk script says this, and has left that in its done file.
    void bulkSays(std::string output, std::string error = "", std::string done = "") {
        processes.setScript([=](const Launch& launch) {
            files::write(BulkArguments(launch.arguments).done, done);
            return Reply{.output = output, .error = error};
        });
    }
    /// The menu script says these, one batch after the other; then it runs no more.
    void menuSays(std::vector<Reply> replies) {
        processes.setScript([replies = std::move(replies), batch = 0u](const Launch&) mutable {
            EXPECT_LT(batch, replies.size()) << "one batch more than expected";
            return batch < replies.size() ? replies[batch++] : Reply{};
        });
    }
};

inline std::string fileText(const std::string& path) {
    return files::read(path).value_or("(no file)");
}

}  // namespace brindlet
