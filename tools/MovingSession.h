#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "base/Observable.h"
#include "base/Task.h"
#include "platform/posix/RunLoop.h"
#include "session/AppState.h"

namespace brindlet::tools {

/// What `move_messages` is told to do.
struct MoveOrder {
    enum class What {
        /// Scans the mailbox, and moves what the scan has ticked.
        move,
        /// Goes on with the move that was not finished.
        resume,
        /// Reopens the latest scan of the mailbox, and returns all that was moved out of it.
        putBack,
    };
    What what = What::move;
    std::string accountId;
    std::string mailbox;
    /// Stops the move once so many messages have moved.
    std::optional<std::int64_t> stopAfter;
    /// Called on the main thread when all is ready to move, once.
    std::function<void()> ready = [] {};
};

/// Plays one order through the operations of the session, as a person's presses would, and prints a
/// JSON line for each change of the stage words and one for the end. Main thread only.
class MovingSession {
  public:
    /// The loop is the session's main queue.
    MovingSession(RunLoop& loop, std::shared_ptr<AppState> state, MoveOrder order);

    /// Runs the loop until the end. What is wrong as one finished sentence; empty when nothing is.
    std::string run();

  private:
    void look();
    void begin();
    void move();
    void resume();
    void putBack();
    void awaitMove();
    void tellStage();
    void tellEnd() const;
    void end(std::string problem = {});
    /// Calls `next` as a job of the main thread when the task has ended.
    void then(const Task& task, std::function<void()> next);
    const MailAccount* account() const;

    RunLoop& loop_;
    const std::shared_ptr<AppState> state_;
    const MoveOrder order_;
    bool begun_ = false;
    bool stopped_ = false;
    std::string toldStage_;
    std::int64_t toldCount_ = 0;
    std::string problem_;
    Subscription watch_;
};

}  // namespace brindlet::tools
