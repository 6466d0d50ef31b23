#include "sample/MailboxUids.h"

#include <gtest/gtest.h>

#include "base/Files.h"
#include "doubles/Doubles.h"

namespace brindlet::sample {
namespace {

using Pairs = std::vector<std::pair<std::uint32_t, std::int64_t>>;

class MailboxUidsTest : public testing::Test {
  protected:
    MailboxUidsTest() : path(directories.temporary() + "/uids") {}

    Pairs assigned(std::int64_t mailbox, const std::vector<std::int64_t>& messages) {
        const auto uids = MailboxUids::open(path);
        const auto opened = uids->assign(mailbox, messages);
        Pairs pairs;
        if (!opened) return pairs;
        for (const auto& message : opened->messages)
            pairs.emplace_back(message.uid, message.message);
        next = opened->nextUid;
        return pairs;
    }

    doubles::TemporaryDirectories directories;
    std::string path;
    std::uint32_t next = 0;
};

TEST_F(MailboxUidsTest, NewMessagesGetTheNextOnesInTheOrderOfTheirRows) {
    EXPECT_EQ(assigned(1, {}), Pairs());
    EXPECT_EQ(next, 1u);
    EXPECT_EQ(assigned(1, {30, 10, 20}), (Pairs{{1, 10}, {2, 20}, {3, 30}}));
    EXPECT_EQ(next, 4u);
    EXPECT_EQ(assigned(1, {5, 10, 20, 30, 40}),
              (Pairs{{1, 10}, {2, 20}, {3, 30}, {4, 5}, {5, 40}}));
}

TEST_F(MailboxUidsTest, NoneIsEverGivenTwice) {
    assigned(1, {10, 20});
    EXPECT_EQ(assigned(1, {10}), (Pairs{{1, 10}}));
    EXPECT_EQ(next, 3u);
    // What comes back has another one.
    EXPECT_EQ(assigned(1, {10, 20}), (Pairs{{1, 10}, {3, 20}}));
    EXPECT_EQ(assigned(1, {}), Pairs());
    EXPECT_EQ(assigned(1, {10}), (Pairs{{4, 10}}));
}

TEST_F(MailboxUidsTest, EachMailboxCountsByItself) {
    assigned(1, {10, 20});
    EXPECT_EQ(assigned(2, {20}), (Pairs{{1, 20}}));
    const auto uids = MailboxUids::open(path);
    EXPECT_NE(uids->assign(1, {})->validity, uids->assign(2, {})->validity);
}

TEST_F(MailboxUidsTest, TwoThatAreOpenAtOnceAgree) {
    const auto one = MailboxUids::open(path);
    const auto other = MailboxUids::open(path);
    one->assign(1, {10});
    EXPECT_EQ(other->assign(1, {10, 20})->messages[1].uid, 2u);
    EXPECT_EQ(one->assign(1, {10, 20, 30})->messages[2].uid, 3u);
}

TEST_F(MailboxUidsTest, ADamagedMemoryIsNone) {
    files::write(path, "This is no database, and long enough to be seen as none.");
    EXPECT_FALSE(MailboxUids::open(path));
    EXPECT_FALSE(MailboxUids::open(directories.temporary() + "/none/uids"));
}

}  // namespace
}  // namespace brindlet::sample
