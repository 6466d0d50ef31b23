#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/ThreadSafety.h"
#include "platform/ProcessRunner.h"

namespace brindlet::doubles {

/// Processes that run no program: what each would say is a function of how it was started.
class ScriptedProcessRunner : public ProcessRunner {
  public:
    struct Launch {
        std::vector<std::string> arguments = {};
        std::string input = {};
    };
    struct Reply {
        std::string output = {};
        std::string error = {};
        int status = 0;
        /// How often it answers that it still runs.
        int polls = 0;
    };
    /// Asked once a launch, when the input has been written, or else at the first look. May do what
    /// the program would, or what a person does meanwhile.
    using Script = std::function<Reply(const Launch&)>;

    std::shared_ptr<ChildProcess> make(std::vector<std::string> arguments) override;

    void setScript(Script script);
    /// From now on launches fail, or no longer do.
    void setStarts(bool starts);
    /// From now on processes stay until `release`, or until they are terminated; one that was
    /// terminated says nothing.
    void block();
    void release();
    /// Blocks until so many have been launched since the start.
    void waitForLaunches(std::size_t count);
    std::vector<Launch> launches() const;
    int terminations() const;

  private:
    class Process;
    mutable Mutex mutex_;
    Condition changed_;
    std::shared_ptr<Script> script_ BRINDLET_GUARDED_BY(mutex_) =
        std::make_shared<Script>([](const Launch&) { return Reply{}; });
    std::vector<Launch> launches_ BRINDLET_GUARDED_BY(mutex_);
    bool starts_ BRINDLET_GUARDED_BY(mutex_) = true;
    bool blocked_ BRINDLET_GUARDED_BY(mutex_) = false;
    int terminations_ BRINDLET_GUARDED_BY(mutex_) = 0;
};

}  // namespace brindlet::doubles
