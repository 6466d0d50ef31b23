#include "sample/MailIndex.h"

#include <sqlite3.h>

#include <cmath>

#include "base/Files.h"
#include "sample/Statement.h"

namespace brindlet::sample {
namespace {

constexpr int patienceInMilliseconds = 20'000;

/// In microseconds, since statements here bind whole numbers only.
std::int64_t stamp(double seconds) {
    return std::llround(seconds * 1e6);
}

std::string inBrackets(std::string_view messageId) {
    return '<' + std::string(messageId) + '>';
}

}  // namespace

struct MailIndex::State {
    explicit State(sqlite3* open) : database(open) {}

    bool execute(const char* text) {
        return sqlite3_exec(database, text, nullptr, nullptr, nullptr) == SQLITE_OK;
    }

    /// Changes whenever anybody has changed anything.
    std::pair<std::int64_t, std::int64_t> version() {
        const std::int64_t others = dataVersion.step() ? dataVersion.integer(0) : 0;
        dataVersion.reset();
        return {others, sqlite3_total_changes64(database)};
    }

    /// Counts the message into all mailboxes that show it, or out of them.
    void tally(std::int64_t message, int by) { tallies.number(1, message).number(2, by).run(); }

    /// Goes last, after all statements.
    struct Closer {
        sqlite3* database;
        ~Closer() { sqlite3_close(database); }
    };

    sqlite3* database;
    Closer closer{database};

    Statement dataVersion{database, "PRAGMA data_version"};
    Statement mailboxes{database, "SELECT ROWID, url FROM mailboxes ORDER BY ROWID"};
    Statement addMailbox{database, "INSERT INTO mailboxes (url) VALUES (?1)"};
    Statement removeMailbox{database, "DELETE FROM mailboxes WHERE ROWID = ?1"};
    Statement messages{database,
                       "SELECT ROWID FROM messages WHERE mailbox = ?1 OR ROWID IN"
                       " (SELECT message_id FROM labels WHERE mailbox_id = ?1)"
                       " ORDER BY date_received DESC, ROWID DESC"};
    Statement lists{database,
                    "SELECT 1 FROM messages WHERE ROWID = ?2 AND (mailbox = ?1 OR EXISTS"
                    " (SELECT 1 FROM labels WHERE message_id = ?2 AND mailbox_id = ?1))"};
    Statement withId{database,
                     "SELECT m.ROWID FROM message_global_data g"
                     " JOIN messages m ON m.global_message_id = g.ROWID"
                     " WHERE g.message_id_header = ?2 COLLATE NOCASE AND (m.mailbox = ?1 OR EXISTS"
                     " (SELECT 1 FROM labels WHERE message_id = m.ROWID AND mailbox_id = ?1))"
                     " ORDER BY m.date_received DESC, m.ROWID DESC"};
    Statement messageId{database,
                        "SELECT g.message_id_header FROM messages m JOIN message_global_data g"
                        " ON g.ROWID = m.global_message_id WHERE m.ROWID = ?1"};
    Statement filedIn{database, "SELECT mailbox FROM messages WHERE ROWID = ?1"};
    Statement marks{database, "SELECT read, flagged FROM messages WHERE ROWID = ?1"};
    Statement labels{database,
                     "SELECT mailbox_id FROM labels WHERE message_id = ?1 ORDER BY mailbox_id"};
    // The message may have got another row from somebody else by now.
    Statement addLabel{database,
                       "INSERT OR IGNORE INTO labels (message_id, mailbox_id)"
                       " SELECT ROWID, ?2 FROM messages WHERE ROWID = ?1"};
    Statement removeLabel{database, "DELETE FROM labels WHERE message_id = ?1 AND mailbox_id = ?2"};
    Statement nextRow{database,
                      "SELECT 1 + MAX(COALESCE((SELECT MAX(ROWID) FROM messages), 0), COALESCE("
                      "(SELECT seq FROM sqlite_sequence WHERE name = 'messages'), 0))"};
    Statement refile{database,
                     "UPDATE messages SET ROWID = ?2, searchable_message = ?2, mailbox = ?3,"
                     " remote_mailbox = ?3 WHERE ROWID = ?1"};
    // Changing a row id does not tell the table that the number is taken.
    Statement useUp{database, "UPDATE sqlite_sequence SET seq = ?1 WHERE name = 'messages'"};
    Statement recipients{database, "UPDATE recipients SET message = ?2 WHERE message = ?1"};
    Statement attachments{database, "UPDATE attachments SET message = ?2 WHERE message = ?1"};
    Statement keepLabels{database, "UPDATE labels SET message_id = ?2 WHERE message_id = ?1"};
    Statement dropLabels{database, "DELETE FROM labels WHERE message_id = ?1"};
    Statement tallies{database,
                      "UPDATE mailboxes SET total_count = total_count + ?2,"
                      " unread_count = unread_count + ?2 * new.unread,"
                      " unseen_count = unseen_count + ?2 * new.unread,"
                      " unread_count_adjusted_for_duplicates ="
                      " unread_count_adjusted_for_duplicates + ?2 * new.unread"
                      " FROM (SELECT 1 - read AS unread FROM messages WHERE ROWID = ?1) AS new"
                      " WHERE mailboxes.ROWID IN (SELECT mailbox FROM messages WHERE ROWID = ?1"
                      " UNION SELECT mailbox_id FROM labels WHERE message_id = ?1)"};
    Statement addLater{database,
                       "INSERT INTO later_moves (due, message, mailbox) VALUES (?1, ?2, ?3)"};
    Statement firstLater{database,
                         "SELECT ROWID, message, mailbox FROM later_moves WHERE due <= ?1"
                         " ORDER BY due, ROWID LIMIT 1"};
    Statement removeLater{database, "DELETE FROM later_moves WHERE ROWID = ?1"};
    Statement lastLater{database, "SELECT MAX(due) FROM later_moves"};

    /// The listing that was asked for last, for as long as nothing changes.
    std::int64_t listedMailbox = 0;
    std::pair<std::int64_t, std::int64_t> listedVersion;
    std::vector<std::int64_t> listed;
};

std::unique_ptr<MailIndex> MailIndex::open(const std::string& path) {
    sqlite3* database = nullptr;
    const bool opened =
        sqlite3_open_v2(path.c_str(), &database, SQLITE_OPEN_READWRITE, nullptr) == SQLITE_OK;
    sqlite3_busy_timeout(database, patienceInMilliseconds);
    const auto execute = [&](const char* text) {
        return sqlite3_exec(database, text, nullptr, nullptr, nullptr) == SQLITE_OK;
    };
    // Closing must leave the -wal file: the program that this plays goes on running.
    const bool ready =
        opened &&
        sqlite3_db_config(database, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr) == SQLITE_OK &&
        execute("PRAGMA synchronous = OFF") && execute("PRAGMA journal_mode = WAL") &&
        // Whoever copies the files one by one may meet a checkpoint in between; let them be rare.
        execute("PRAGMA wal_autocheckpoint = 4000") &&
        execute(
            "CREATE TABLE IF NOT EXISTS later_moves (due INTEGER, message INTEGER,"
            " mailbox INTEGER)");
    if (!ready) {
        sqlite3_close(database);
        return nullptr;
    }
    return std::unique_ptr<MailIndex>(new MailIndex(std::make_unique<State>(database)));
}

MailIndex::MailIndex(std::unique_ptr<State> state) : state_(std::move(state)) {}

MailIndex::~MailIndex() = default;

std::vector<MailIndex::Mailbox> MailIndex::mailboxes() {
    std::vector<Mailbox> all;
    Statement& rows = state_->mailboxes;
    while (rows.step()) all.push_back({rows.integer(0), std::string(rows.bytes(1))});
    return all;
}

std::int64_t MailIndex::addMailbox(std::string_view url) {
    return state_->addMailbox.text(1, url).insert();
}

bool MailIndex::removeMailbox(std::int64_t row) {
    return state_->removeMailbox.number(1, row).run();
}

const std::vector<std::int64_t>& MailIndex::messages(std::int64_t mailbox) {
    const auto version = state_->version();
    if (state_->listedMailbox == mailbox && state_->listedVersion == version) return state_->listed;
    state_->listedMailbox = mailbox;
    state_->listedVersion = version;
    state_->listed.clear();
    Statement& rows = state_->messages.number(1, mailbox);
    while (rows.step()) state_->listed.push_back(rows.integer(0));
    return state_->listed;
}

bool MailIndex::lists(std::int64_t mailbox, std::int64_t message) {
    const bool listed = state_->lists.number(1, mailbox).number(2, message).step();
    state_->lists.reset();
    return listed;
}

std::vector<std::int64_t> MailIndex::messagesWithId(std::int64_t mailbox,
                                                    std::string_view messageId) {
    const std::string header = inBrackets(messageId);
    Statement& rows = state_->withId.number(1, mailbox).text(2, header);
    std::vector<std::int64_t> found;
    while (rows.step()) found.push_back(rows.integer(0));
    return found;
}

std::optional<std::string> MailIndex::messageId(std::int64_t message) {
    Statement& row = state_->messageId.number(1, message);
    std::optional<std::string> id;
    if (row.step() && !row.isNull(0)) {
        std::string_view header = row.bytes(0);
        if (header.starts_with('<')) header.remove_prefix(1);
        if (header.ends_with('>')) header.remove_suffix(1);
        id = header;
    }
    row.reset();
    return id;
}

std::int64_t MailIndex::filedIn(std::int64_t message) {
    Statement& row = state_->filedIn.number(1, message);
    const std::int64_t mailbox = row.step() ? row.integer(0) : 0;
    row.reset();
    return mailbox;
}

std::optional<MailIndex::Marks> MailIndex::marks(std::int64_t message) {
    Statement& row = state_->marks.number(1, message);
    std::optional<Marks> marks;
    if (row.step()) marks = {row.integer(0) != 0, row.integer(1) != 0};
    row.reset();
    return marks;
}

std::vector<std::int64_t> MailIndex::labels(std::int64_t message) {
    Statement& rows = state_->labels.number(1, message);
    std::vector<std::int64_t> all;
    while (rows.step()) all.push_back(rows.integer(0));
    return all;
}

void MailIndex::addLabel(std::int64_t message, std::int64_t mailbox) {
    begin();
    state_->tally(message, -1);
    state_->addLabel.number(1, message).number(2, mailbox).run();
    state_->tally(message, 1);
    commit();
}

void MailIndex::removeLabel(std::int64_t message, std::int64_t mailbox) {
    begin();
    state_->tally(message, -1);
    state_->removeLabel.number(1, message).number(2, mailbox).run();
    state_->tally(message, 1);
    commit();
}

bool MailIndex::begin() {
    return state_->execute("BEGIN IMMEDIATE");
}

bool MailIndex::commit() {
    return state_->execute("COMMIT");
}

void MailIndex::rollBack() {
    state_->execute("ROLLBACK");
}

std::int64_t MailIndex::nextRow() {
    Statement& row = state_->nextRow;
    const std::int64_t next = row.step() ? row.integer(0) : 0;
    row.reset();
    return next;
}

bool MailIndex::refile(std::int64_t message, std::int64_t newRow, std::int64_t mailbox,
                       Labels labels) {
    State& state = *state_;
    state.tally(message, -1);
    const bool done =
        state.refile.number(1, message).number(2, newRow).number(3, mailbox).run() &&
        state.useUp.number(1, newRow).run() &&
        state.recipients.number(1, message).number(2, newRow).run() &&
        state.attachments.number(1, message).number(2, newRow).run() &&
        (labels == Labels::keep ? state.keepLabels.number(1, message).number(2, newRow).run()
                                : state.dropLabels.number(1, message).run());
    state.tally(newRow, 1);
    return done;
}

void MailIndex::addLaterMove(double due, const LaterMove& move) {
    state_->addLater.number(1, stamp(due)).number(2, move.message).number(3, move.mailbox).run();
}

std::optional<MailIndex::LaterMove> MailIndex::firstLaterMove(double now) {
    Statement& row = state_->firstLater.number(1, stamp(now));
    std::optional<LaterMove> first;
    if (row.step()) first = {row.integer(1), row.integer(2), row.integer(0)};
    row.reset();
    return first;
}

void MailIndex::removeLaterMove(std::int64_t id) {
    state_->removeLater.number(1, id).run();
}

std::optional<double> MailIndex::lastDue() {
    Statement& row = state_->lastLater;
    std::optional<double> due;
    if (row.step() && !row.isNull(0)) due = static_cast<double>(row.integer(0)) / 1e6;
    row.reset();
    return due;
}

}  // namespace brindlet::sample
