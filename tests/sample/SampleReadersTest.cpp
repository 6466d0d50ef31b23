#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "SampleHome.h"
#include "mail/MailStore.h"

namespace brindlet::sample {
namespace {

constexpr std::int64_t bodyCharacters = 700;

class SampleReaders : public testing::Test {
  protected:
    SampleHome& home_ = SampleHome::shared();
    const SampleFacts& facts_ = home_.outcome.facts;
    const MailStore store_{home_.world.services()};
};

TEST_F(SampleReaders, AccountsAndFoldersAreThoseOfTheFacts) {
    std::map<std::string, std::map<std::int64_t, MailFolder>> expected;
    for (const auto& account : facts_.accounts)
        for (const auto& folder : account.folders)
            expected[account.id][folder.id] = {folder.id, folder.name, folder.count,
                                               fromRaw<MailFolder::Role>(folder.role).value()};
    const auto accounts = store_.loadAccounts(false, false);
    ASSERT_EQ(accounts.size(), expected.size());
    EXPECT_EQ(accounts.front().id, facts_.accounts.front().id);
    for (const MailAccount& account : accounts) {
        ASSERT_EQ(account.folders.size(), expected[account.id].size()) << account.id;
        for (const MailFolder& folder : account.folders)
            EXPECT_EQ(folder, expected[account.id][folder.id]) << folder.name;
    }
}

TEST_F(SampleReaders, EveryFolderListsItsMessages) {
    std::map<std::int64_t, const SampleFacts::Message*> known;
    for (const auto& message : facts_.messages) known[message.id] = &message;
    for (const auto& account : facts_.accounts) {
        for (const auto& folder : account.folders) {
            SCOPED_TRACE(account.name + ' ' + folder.name);
            const auto rows = store_.messages(folder.id, 0, 0);
            ASSERT_EQ(rows.size(), folder.messages.size());
            std::vector<std::int64_t> ids;
            for (const MailMessage& row : rows) {
                ids.push_back(row.id);
                const SampleFacts::Message& fact = *known[row.id];
                EXPECT_EQ(row, (MailMessage{fact.id, fact.sender, fact.subject, fact.dateSent}));
            }
            for (std::size_t i = 1; i < rows.size(); ++i)
                EXPECT_GE(rows[i - 1].dateSent, rows[i].dateSent);
            std::vector<std::int64_t> expected = folder.messages;
            std::sort(ids.begin(), ids.end());
            std::sort(expected.begin(), expected.end());
            EXPECT_EQ(ids, expected);
        }
    }
}

TEST_F(SampleReaders, CorrespondentsAreThoseOfTheFacts) {
    EXPECT_GT(facts_.correspondents.size(), 20u);
    EXPECT_EQ(store_.correspondents(), facts_.correspondents);
}

TEST_F(SampleReaders, EveryFileIsFoundAndGivesItsMessageId) {
    std::map<std::string, MessagePaths> paths;
    for (const auto& account : facts_.accounts)
        paths.emplace(account.id, store_.locateMessageFiles(account.id));
    for (const auto& message : facts_.messages) {
        SCOPED_TRACE(std::to_string(message.id) + ' ' + message.trouble);
        const auto path = paths.at(message.account).find(message.id);
        ASSERT_EQ(path.has_value(), message.path.has_value());
        if (!path) continue;
        EXPECT_EQ(*path, home_.home() + '/' + *message.path);
        const auto parsed = MailStore::parseMessageFile(*path, bodyCharacters);
        EXPECT_EQ(parsed.messageID, message.messageId);
        // What a reader makes of noise is its own affair.
        if (message.trouble == "binaryFile") continue;
        EXPECT_EQ(parsed.body.empty(), !message.readable);
    }
}

}  // namespace
}  // namespace brindlet::sample
