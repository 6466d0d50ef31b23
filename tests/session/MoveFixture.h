#pragma once

#include <string>
#include <vector>

#include "doubles/BulkScript.h"
#include "session/ReviewFixture.h"

namespace brindlet {

/// A session with junk to move and a script host that moves what the test lets it.
class MoveTest : public ReviewTest {
  protected:
    MoveTest();
    ~MoveTest() override;

    using Bulk = doubles::Bulk;
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
