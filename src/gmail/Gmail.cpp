#include "gmail/Gmail.h"

#include <utility>

#include "base/Text.h"

namespace brindlet {
namespace {

constexpr std::string_view allMail = "[Gmail]/All Mail";
constexpr const char* inboxLabel = "\\Inbox";
constexpr const char* refused =
    "Gmail refused that app password. Check it was generated for this account and copied whole.";

Imap::Failed logIn(Imap& imap, std::string_view address, const Secret& password) {
    std::vector<std::string_view> parts = {"LOGIN \"", address, "\" \""};
    const auto groups = nonEmptyPieces(password.text(), ' ');
    parts.insert(parts.end(), groups.begin(), groups.end());
    parts.push_back("\"");
    const auto done = imap.command(Secret::joined(parts).text());
    return done ? Imap::Failed() : done.failure();
}

std::vector<std::uint32_t> found(const MessageIDs& messages, const std::vector<std::string>& ids) {
    std::vector<std::uint32_t> uids;
    for (const std::string& id : ids)
        if (const auto uid = messages.find(id)) uids.push_back(*uid);
    return uids;
}

Gmail::Filed failed(const Imap::Failure& failure) {
    return {0, failure.description()};
}

}  // namespace

Gmail::Gmail(KeyStore& keys, TlsConnector& connector, GmailServer server)
    : keys_(keys), connector_(connector), server_(std::move(server)) {}

/// Closed by its own end, wherever it comes.
Imap Gmail::conversation() {
    return Imap(connector_, server_.host, server_.port);
}

std::optional<std::string> Gmail::testAppPassword(const SignIn& signIn) {
    Imap imap = conversation();
    if (const auto failure = imap.connect()) return failure->description();
    if (logIn(imap, signIn.address, signIn.appPassword))
        return Imap::Failure{Imap::Failure::Kind::auth, refused}.description();
    const auto inbox = imap.select("INBOX");
    return inbox ? std::nullopt : std::optional(inbox.failure().description());
}

std::optional<Imap> Gmail::openGmailSession(const std::string& address) {
    const auto password = readAppPassword(address);
    if (!password) return std::nullopt;
    Imap imap = conversation();
    if (imap.connect() || logIn(imap, address, *password)) return std::nullopt;
    return imap;
}

Gmail::Filed Gmail::fileThroughGmail(const Filing& filing) {
    if (filing.ids.empty()) return {};
    auto imap = openGmailSession(filing.address);
    if (!imap) return {0, "Brindlet isn't connected to " + filing.address + " yet."};
    if (const auto selected = imap->select(allMail); !selected) return failed(selected.failure());
    const auto messages = imap->fetchMessageIDs();
    if (!messages) return failed(messages.failure());
    const auto uids = found(*messages, filing.ids);
    if (uids.empty()) return {0, "None of those messages are in this account."};
    if (const auto failure = imap->addLabels({filing.label}, uids)) return failed(*failure);
    if (filing.removeInbox)
        if (const auto failure = imap->removeLabels({inboxLabel}, uids)) return failed(*failure);
    return {std::ssize(uids), std::nullopt};
}

}  // namespace brindlet
