#include "sample/MailboxUids.h"

#include <sqlite3.h>

#include <algorithm>

#include "sample/Statement.h"

namespace brindlet::sample {
namespace {

constexpr int patienceInMilliseconds = 20'000;

constexpr const char* schema =
    "PRAGMA synchronous = OFF;"
    "CREATE TABLE IF NOT EXISTS uids (mailbox INTEGER, uid INTEGER, message INTEGER,"
    " PRIMARY KEY (mailbox, uid)) WITHOUT ROWID;"
    "CREATE TABLE IF NOT EXISTS next_uids (mailbox INTEGER PRIMARY KEY, uid INTEGER)";

}  // namespace

struct MailboxUids::State {
    explicit State(sqlite3* open) : database(open) {}

    bool execute(const char* text) {
        return sqlite3_exec(database, text, nullptr, nullptr, nullptr) == SQLITE_OK;
    }

    /// Goes last, after all statements.
    struct Closer {
        sqlite3* database;
        ~Closer() { sqlite3_close(database); }
    };

    sqlite3* database;
    Closer closer{database};

    Statement known{database, "SELECT uid, message FROM uids WHERE mailbox = ?1 ORDER BY uid"};
    Statement add{database, "INSERT INTO uids (mailbox, uid, message) VALUES (?1, ?2, ?3)"};
    Statement remove{database, "DELETE FROM uids WHERE mailbox = ?1 AND uid = ?2"};
    Statement next{database, "SELECT uid FROM next_uids WHERE mailbox = ?1"};
    Statement setNext{database, "INSERT OR REPLACE INTO next_uids (mailbox, uid) VALUES (?1, ?2)"};
};

std::unique_ptr<MailboxUids> MailboxUids::open(const std::string& path) {
    sqlite3* database = nullptr;
    const bool opened =
        sqlite3_open_v2(path.c_str(), &database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE,
                        nullptr) == SQLITE_OK;
    sqlite3_busy_timeout(database, patienceInMilliseconds);
    if (!opened || sqlite3_exec(database, schema, nullptr, nullptr, nullptr) != SQLITE_OK) {
        sqlite3_close(database);
        return nullptr;
    }
    return std::unique_ptr<MailboxUids>(new MailboxUids(database));
}

MailboxUids::MailboxUids(sqlite3* database) : state_(std::make_unique<State>(database)) {}

MailboxUids::~MailboxUids() = default;

std::optional<ImapMailbox> MailboxUids::assign(std::int64_t mailbox,
                                               std::vector<std::int64_t> messages) {
    State& state = *state_;
    if (!state.execute("BEGIN IMMEDIATE")) return std::nullopt;
    std::sort(messages.begin(), messages.end());
    std::vector<bool> has(messages.size());

    ImapMailbox opened;
    opened.validity = static_cast<std::uint32_t>(mailbox);
    std::vector<std::int64_t> gone;
    state.known.number(1, mailbox);
    while (state.known.step()) {
        const std::int64_t uid = state.known.integer(0);
        const std::int64_t message = state.known.integer(1);
        const auto found = std::lower_bound(messages.begin(), messages.end(), message);
        if (found == messages.end() || *found != message) {
            gone.push_back(uid);
            continue;
        }
        has[static_cast<std::size_t>(found - messages.begin())] = true;
        opened.messages.push_back({static_cast<std::uint32_t>(uid), message});
    }
    bool good = true;
    for (const std::int64_t uid : gone)
        good = state.remove.number(1, mailbox).number(2, uid).run() && good;

    const std::int64_t first = state.next.number(1, mailbox).step() ? state.next.integer(0) : 1;
    state.next.reset();
    std::int64_t next = first;
    for (std::size_t i = 0; i < messages.size(); ++i) {
        if (has[i]) continue;
        good = state.add.number(1, mailbox).number(2, next).number(3, messages[i]).run() && good;
        opened.messages.push_back({static_cast<std::uint32_t>(next++), messages[i]});
    }
    if (next != first) good = state.setNext.number(1, mailbox).number(2, next).run() && good;
    opened.nextUid = static_cast<std::uint32_t>(next);
    if (good && state.execute("COMMIT")) return opened;
    state.execute("ROLLBACK");
    return std::nullopt;
}

}  // namespace brindlet::sample
