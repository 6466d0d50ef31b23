#include "sample/IndexWriter.h"

#include <sqlite3.h>

#include "sample/Random.h"
#include "sample/Statement.h"

namespace brindlet::resources {
extern const std::string_view sampleIndexSchema;
}

namespace brindlet::sample {

struct IndexWriter::State {
    sqlite3* database = nullptr;
    bool failed = false;
    std::unique_ptr<Statement> mailbox, address, subject, summary, global, message, recipient,
        label, attachment;

    void check(bool good) {
        if (!good) failed = true;
    }
    void prepare(std::unique_ptr<Statement>& statement, const char* text) {
        statement = std::make_unique<Statement>(database, text);
        check(static_cast<bool>(*statement));
    }
};

IndexWriter::IndexWriter(const std::string& path) : state_(std::make_unique<State>()) {
    State& state = *state_;
    state.check(sqlite3_open_v2(path.c_str(), &state.database,
                                SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) == SQLITE_OK);
    run("PRAGMA journal_mode = WAL");
    run("PRAGMA synchronous = OFF");
    run(std::string(resources::sampleIndexSchema).c_str());
    // Without this, closing would empty the -wal file and remove it.
    state.check(sqlite3_db_config(state.database, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr) ==
                SQLITE_OK);
    if (state.failed) return;

    state.prepare(state.mailbox, "INSERT INTO mailboxes (url) VALUES (?)");
    state.prepare(state.address, "INSERT INTO addresses (address, comment) VALUES (?, ?)");
    state.prepare(state.subject, "INSERT INTO subjects (subject) VALUES (?)");
    state.prepare(state.summary, "INSERT INTO summaries (summary) VALUES (?)");
    state.prepare(state.global,
                  "INSERT INTO message_global_data (message_id, message_id_header) VALUES (?, ?)");
    state.prepare(
        state.message,
        "INSERT INTO messages (ROWID, message_id, global_message_id, remote_id, sender,"
        " subject_prefix, subject, summary, date_sent, date_received, mailbox, remote_mailbox,"
        " flags, read, flagged, size, conversation_id, list_id_hash, unsubscribe_type,"
        " display_date, type, searchable_message)"
        " VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?11, ?12, ?13, ?14, ?15, ?16, ?17,"
        " ?18, ?10, 0, ?1)");
    state.prepare(state.recipient,
                  "INSERT INTO recipients (message, address, type, position) VALUES (?, ?, 0, ?)");
    state.prepare(state.label,
                  "INSERT OR IGNORE INTO labels (message_id, mailbox_id) VALUES (?, ?)");
    state.prepare(state.attachment,
                  "INSERT INTO attachments (message, attachment_id, name) VALUES (?, ?, ?)");
    run("INSERT INTO properties (key, value) VALUES ('version', '4'), ('UUID', "
        "'6F0C8A54-5B0E-4C2B-9E0D-2C1B7A3D9E10')");
}

IndexWriter::~IndexWriter() {
    sqlite3* const database = state_->database;
    state_.reset();
    sqlite3_close(database);
}

bool IndexWriter::ok() const {
    return !state_->failed;
}

void IndexWriter::run(const char* statement) {
    if (state_->failed) return;
    state_->check(sqlite3_exec(state_->database, statement, nullptr, nullptr, nullptr) ==
                  SQLITE_OK);
}

void IndexWriter::begin() {
    run("BEGIN");
}
void IndexWriter::commit() {
    run("COMMIT");
}

void IndexWriter::checkpointForTheLastTime() {
    run("PRAGMA wal_checkpoint(TRUNCATE)");
    run("PRAGMA wal_autocheckpoint = 0");
}

std::int64_t IndexWriter::addMailbox(std::string_view url) {
    if (!ok()) return 0;
    const std::int64_t row = state_->mailbox->text(1, url).insert();
    state_->check(row != 0);
    return row;
}

std::int64_t IndexWriter::address(std::string_view address, std::string_view comment) {
    if (!ok()) return 0;
    // The table tells neither letter case in addresses nor blanks at a subject's end apart.
    std::string key(address);
    for (char& c : key)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
    key += '\n';
    key += comment;
    auto [known, isNew] = addresses_.try_emplace(std::move(key), 0);
    if (isNew) {
        known->second = state_->address->text(1, address).text(2, comment).insert();
        state_->check(known->second != 0);
    }
    return known->second;
}

std::int64_t IndexWriter::subject(std::string_view subject) {
    if (!ok()) return 0;
    while (!subject.empty() && subject.back() == ' ') subject.remove_suffix(1);
    auto [known, isNew] = subjects_.try_emplace(std::string(subject), 0);
    if (isNew) {
        known->second = state_->subject->text(1, subject).insert();
        state_->check(known->second != 0);
    }
    return known->second;
}

void IndexWriter::addMessage(const IndexedMessage& message) {
    if (!ok()) return;
    // The column of that name holds a hash of the header's Message-ID, not the text.
    std::uint64_t hash = static_cast<std::uint64_t>(message.rowId);
    if (!message.messageIdHeader.empty()) {
        hash = 0;
        for (const char c : message.messageIdHeader)
            hash = mixed(hash, static_cast<unsigned char>(c));
    }
    const auto messageId = static_cast<std::int64_t>(hash >> 1);
    const std::int64_t summary = state_->summary->text(1, message.summary).insert();
    const std::int64_t global =
        state_->global->number(1, messageId).text(2, message.messageIdHeader, true).insert();
    const std::int64_t row = state_->message->number(1, message.rowId)
                                 .number(2, messageId)
                                 .number(3, global)
                                 .number(4, message.remoteId)
                                 .reference(5, message.sender)
                                 .text(6, message.subjectPrefix)
                                 .reference(7, message.subject)
                                 .number(8, summary)
                                 .number(9, message.dateSent)
                                 .number(10, message.dateReceived)
                                 .number(11, message.mailbox)
                                 .number(12, message.flags)
                                 .number(13, message.read)
                                 .number(14, message.flagged)
                                 .number(15, message.size)
                                 .number(16, message.conversation)
                                 .reference(17, message.fromList ? message.sender : 0)
                                 .reference(18, message.fromList)
                                 .insert();
    state_->check(row == message.rowId);
}

void IndexWriter::addRecipient(std::int64_t message, std::int64_t address, std::int64_t position) {
    if (!ok()) return;
    state_->check(
        state_->recipient->number(1, message).number(2, address).number(3, position).run());
}

void IndexWriter::addLabel(std::int64_t message, std::int64_t mailbox) {
    if (!ok()) return;
    state_->check(state_->label->number(1, message).number(2, mailbox).run());
}

void IndexWriter::addAttachment(std::int64_t message, std::string_view part,
                                std::string_view name) {
    if (!ok()) return;
    state_->check(state_->attachment->number(1, message).text(2, part).text(3, name).run());
}

void IndexWriter::updateMailboxCounts() {
    run("CREATE TEMP TABLE held AS"
        " SELECT mailbox AS box, read FROM messages"
        " UNION ALL SELECT l.mailbox_id, m.read FROM labels l JOIN messages m"
        " ON m.ROWID = l.message_id");
    run("CREATE TEMP TABLE tally AS SELECT box, COUNT(*) AS total, SUM(1 - read) AS unread"
        " FROM held GROUP BY box");
    run("UPDATE mailboxes SET total_count = t.total, unread_count = t.unread,"
        " unseen_count = t.unread, unread_count_adjusted_for_duplicates = t.unread"
        " FROM tally t WHERE t.box = mailboxes.ROWID");
    run("DROP TABLE held");
    run("DROP TABLE tally");
}

}  // namespace brindlet::sample
