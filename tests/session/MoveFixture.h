#pragma once

#include <string>
#include <vector>

#include "session/ReviewFixture.h"

namespace brindlet {

/// A session with junk to move and a script host that moves what the test lets it.
class MoveTest : public ReviewTest {
  protected:
    MoveTest();
    ~MoveTest() override;

    /// What one run of the bulk script does.
    struct Bulk {
        /// Message-IDs that leave; all that were asked for unless `some` is set.
        std::vector<std::string> landed;
        bool some = false;
        /// The number in the result; that of the landed ids when below 0.
        std::int64_t moved = -1;
        /// On standard error, with nothing on standard output.
        std::string error;
    };
    void script(Bulk bulk);
    static Bulk landing(std::vector<std::string> ids) { return {std::move(ids), true, -1, {}}; }

    /// So many ads of one sender each, with a record, in an account that has an address.
    void showAds(int count, MailFolder::Role role = MailFolder::Role::inbox);
    void selectAccount(const std::string& address, std::vector<MailFolder> folders);
    void finishMove();
    void finish(const Task& task);
    /// The arguments of the latest run, from the account's address on.
    std::vector<std::string> lastArguments() const;
    std::vector<std::int64_t> remainingIds() const;
    const Seen::Entry* seenEntry(const std::string& messageID);

  private:
    std::vector<std::pair<std::string, Seen::Entry>> entries_;
};

}  // namespace brindlet
