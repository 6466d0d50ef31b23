#include "doubles/MailHome.h"

#include <sqlite3.h>

#include <cstdlib>

#include "base/Files.h"

namespace brindlet::doubles {
namespace {

std::string quoted(const std::string& text) {
    std::string out = "'";
    for (const char c : text) out += c == '\'' ? "''" : std::string(1, c);
    return out + "'";
}

}  // namespace

MailHome::MailHome(std::string home) : root_(std::move(home) + "/Library/Mail/V10") {
    files::createDirectories(root_ + "/MailData");
    files::createDirectories(root_ + "/" + account + "/INBOX.mbox/Data/Messages");
    if (sqlite3_open((root_ + "/MailData/Envelope Index").c_str(), &index_) != SQLITE_OK)
        std::abort();
    run("PRAGMA journal_mode=WAL; PRAGMA synchronous=OFF;"
        "CREATE TABLE mailboxes (ROWID INTEGER PRIMARY KEY, url TEXT);"
        "CREATE TABLE messages (ROWID INTEGER PRIMARY KEY, mailbox INTEGER, sender INTEGER,"
        " subject INTEGER, date_sent INTEGER);"
        "CREATE TABLE labels (message_id INTEGER, mailbox_id INTEGER);"
        "CREATE TABLE addresses (ROWID INTEGER PRIMARY KEY, address TEXT, comment TEXT);"
        "CREATE TABLE subjects (ROWID INTEGER PRIMARY KEY, subject TEXT);"
        "CREATE TABLE recipients (message INTEGER, address INTEGER);");
}

MailHome::~MailHome() {
    sqlite3_close(index_);
}

std::int64_t MailHome::addMailbox(const std::string& path, const std::string& accountId) {
    run("INSERT INTO mailboxes (url) VALUES (" + quoted("imap://" + accountId + "/" + path) + ")");
    return sqlite3_last_insert_rowid(index_);
}

std::int64_t MailHome::addressRow(const std::string& sender) {
    const auto open = sender.find(" <");
    const auto address =
        open == std::string::npos ? sender : sender.substr(open + 2, sender.size() - open - 3);
    const auto comment = open == std::string::npos ? std::string() : sender.substr(0, open);
    run("INSERT INTO addresses (address, comment) VALUES (" + quoted(address) + "," +
        quoted(comment) + ")");
    return sqlite3_last_insert_rowid(index_);
}

std::int64_t MailHome::addMessage(const Message& message) {
    const auto sender = addressRow(message.sender);
    run("INSERT INTO subjects (subject) VALUES (" + quoted(message.subject) + ")");
    const auto subject = sqlite3_last_insert_rowid(index_);
    run("INSERT INTO messages (mailbox, sender, subject, date_sent) VALUES (" +
        std::to_string(message.mailbox) + "," + std::to_string(sender) + "," +
        std::to_string(subject) + "," + std::to_string(message.dateSent) + ")");
    const auto id = sqlite3_last_insert_rowid(index_);
    if (message.withFile) {
        std::string raw = "From: " + message.sender + "\nSubject: " + message.subject + "\n";
        if (message.messageID) raw += "Message-ID: <" + *message.messageID + ">\n";
        raw += "\n" + message.body;
        files::write(
            root_ + "/" + account + "/INBOX.mbox/Data/Messages/" + std::to_string(id) + ".emlx",
            std::to_string(raw.size()) + "       \n" + raw);
    }
    return id;
}

void MailHome::addRecipient(std::int64_t message, const std::string& address) {
    const auto row = addressRow(address);
    run("INSERT INTO recipients VALUES (" + std::to_string(message) + "," + std::to_string(row) +
        ")");
}

void MailHome::run(const std::string& sql) {
    if (sqlite3_exec(index_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) std::abort();
}

}  // namespace brindlet::doubles
