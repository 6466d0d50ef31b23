#include "sample/SimulatedMail.h"

#include <algorithm>
#include <array>
#include <limits>

#include "base/Cancel.h"
#include "base/Files.h"
#include "base/Text.h"
#include "mail/PercentEncoding.h"
#include "sample/GmailLabels.h"
#include "sample/MailLayout.h"

namespace brindlet::sample {
namespace {

/// Gmail's own folders that are more than a label: what comes into them leaves all others.
bool isGmailBin(std::string_view path) {
    constexpr std::array<std::string_view, 3> bins{"[Gmail]/Spam", "[Gmail]/Trash", "[Gmail]/Bin"};
    return std::find(bins.begin(), bins.end(), path) != bins.end();
}

}  // namespace

std::string leafName(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    return std::string(slash == std::string_view::npos ? path : path.substr(slash + 1));
}

std::unique_ptr<SimulatedMail> SimulatedMail::open(const std::string& home,
                                                   std::function<void(MoveStep)> hook) {
    auto settings = readMailSettings(home);
    if (!settings) return nullptr;
    auto index = MailIndex::open(home + '/' + std::string(dataRootInHome) + '/' +
                                 std::string(indexInDataRoot));
    if (!index) return nullptr;
    std::unique_ptr<SimulatedMail> mail(
        new SimulatedMail(home, std::move(*settings), std::move(index), std::move(hook)));
    mail->mover_.settle();
    mail->now_ = mail->index_->lastDue().value_or(0);
    mail->runLaterMoves();
    mail->now_ = 0;
    return mail;
}

SimulatedMail::SimulatedMail(std::string home, MailSettings settings,
                             std::unique_ptr<MailIndex> index, std::function<void(MoveStep)> hook)
    : home_(std::move(home)),
      settings_(std::move(settings)),
      index_(std::move(index)),
      mover_(home_, *index_, std::move(hook)) {}

std::optional<SimulatedMail::Mailbox> SimulatedMail::parsed(const MailIndex::Mailbox& row) const {
    constexpr std::string_view separator = "://";
    const std::string_view url = row.url;
    const std::size_t start = url.find(separator);
    if (start == std::string_view::npos) return std::nullopt;
    const std::string_view rest = url.substr(start + separator.size());
    const std::size_t slash = rest.find('/');
    if (slash == std::string_view::npos) return std::nullopt;
    const auto& accounts = settings_.accounts;
    const auto owner = std::find_if(accounts.begin(), accounts.end(), [&](const auto& account) {
        return account.id == rest.substr(0, slash);
    });
    if (owner == accounts.end()) return std::nullopt;
    const std::string path(rest.substr(slash + 1));
    return Mailbox{row.row, static_cast<std::size_t>(owner - accounts.begin()),
                   percentDecoded(path).value_or(path)};
}

std::vector<SimulatedMail::Mailbox> SimulatedMail::mailboxes(std::size_t account) {
    std::vector<Mailbox> all;
    if (!settings_.accounts[account].enabled) return all;
    for (const MailIndex::Mailbox& row : index_->mailboxes()) {
        auto mailbox = parsed(row);
        if (mailbox && mailbox->account == account) all.push_back(std::move(*mailbox));
    }
    return all;
}

std::optional<SimulatedMail::Mailbox> SimulatedMail::mailbox(std::int64_t row) {
    auto found = known_.find(row);
    if (found == known_.end()) {
        for (const MailIndex::Mailbox& each : index_->mailboxes())
            if (auto mailbox = parsed(each)) known_.try_emplace(each.row, std::move(*mailbox));
        found = known_.find(row);
    }
    return found == known_.end() ? std::nullopt : std::optional(found->second);
}

std::optional<SimulatedMail::Mailbox> SimulatedMail::mailboxAt(std::size_t account,
                                                               std::string_view path) {
    std::optional<Mailbox> nearly;
    for (Mailbox& mailbox : mailboxes(account)) {
        if (mailbox.path == path) return std::move(mailbox);
        if (!nearly && lowercased(mailbox.path) == lowercased(path)) nearly = std::move(mailbox);
    }
    return nearly;
}

std::optional<SimulatedMail::Mailbox> SimulatedMail::makeMailbox(std::size_t account,
                                                                 const std::string& path) {
    const auto& owner = settings_.accounts[account];
    if (!owner.enabled || mailboxAt(account, path)) return std::nullopt;
    const std::int64_t row = index_->addMailbox(mailboxUrl(owner.scheme, owner.id, path));
    if (row == 0) return std::nullopt;
    Mailbox made{row, account, path};
    files::createDirectories(place(made).data + "/Messages");
    fresh_.insert(row);
    return made;
}

MessageMover::Place SimulatedMail::place(const Mailbox& mailbox) const {
    const std::string root = home_ + '/' + std::string(dataRootInHome) + '/';
    return {mailbox.row,
            root + mailboxDataDirectory(settings_.accounts[mailbox.account].id, mailbox.path)};
}

std::optional<std::string> SimulatedMail::messageFile(std::int64_t message) {
    const auto filed = mailbox(index_->filedIn(message));
    if (!filed) return std::nullopt;
    const std::string folder = messageDirectory(place(*filed).data, message) + '/';
    for (const FileKind kind : {FileKind::whole, FileKind::partial})
        if (std::string path = folder + messageFileName(message, kind); files::exists(path))
            return path;
    return std::nullopt;
}

bool SimulatedMail::move(std::int64_t message, std::int64_t from, std::int64_t to, MovedBy by) {
    const auto source = mailbox(from);
    const auto destination = mailbox(to);
    if (!source || !destination || source->account != destination->account) return false;
    if (!index_->lists(from, message)) return false;
    if (from == to) return true;
    if (settings_.accounts[source->account].gmail)
        return moveLabel(message, *source, *destination, by);
    return refileInTime(message, to);
}

bool SimulatedMail::moveLabel(std::int64_t message, const Mailbox& from, const Mailbox& to,
                              MovedBy by) {
    if (isGmailBin(to.path)) return refileInTime(message, to.row);
    const auto filed = mailbox(index_->filedIn(message));
    if (!filed) return false;
    if (isGmailBin(filed->path)) {
        // Out of Spam or the bin it goes back among all the others, with the label alone.
        const auto all = mailboxAt(to.account, gmailAllMail);
        if (!all || all->row == to.row) return refileInTime(message, to.row);
        const std::int64_t row = refile(message, all->row);
        if (row != 0) index_->addLabel(row, to.row);
        return row != 0;
    }
    if (filed->row == to.row) return true;
    const bool leaves = by == MovedBy::person && from.path != gmailAllMail;
    if (leaves && filed->row == from.row) return refileInTime(message, to.row);
    index_->addLabel(message, to.row);
    if (leaves) index_->removeLabel(message, from.row);
    return true;
}

bool SimulatedMail::refileInTime(std::int64_t message, std::int64_t to) {
    const double late = settings_.behaviour.slowServer;
    if (late <= 0) return refile(message, to) != 0;
    index_->addLaterMove(now_ + late, {message, to, 0});
    return true;
}

std::int64_t SimulatedMail::refile(std::int64_t message, std::int64_t to) {
    const auto source = mailbox(index_->filedIn(message));
    const auto destination = mailbox(to);
    if (!source || !destination) return 0;
    const bool gmail = settings_.accounts[source->account].gmail;
    const bool bare = gmail && (isGmailBin(source->path) || isGmailBin(destination->path));
    const std::int64_t row = mover_.move(message, place(*source), place(*destination),
                                         bare ? MailIndex::Labels::drop : MailIndex::Labels::keep);
    // What comes back out of a folder that is new as well stays, or it would go on for ever.
    const double undone = settings_.behaviour.undoesFreshFolder;
    if (row != 0 && undone > 0 && fresh_.contains(to) && !fresh_.contains(source->row))
        index_->addLaterMove(now_ + undone, {row, source->row, 0});
    return row;
}

void SimulatedMail::advance(double seconds) {
    now_ += seconds;
    const auto& behaviour = settings_.behaviour;
    if (behaviour.pace > 0) (void)CancelToken().sleep(seconds * behaviour.pace);
    if (behaviour.slowServer > 0 || behaviour.undoesFreshFolder > 0) runLaterMoves();
}

void SimulatedMail::comeToRest() {
    // What the server does late may be undone later still.
    while (const auto due = index_->lastDue()) {
        now_ = std::max(now_, *due);
        runLaterMoves();
    }
}

void SimulatedMail::runLaterMoves() {
    while (const auto later = index_->firstLaterMove(now_)) {
        // One that has moved meanwhile has another row id, and stays where it is.
        refile(later->message, later->mailbox);
        index_->removeLaterMove(later->id);
    }
}

}  // namespace brindlet::sample
