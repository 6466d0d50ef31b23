#include "sample/SampleAccounts.h"

#include <array>

namespace brindlet::sample {
namespace {

// The first account is the fullest; its INBOX holds half of all messages. The permilles of all
// accounts add up to a thousand.
constexpr std::array<SampleFolder, 15> fernhill{{
    {"INBOX", "inbox", 500, Mix::inbox},
    {"Junk", "junk", 45, Mix::junk},
    {"Archive", "archive", 36, Mix::archive},
    {"Archive/2019", "custom", 10, Mix::archive},
    {"Sent Messages", "sent", 35, Mix::sent},
    {"Drafts", "drafts", 3, Mix::drafts},
    {"Deleted Messages", "trash", 25, Mix::trash},
    {"Projects", "custom", 4, Mix::work},
    {"Projects/Harbour House", "custom", 9, Mix::work},
    {"Projects/Junk", "junk", 2, Mix::junk},
    {"Choir", "custom", 4, Mix::project},
    {"Küche & Garten", "custom", 6, Mix::project},
    {"Lists", "custom", 0, Mix::mailingList, Storage::none},
    {"Lists/Walking", "custom", 2, Mix::mailingList},
    {"Someday", "custom", 0, Mix::project, Storage::none},
}};

// Every message lies in All Mail; the inbox and the labels only point to it. Spam and Trash lie
// outside All Mail. The last label is there for whoever moves by the mail program's menu, which
// shows what stands and makes nothing.
constexpr std::array<SampleFolder, 15> gmail{{
    {"[Gmail]", "custom", 0, Mix::inbox, Storage::none},
    {"[Gmail]/All Mail", "archive", 205, Mix::inbox},
    {"INBOX", "inbox", 0, Mix::inbox, Storage::labelled},
    {"[Gmail]/Sent Mail", "sent", 0, Mix::sent, Storage::labelled},
    {"[Gmail]/Important", "custom", 0, Mix::inbox, Storage::labelled},
    {"[Gmail]/Starred", "custom", 0, Mix::inbox, Storage::labelled},
    {"[Gmail]/Drafts", "drafts", 0, Mix::drafts, Storage::labelled},
    {"[Gmail]/Spam", "junk", 15, Mix::junk},
    {"[Gmail]/Trash", "trash", 10, Mix::trash},
    {"Receipts", "custom", 0, Mix::archive, Storage::labelled},
    {"Travel", "custom", 0, Mix::archive, Storage::labelled},
    {"Travel/Côte d'été", "custom", 0, Mix::archive, Storage::labelled},
    {"Newsletters", "custom", 0, Mix::mailingList, Storage::labelled},
    {"Empty Label", "custom", 0, Mix::archive, Storage::labelled},
    {"Brindlet Junk", "custom", 0, Mix::junk, Storage::none},
}};

constexpr std::array<SampleFolder, 9> lockwood{{
    {"Inbox", "inbox", 40, Mix::work},
    {"Sent Items", "sent", 8, Mix::sent},
    {"Deleted Items", "trash", 6, Mix::trash},
    {"Junk Email", "junk", 4, Mix::junk},
    {"Junk E-mail", "custom", 1, Mix::junk},
    {"Drafts", "drafts", 1, Mix::drafts},
    {"Archive", "archive", 4, Mix::archive},
    {"Bids", "custom", 2, Mix::work},
    {"Bids/Boswick & Söhne", "custom", 2, Mix::work},
}};

// A percent sign in the last name's URL was left unescaped by some import, so that the path cannot
// be decoded; its folder's name is the raw path.
constexpr std::array<SampleFolder, 3> onThisMac{{
    {"Old letters", "custom", 12, Mix::project},
    {"Archiv 2016", "custom", 7, Mix::archive},
    {"Sale%20100%", "custom", 2, Mix::junk, Storage::filed, "Sale%20100%"},
}};

constexpr std::array<SampleAccount, 4> accounts{{
    {"Fernhill", "imap", "3B1F7C52-9A40-4E1D-8C66-51D0E2A7F913", "Robin Ashdown",
     "robin.ashdown@fernhill.example", fernhill},
    {"Gmail", "imap", "A94D20E6-17C8-4B5F-9D31-0C7E64B8A2F5", "Robin Ashdown",
     "robin.ashdown@gmail.example", gmail, true},
    {"Lockwood Surveying", "ews", "5E08D9B3-62FA-4C97-B1A4-E83F0D2C7561", "Robin Ashdown",
     "r.ashdown@lockwoodsurveying.example", lockwood},
    {"On My Mac", "local", "C7126A8F-D35B-4F02-A9E8-4B90F1E6D3C4", "Robin Ashdown", "", onThisMac},
}};

constexpr std::array<std::string_view, 4> foreign{{
    "imap://robin@oldmail.example/INBOX",
    "local://0B1C2D3E-4F50-6172-8394-A5B6C7D8E9F/Outbox",
    "ews://5E08D9B3-62FA-4C97-B1A4-E83F0D2C7561",
    "feeds",
}};

}  // namespace

std::span<const SampleAccount> sampleAccounts() {
    return accounts;
}

std::span<const std::string_view> foreignMailboxUrls() {
    return foreign;
}

}  // namespace brindlet::sample
