#include "sample/UidSet.h"

#include <gtest/gtest.h>

namespace brindlet::sample {
namespace {

using Uids = std::vector<std::uint32_t>;

ImapMailbox mailboxOf(const Uids& uids) {
    ImapMailbox mailbox;
    for (const std::uint32_t uid : uids) mailbox.messages.push_back({uid, 0});
    return mailbox;
}

Uids chosen(std::string_view set, const Uids& uids) {
    const auto parsed = UidSet::parse(set);
    if (!parsed) return {0};
    Uids found;
    for (const std::size_t i : parsed->in(mailboxOf(uids))) found.push_back(uids[i]);
    return found;
}

TEST(UidSet, ChoosesEachMessageOnceInTheMailboxsOrder) {
    const Uids uids{2, 3, 5, 9, 4'294'967'295};
    const Uids all = uids;
    const struct {
        std::string_view set;
        Uids chosen;
    } rows[] = {
        {"1:*", all},
        {"*:1", all},
        {"2", {2}},
        {"4", {}},
        {"*", {4'294'967'295}},
        {"3:5", {3, 5}},
        {"5:3", {3, 5}},
        {"4:8", {5}},
        {"9,2", {2, 9}},
        {"2,2:3,3", {2, 3}},
        {"1:4294967295", all},
        {"3:3", {3}},
        {"10:*", {4'294'967'295}},
    };
    for (const auto& row : rows) EXPECT_EQ(chosen(row.set, uids), row.chosen) << row.set;
    // Whatever the range begins with, the last message is in it.
    EXPECT_EQ(chosen("100:*", {2, 3}), Uids{3});
    EXPECT_EQ(chosen("1:*", {}), Uids());
    EXPECT_EQ(chosen("*", {}), Uids());
}

TEST(UidSet, WhatIsNotWrittenByTheRulesIsNone) {
    for (const std::string_view set :
         {"", ",", "1,", ",1", "0", "0:4", "1:", ":1", "1:2:3", "-1", "+1", "a", "1 2", "1:*,x",
          "4294967296", "99999999999999999999", "**"})
        EXPECT_FALSE(UidSet::parse(set)) << set;
}

}  // namespace
}  // namespace brindlet::sample
