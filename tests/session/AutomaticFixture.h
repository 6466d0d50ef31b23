#pragma once

#include <string>
#include <vector>

#include "session/MoveFixture.h"

namespace brindlet {

/// A session whose schedule is on, every hour and for review, over mailboxes of an account that has
/// an address. A subject with "Sale" is junk.
class AutomaticTest : public MoveTest {
  protected:
    AutomaticTest();
    ~AutomaticTest() override;

    /// A mailbox that the mail program has, with so much junk in it.
    MailFolder addBox(const std::string& name, int junk,
                      MailFolder::Role role = MailFolder::Role::custom);
    /// The same, picked for the schedule.
    MailFolder watch(const std::string& name, int junk,
                     MailFolder::Role role = MailFolder::Role::custom);
    void addJunk(const MailFolder& box, int count);
    const MailAccount& owner() const { return state->accounts->front(); }
    void setMode(SortMode mode) { state->schedule.setMode(mode); }

    /// Starts the timer and lets it go to sleep.
    void startTimer();
    /// Lets time pass and the timer fire once, however long it is. What the firing begins goes on.
    void pass(double seconds = 300);
    /// Lets the run that is under way come to its end.
    void finishRun();
    void runNow();
    /// Runs the next so many jobs of the main thread, once they have come.
    void runJobs(int count);
    bool pumpUntil(const std::function<bool()>& condition) {
        return world.mainQueue.pumpUntil(condition);
    }

    /// The folders of all scans on record, the oldest first.
    std::vector<std::string> scanned() const;
    /// How often the mail program was asked to move something.
    std::size_t moves() const;
    std::ptrdiff_t timerSleeps() const;

    static constexpr double hour = 3600;

  private:
    int senders_ = 0;
};

}  // namespace brindlet
