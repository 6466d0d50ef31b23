#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "sample/MailIndex.h"

namespace brindlet::sample {

/// What a move has done so far.
enum class MoveStep {
    /// Its intention stands in the home.
    noted,
    /// The file stands at its new place too.
    linked,
    /// The index knows the new place alone.
    committed,
    /// The file is gone from its old place.
    removed,
};

/// Moves messages as one: file, attachments and index rows. A process may be killed at any moment;
/// what it leaves half done, whoever comes next finishes if the index had it, and undoes otherwise.
/// Processes take turns by a lock in the home. Blocking, one thread.
class MessageMover {
  public:
    /// Where a mailbox's messages lie.
    struct Place {
        std::int64_t mailbox = 0;
        /// The full path of its data directory.
        std::string data;
    };

    /// The index must outlive it. The hook, for tests, is called after each step.
    MessageMover(const std::string& home, MailIndex& index, std::function<void(MoveStep)> hook);

    /// Finishes or undoes what a killed process has left.
    void settle();

    /// The message's new row id, or 0 with all as it was. A message without a file moves in the
    /// index alone.
    std::int64_t move(std::int64_t message, const Place& from, const Place& to,
                      MailIndex::Labels labels);

  private:
    /// What is to be done with files, and the row that tells whether it holds.
    struct Intention {
        std::int64_t newRow = 0;
        /// Empty when the message has no file.
        std::string from, to;
        std::string attachmentsFrom, attachmentsTo;
    };

    Intention intended(std::int64_t message, const Place& from, const Place& to);
    void settleLocked();
    void note(const Intention& intention) const;
    static void finish(const Intention& intention);
    bool makeDirectory(const std::string& path);
    void reached(MoveStep step) const {
        if (hook_) hook_(step);
    }

    const std::string lock_;
    const std::string note_;
    MailIndex& index_;
    const std::function<void(MoveStep)> hook_;
    /// The last directory that was made, which the next message mostly needs too.
    std::string made_;
};

}  // namespace brindlet::sample
