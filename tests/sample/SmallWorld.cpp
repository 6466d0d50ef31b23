#include "SmallWorld.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <filesystem>

namespace brindlet::sample {

SmallWorld::SmallWorld() : home(directories.home()) {
    const std::size_t work = home.addAccount("Work", "me@x.example");
    inbox = home.addMailbox(work, "INBOX");
    junk = home.addMailbox(work, "Junk");
    other = home.addMailbox(work, "Other/Folder");
    a = home.addMessage({.mailbox = inbox, .messageId = "a@h"});
    b = home.addMessage({.mailbox = inbox, .messageId = "b@h"});
    c = home.addMessage({.mailbox = inbox, .messageId = "c@h"});
    const std::size_t gmail = home.addAccount("Gmail", "me@gmail.example");
    home.settings.accounts[gmail].gmail = true;
    all = home.addMailbox(gmail, "[Gmail]/All Mail");
    label = home.addMailbox(gmail, "INBOX");
    receipts = home.addMailbox(gmail, "Receipts");
    spam = home.addMailbox(gmail, "[Gmail]/Spam");
    g = home.addMessage({.mailbox = all, .messageId = "g@h", .labels = {label}});
}

void SmallWorld::finish() {
    ASSERT_TRUE(home.finish());
}

std::vector<std::string> SmallWorld::idsIn(std::int64_t mailbox) const {
    const auto index = MailIndex::open(home.indexPath());
    const std::vector<std::int64_t> rows = index->messages(mailbox);
    std::vector<std::string> ids;
    for (const std::int64_t row : rows) ids.push_back(index->messageId(row).value_or("none"));
    return ids;
}

std::vector<std::string> SmallWorld::files() const {
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(home.dataRoot()))
        if (entry.is_regular_file() &&
            entry.path().string().find("/MailData/") == std::string::npos)
            found.push_back(entry.path().string().substr(home.dataRoot().size() + 1));
    std::sort(found.begin(), found.end());
    return found;
}

std::int64_t SmallWorld::number(const std::string& query) const {
    sqlite3* database = nullptr;
    sqlite3_open_v2(home.indexPath().c_str(), &database, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database, query.c_str(), -1, &statement, nullptr);
    EXPECT_EQ(sqlite3_step(statement), SQLITE_ROW) << query;
    const std::int64_t value = sqlite3_column_int64(statement, 0);
    sqlite3_finalize(statement);
    sqlite3_close(database);
    return value;
}

}  // namespace brindlet::sample
