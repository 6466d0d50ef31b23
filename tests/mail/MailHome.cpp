#include "mail/MailHome.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>

#include "base/Files.h"

namespace brindlet::testing {

IndexWriter::IndexWriter(const std::string& path) {
    EXPECT_EQ(sqlite3_open(path.c_str(), &database_), SQLITE_OK) << path;
    sqlite3_busy_timeout(database_, 10'000);
    run("PRAGMA synchronous = OFF");
}

IndexWriter::~IndexWriter() {
    sqlite3_close(database_);
}

void IndexWriter::run(const std::string& sql) {
    char* error = nullptr;
    EXPECT_EQ(sqlite3_exec(database_, sql.c_str(), nullptr, nullptr, &error), SQLITE_OK)
        << sql << ": " << (error ? error : "");
    sqlite3_free(error);
}

void IndexWriter::createTables() {
    run("CREATE TABLE mailboxes (ROWID INTEGER PRIMARY KEY, url TEXT, unread_count INTEGER);"
        "CREATE TABLE messages (ROWID INTEGER PRIMARY KEY, document_id TEXT, sender INTEGER,"
        "  subject_prefix TEXT, subject INTEGER, date_sent INTEGER, mailbox INTEGER);"
        "CREATE TABLE labels (message_id INTEGER, mailbox_id INTEGER);"
        "CREATE TABLE addresses (ROWID INTEGER PRIMARY KEY, address TEXT, comment TEXT);"
        "CREATE TABLE subjects (ROWID INTEGER PRIMARY KEY, subject TEXT);"
        "CREATE TABLE recipients (ROWID INTEGER PRIMARY KEY, message INTEGER, address INTEGER);"
        "CREATE INDEX messages_by_date ON messages (mailbox, date_sent);");
}

MailHome::MailHome() : store(world.services()) {}

void MailHome::makeIndex(const std::string& sql) {
    files::createDirectories(root() + "/MailData");
    IndexWriter writer(index());
    writer.createTables();
    writer.run(sql);
}

void MailHome::put(const std::string& path, std::string_view bytes) {
    files::createDirectories(std::filesystem::path(path).parent_path());
    EXPECT_TRUE(files::write(path, bytes)) << path;
}

std::string MailHome::putMessage(const std::string& relative, std::string_view bytes) const {
    const std::string path = root() + '/' + std::string(account) + '/' + relative;
    put(path, bytes);
    return path;
}

std::map<std::string, std::string> contents(const std::string& directory) {
    std::map<std::string, std::string> found;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(directory))
        found[entry.path()] =
            entry.is_regular_file() ? files::read(entry.path()).value_or("unreadable") : "";
    return found;
}

}  // namespace brindlet::testing
