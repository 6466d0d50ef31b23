#include "doubles/ScriptedProcessRunner.h"

#include <atomic>
#include <utility>

namespace brindlet::doubles {

class ScriptedProcessRunner::Process : public ChildProcess {
  public:
    Process(ScriptedProcessRunner& runner, std::vector<std::string> arguments)
        : runner_(runner), launch_{std::move(arguments), {}} {}

    bool launch() override {
        Lock lock(runner_.mutex_);
        if (!runner_.starts_) return false;
        launched_ = true;
        index_ = runner_.launches_.size();
        runner_.launches_.push_back(launch_);
        runner_.changed_.notifyAll();
        return true;
    }
    void writeInput(std::string_view bytes) override {
        launch_.input = bytes;
        {
            Lock lock(runner_.mutex_);
            runner_.launches_[index_].input = bytes;
        }
        askOnce();
    }
    std::string readOutput() override { return taken(&Reply::output); }
    std::string readError() override { return taken(&Reply::error); }
    bool running() override {
        askOnce();
        Lock lock(runner_.mutex_);
        if (terminated_) return false;
        return runner_.blocked_ || reply_.polls-- > 0;
    }
    int wait() override {
        askOnce();
        Lock lock(runner_.mutex_);
        waitForEnd();
        ended_ = true;
        return silenced_ ? -1 : reply_.status;
    }
    void terminate() override {
        Lock lock(runner_.mutex_);
        ++runner_.terminations_;
        if (!launched_ || ended_) return;
        terminated_ = true;
        silenced_ = runner_.blocked_;
        runner_.changed_.notifyAll();
    }

  private:
    /// The input comes before any second thread, so there is only one to ask.
    void askOnce() {
        if (asked_.exchange(true)) return;
        std::shared_ptr<Script> script;  // one for all launches, as it may count them
        {
            Lock lock(runner_.mutex_);
            script = runner_.script_;
        }
        Reply reply = (*script)(launch_);
        Lock lock(runner_.mutex_);
        reply_ = std::move(reply);
    }
    std::string taken(std::string Reply::*stream) {
        askOnce();
        Lock lock(runner_.mutex_);
        waitForEnd();
        return silenced_ ? "" : std::exchange(reply_.*stream, "");
    }
    void waitForEnd() BRINDLET_REQUIRES(runner_.mutex_) {
        while (runner_.blocked_ && !terminated_) runner_.changed_.wait(runner_.mutex_);
    }

    ScriptedProcessRunner& runner_;
    Launch launch_;
    std::size_t index_ = 0;
    std::atomic<bool> asked_ = false;
    bool launched_ BRINDLET_GUARDED_BY(runner_.mutex_) = false;
    bool terminated_ BRINDLET_GUARDED_BY(runner_.mutex_) = false;
    bool silenced_ BRINDLET_GUARDED_BY(runner_.mutex_) = false;
    bool ended_ BRINDLET_GUARDED_BY(runner_.mutex_) = false;
    Reply reply_ BRINDLET_GUARDED_BY(runner_.mutex_);
};

std::shared_ptr<ChildProcess> ScriptedProcessRunner::make(std::vector<std::string> arguments) {
    return std::make_shared<Process>(*this, std::move(arguments));
}

void ScriptedProcessRunner::setScript(Script script) {
    Lock lock(mutex_);
    script_ = std::make_shared<Script>(std::move(script));
}

void ScriptedProcessRunner::setStarts(bool starts) {
    Lock lock(mutex_);
    starts_ = starts;
}

void ScriptedProcessRunner::block() {
    Lock lock(mutex_);
    blocked_ = true;
}

void ScriptedProcessRunner::release() {
    Lock lock(mutex_);
    blocked_ = false;
    changed_.notifyAll();
}

void ScriptedProcessRunner::waitForLaunches(std::size_t count) {
    Lock lock(mutex_);
    while (launches_.size() < count) changed_.wait(mutex_);
}

std::vector<ScriptedProcessRunner::Launch> ScriptedProcessRunner::launches() const {
    Lock lock(mutex_);
    return launches_;
}

int ScriptedProcessRunner::terminations() const {
    Lock lock(mutex_);
    return terminations_;
}

}  // namespace brindlet::doubles
