#include "sample/GmailMail.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Files.h"
#include "base/Text.h"
#include "base/ThreadSafety.h"
#include "sample/EmlxWriter.h"
#include "sample/GmailLabels.h"
#include "sample/MailboxUids.h"
#include "sample/SimulatedMail.h"

namespace brindlet::sample {
namespace {

const GmailLabel* ownByPath(std::string_view path) {
    const auto own = std::find_if(gmailLabels.begin(), gmailLabels.end(),
                                  [&](const GmailLabel& each) { return each.path == path; });
    return own == gmailLabels.end() ? nullptr : own;
}

const GmailLabel* ownByLabel(std::string_view label) {
    const auto own =
        std::find_if(gmailLabels.begin(), gmailLabels.end(), [&](const GmailLabel& each) {
            return !each.label.empty() && lowercased(each.label) == lowercased(label);
        });
    return own == gmailLabels.end() ? nullptr : own;
}

/// The folder that shows what has the label.
std::string folderOf(const std::string& label) {
    const GmailLabel* const own = ownByLabel(label);
    return own ? std::string(own->path) : label;
}

/// Files have plain line feeds.
std::string onTheWire(std::string_view text) {
    std::string wire;
    wire.reserve(text.size() + text.size() / 32);
    char before = '\0';
    for (const char c : text) {
        if (c == '\n' && before != '\r') wire += '\r';
        wire += c;
        before = c;
    }
    return wire;
}

/// With the empty line behind it; of a message that is nothing but a header, all.
std::string_view headerOf(std::string_view message) {
    if (message.starts_with('\n')) return message.substr(0, 1);
    for (std::size_t end = message.find('\n'); end != std::string_view::npos;
         end = message.find('\n', end + 1)) {
        const std::string_view rest = message.substr(end + 1);
        if (rest.starts_with('\n')) return message.substr(0, end + 2);
        if (rest.starts_with("\r\n")) return message.substr(0, end + 3);
    }
    return message;
}

}  // namespace

struct GmailMail::State {
    State(std::unique_ptr<SimulatedMail> openMail, std::unique_ptr<MailboxUids> openUids)
        : mail(std::move(openMail)), uids(std::move(openUids)) {}

    Mutex mutex;
    const std::unique_ptr<SimulatedMail> mail BRINDLET_GUARDED_BY(mutex);
    const std::unique_ptr<MailboxUids> uids BRINDLET_GUARDED_BY(mutex);
};

class GmailMail::Account : public ImapAccount {
  public:
    Account(State& state, std::size_t number) : state_(state), number_(number) {}

    std::vector<Name> mailboxes() override;
    std::optional<ImapMailbox> open(const std::string& name) override;
    std::optional<Marks> marks(std::int64_t message) override;
    std::string header(std::int64_t message) override;
    std::int64_t size(std::int64_t message) override;
    std::vector<std::string> labels(std::int64_t message) override;
    bool mayChange(const std::string& label) override;
    bool addLabel(std::int64_t message, const std::string& label) override;
    bool removeLabel(std::int64_t message, const std::string& label) override;

  private:
    std::string text(std::int64_t message);

    State& state_;
    const std::size_t number_;
};

std::unique_ptr<GmailMail> GmailMail::open(const std::string& home) {
    auto mail = SimulatedMail::open(home);
    if (!mail) return nullptr;
    auto uids = MailboxUids::open(home + "/gmail-server.uids");
    if (!uids) return nullptr;
    return std::unique_ptr<GmailMail>(
        new GmailMail(std::make_unique<State>(std::move(mail), std::move(uids))));
}

GmailMail::GmailMail(std::unique_ptr<State> state) : state_(std::move(state)) {}

GmailMail::~GmailMail() = default;

std::unique_ptr<ImapAccount> GmailMail::account(const std::string& address) {
    Lock lock(state_->mutex);
    const auto& accounts = state_->mail->settings().accounts;
    for (std::size_t i = 0; i < accounts.size(); ++i)
        for (const std::string& own : accounts[i].addresses)
            if (accounts[i].gmail && lowercased(own) == lowercased(address))
                return std::make_unique<Account>(*state_, i);
    return nullptr;
}

std::vector<ImapAccount::Name> GmailMail::Account::mailboxes() {
    Lock lock(state_.mutex);
    std::vector<Name> all;
    for (auto& mailbox : state_.mail->mailboxes(number_)) {
        Name name{std::move(mailbox.path), {}};
        if (name.name == gmailRoot) name.attributes.emplace_back("\\Noselect");
        const GmailLabel* const own = ownByPath(name.name);
        if (own && !own->attribute.empty()) name.attributes.emplace_back(own->attribute);
        all.push_back(std::move(name));
    }
    return all;
}

std::optional<ImapMailbox> GmailMail::Account::open(const std::string& name) {
    // The one name whose letter case does not matter (RFC 3501, section 5.1).
    const std::string path = lowercased(name) == "inbox" ? "INBOX" : name;
    if (path == gmailRoot) return std::nullopt;
    Lock lock(state_.mutex);
    const auto mailbox = state_.mail->mailboxAt(number_, path);
    if (!mailbox || mailbox->path != path) return std::nullopt;
    return state_.uids->assign(mailbox->row, state_.mail->index().messages(mailbox->row));
}

std::optional<ImapAccount::Marks> GmailMail::Account::marks(std::int64_t message) {
    Lock lock(state_.mutex);
    const auto marks = state_.mail->index().marks(message);
    return marks ? std::optional(Marks{marks->read, marks->flagged}) : std::nullopt;
}

/// What the mail program has not fetched yet the server has all the same; what it has of it here is
/// no more than its Message-ID.
std::string GmailMail::Account::text(std::int64_t message) {
    std::optional<std::string> path;
    std::optional<std::string> id;
    {
        Lock lock(state_.mutex);
        path = state_.mail->messageFile(message);
        if (!path) id = state_.mail->index().messageId(message);
    }
    const auto file = path ? files::read(*path) : std::nullopt;
    if (file) return std::string(messageInEmlx(*file));
    return id ? "Message-ID: <" + *id + ">\n\n" : "\n";
}

std::string GmailMail::Account::header(std::int64_t message) {
    return onTheWire(headerOf(text(message)));
}

std::int64_t GmailMail::Account::size(std::int64_t message) {
    return static_cast<std::int64_t>(onTheWire(text(message)).size());
}

std::vector<std::string> GmailMail::Account::labels(std::int64_t message) {
    Lock lock(state_.mutex);
    SimulatedMail& mail = *state_.mail;
    std::vector<std::int64_t> folders = mail.index().labels(message);
    const std::int64_t filed = mail.index().filedIn(message);
    if (std::find(folders.begin(), folders.end(), filed) == folders.end()) folders.push_back(filed);
    std::vector<std::string> all;
    for (const std::int64_t row : folders) {
        const auto mailbox = mail.mailbox(row);
        if (!mailbox) continue;
        const GmailLabel* const own = ownByPath(mailbox->path);
        if (!own)
            all.push_back(mailbox->path);
        else if (!own->label.empty())
            all.emplace_back(own->label);
    }
    return all;
}

bool GmailMail::Account::mayChange(const std::string& label) {
    if (const GmailLabel* const own = ownByLabel(label)) return own->changes;
    return !label.starts_with('\\') && !label.starts_with(gmailRoot) &&
           lowercased(label) != "inbox";
}

bool GmailMail::Account::addLabel(std::int64_t message, const std::string& label) {
    Lock lock(state_.mutex);
    SimulatedMail& mail = *state_.mail;
    const std::string path = folderOf(label);
    auto folder = mail.mailboxAt(number_, path);
    if (!folder) folder = mail.makeMailbox(number_, path);
    // A mail program that made it in between was quicker.
    if (!folder) folder = mail.mailboxAt(number_, path);
    return folder && mail.move(message, mail.index().filedIn(message), folder->row,
                               SimulatedMail::MovedBy::script);
}

bool GmailMail::Account::removeLabel(std::int64_t message, const std::string& label) {
    Lock lock(state_.mutex);
    SimulatedMail& mail = *state_.mail;
    const auto folder = mail.mailboxAt(number_, folderOf(label));
    if (!folder || !mail.index().lists(folder->row, message)) return true;
    if (mail.index().filedIn(message) != folder->row) {
        mail.index().removeLabel(message, folder->row);
        return true;
    }
    // Filed under the label itself: without it, it lies among all others.
    const auto all = mail.mailboxAt(number_, gmailAllMail);
    return all && mail.move(message, folder->row, all->row, SimulatedMail::MovedBy::person);
}

}  // namespace brindlet::sample
