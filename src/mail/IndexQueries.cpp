#include "mail/IndexQueries.h"

#include <algorithm>

#include "base/Graphemes.h"
#include "base/Text.h"
#include "base/Utf8.h"
#include "mail/IndexReader.h"
#include "mail/MailStore.h"
#include "mail/PercentEncoding.h"

namespace brindlet {
namespace {

constexpr const char* mailboxQuery = R"(    SELECT m.ROWID, m.url,
           (SELECT COUNT(*) FROM messages x WHERE x.mailbox = m.ROWID),
           (SELECT COUNT(*) FROM labels  l WHERE l.mailbox_id = m.ROWID)
    FROM mailboxes m)";

constexpr const char* correspondentQuery = R"(    SELECT DISTINCT lower(a.address)
    FROM recipients r
    JOIN addresses a  ON a.ROWID = r.address
    JOIN messages  m  ON m.ROWID = r.message
    JOIN mailboxes mb ON mb.ROWID = m.mailbox
    WHERE mb.url LIKE '%Sent%')";

constexpr const char* filedQuery =
    "SELECT     m.ROWID, a.address, a.comment, s.subject, m.date_sent FROM messages m"
    R"(     LEFT JOIN addresses a ON a.ROWID = m.sender
    LEFT JOIN subjects  s ON s.ROWID = m.subject)"
    " WHERE m.mailbox = ?";

constexpr const char* labelledQuery =
    "SELECT     m.ROWID, a.address, a.comment, s.subject, m.date_sent"
    " FROM labels l JOIN messages m ON m.ROWID = l.message_id "
    R"(    LEFT JOIN addresses a ON a.ROWID = m.sender
    LEFT JOIN subjects  s ON s.ROWID = m.subject)"
    " WHERE l.mailbox_id = ?";

/// The index holds other people's bytes, and everything above deals in valid UTF-8.
void repair(std::string& text) {
    if (!isValidUtf8(text)) text = repairedUtf8(text);
}

std::string repaired(std::string_view bytes) {
    std::string text(bytes);
    repair(text);
    return text;
}

void writeSender(std::string& sender, std::string_view address, std::string_view comment) {
    if (comment.empty()) {
        sender = address;
    } else {
        sender.reserve(comment.size() + address.size() + 3);
        sender.append(comment).append(" <").append(address).append(">");
    }
    repair(sender);
}

std::string clauses(std::int64_t limit, std::int64_t since) {
    std::string text;
    if (since >= 1) text += " AND m.date_sent >= " + std::to_string(since);
    text += " ORDER BY m.date_sent DESC";
    if (limit >= 1) text += " LIMIT " + std::to_string(limit);
    return text;
}

}  // namespace

std::string filedMessagesQuery(std::int64_t limit, std::int64_t since) {
    return filedQuery + clauses(limit, since);
}

std::string labelledMessagesQuery(std::int64_t limit, std::int64_t since) {
    return labelledQuery + clauses(limit, since);
}

std::vector<MailMessage> readMessages(const std::string& database, const std::string& query,
                                      std::int64_t mailbox) {
    std::vector<MailMessage> rows;
    // Room that stays untouched takes no memory, while growing would touch it twice.
    rows.reserve(std::size_t{1} << 16);
    IndexReader reader(database, query);
    reader.bind(mailbox);
    while (reader.step()) {
        MailMessage& row = rows.emplace_back();
        row.id = reader.integer(0);
        writeSender(row.sender, reader.bytes(1), reader.bytes(2));
        row.subject = reader.bytes(3);
        repair(row.subject);
        row.dateSent = reader.integer(4);
    }
    return rows;
}

std::vector<MailMessage> MailStore::messages(std::int64_t mailbox, std::int64_t limit,
                                             std::int64_t since) const {
    Lock turn(indexTurn_);
    const auto read = [&](const std::string& query) BRINDLET_REQUIRES(indexTurn_) {
        const auto copy = snapshotIndex();
        return copy ? readMessages(*copy, query, mailbox) : std::vector<MailMessage>();
    };
    auto rows = read(filedMessagesQuery(limit, since));
    // Nothing filed in it may mean a label, whose messages are filed elsewhere.
    if (rows.empty()) rows = read(labelledMessagesQuery(limit, since));
    return rows;
}

std::set<std::string> MailStore::correspondents() const {
    std::set<std::string> addresses;
    Lock turn(indexTurn_);
    const auto copy = snapshotIndex();
    if (!copy) return addresses;
    IndexReader reader(*copy, correspondentQuery);
    while (reader.step()) {
        const std::string value = repaired(reader.bytes(0));
        const std::string_view address = trimBlanks(value);
        if (address.find('@') != std::string_view::npos) addresses.emplace(address);
    }
    return addresses;
}

void MailStore::parseMailboxRow(std::int64_t id, std::string_view url, std::int64_t filed,
                                std::int64_t labelled, std::vector<MailAccount>& accounts) {
    constexpr std::string_view separator = "://";
    const auto scheme = url.find(separator);
    if (scheme == std::string_view::npos) return;
    const std::string_view rest = url.substr(scheme + separator.size());
    const auto slash = rest.find('/');
    if (slash == std::string_view::npos) return;
    const std::string_view accountID = rest.substr(0, slash);
    if (!hasExactlyGraphemes(accountID, 36)) return;

    const std::string_view path = rest.substr(slash + 1);
    MailFolder folder;
    folder.id = id;
    folder.name = percentDecoded(path).value_or(std::string(path));
    folder.count = std::max(filed, labelled);
    folder.role = MailFolder::roleForName(folder.name);
    auto account = std::find_if(accounts.begin(), accounts.end(),
                                [&](const MailAccount& each) { return each.id == accountID; });
    if (account == accounts.end())
        account = accounts.insert(
            account,
            MailAccount{.id = std::string(accountID), .address = {}, .name = {}, .folders = {}});
    account->folders.push_back(std::move(folder));
}

std::vector<MailAccount> MailStore::readAccounts() const {
    std::vector<MailAccount> accounts;
    {
        Lock turn(indexTurn_);
        const auto copy = snapshotIndex();
        if (!copy) return {};
        IndexReader reader(*copy, mailboxQuery);
        while (reader.step())
            parseMailboxRow(reader.integer(0), repaired(reader.bytes(1)), reader.integer(2),
                            reader.integer(3), accounts);
    }
    for (auto& account : accounts) sortFolders(account.folders);
    return accounts;
}

}  // namespace brindlet
