#include "session/Watched.h"

#include <gtest/gtest.h>

namespace brindlet {
namespace {

MailFolder folder(std::int64_t id, std::string name) {
    return {id, std::move(name), 3, MailFolder::Role::custom};
}

const std::vector<MailAccount> accounts{
    {"A", "ann@x.example", "", {folder(1, "INBOX"), folder(2, "Lists/News")}},
    {"B", "", "On this machine", {folder(3, "INBOX")}}};

TEST(FindWatched, IsByTheAccountsIdAndTheWholeName) {
    const struct {
        WatchedMailbox watched;
        std::int64_t expected;
    } rows[] = {
        {{"A", "INBOX"}, 1},      {{"B", "INBOX"}, 3},
        {{"A", "Lists/News"}, 2}, {{"A", "News"}, 0},
        {{"A", "inbox"}, 0},      {{"B", "Lists/News"}, 0},
        {{"C", "INBOX"}, 0},      {{"ann@x.example", "INBOX"}, 0},
        {{"a", "INBOX"}, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.watched.account + " " + row.watched.folder);
        const auto found = findWatched(accounts, row.watched);
        EXPECT_EQ(found.has_value(), row.expected != 0);
        if (found) {
            EXPECT_EQ(found->folder.id, row.expected);
            EXPECT_EQ(found->account.id, row.watched.account);
        }
    }
}

TEST(GoneWatched, KeepsTheOrder) {
    const std::vector<WatchedMailbox> watched{
        {"C", "INBOX"}, {"A", "INBOX"}, {"B", "Old"}, {"A", "Lists"}};
    const std::vector<WatchedMailbox> gone{{"C", "INBOX"}, {"B", "Old"}, {"A", "Lists"}};
    EXPECT_EQ(goneWatched(accounts, watched), gone);
    EXPECT_EQ(presentWatched(accounts, watched), (std::vector<WatchedMailbox>{{"A", "INBOX"}}));
}

TEST(GoneWatched, IsNoneBeforeAnyAccountWasRead) {
    const std::vector<WatchedMailbox> watched{{"A", "INBOX"}};
    EXPECT_TRUE(goneWatched({}, watched).empty());
    EXPECT_EQ(presentWatched({}, watched), watched);
    EXPECT_TRUE(goneWatched(accounts, {}).empty());
}

}  // namespace
}  // namespace brindlet
