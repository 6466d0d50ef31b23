#include "app/demo/DemoPast.h"

#include <algorithm>
#include <map>
#include <utility>

#include "app/demo/PastMail.h"
#include "platform/Clock.h"
#include "stores/Calibration.h"
#include "stores/History.h"
#include "stores/Interrupted.h"
#include "stores/Rules.h"
#include "stores/Schedule.h"
#include "stores/Seen.h"

namespace brindlet::demo {
namespace {

constexpr double day = 86'400;

/// A scan as the person remembers it: where and when, and what became of it.
struct PastScan {
    std::string account;
    std::string folder;
    /// Both in days: how long ago it was, and how far back it looked from there.
    double ago = 0;
    double reach = 0;
    /// The folder its junk was moved to; none was moved when empty.
    std::string movedTo = {};
    /// Its junk, or what of it was not moved, lies in the folder still.
    bool junkStays = false;
    /// Its file has been cleared away since.
    bool fileGone = false;
    /// How many days it has been in the bin.
    std::optional<double> binnedAgo = {};
};

ScanRecord::Saved saved(const sample::SampleFacts::Message& message) {
    ScanRecord::Saved line;
    line.n = message.id;
    line.messageID = message.messageId;
    line.sender = message.sender;
    line.subject = message.subject;
    line.category = message.category;
    line.isJunk = isJunkMail(message);
    line.approved = line.isJunk && message.messageId.has_value();
    return line;
}

/// Writes one past after another into the stores; what comes first is the oldest.
class Past {
  public:
    Past(const Services& services, const sample::SampleFacts& facts)
        : mail_(facts),
          now_(services.clock.now()),
          history_(services),
          seen_(services),
          interrupted_(services) {}

    void add(const PastScan& scan);
    /// The move of that scan, the latest of its folder, has not come to its end.
    void interrupt(const PastScan& scan);
    void save() { history_.save(); }

  private:
    PastMail::Span span(const PastScan& scan) const {
        return {now_ - (scan.ago + scan.reach) * day, now_ - scan.ago * day};
    }
    std::vector<const sample::SampleFacts::Message*> movedBy(const PastScan& scan) const;

    const PastMail mail_;
    const Date now_;
    History history_;
    Seen seen_;
    Interrupted interrupted_;
};

std::vector<const sample::SampleFacts::Message*> Past::movedBy(const PastScan& scan) const {
    if (scan.movedTo.empty()) return {};
    auto moved = mail_.sent(scan.account, scan.movedTo, span(scan));
    std::erase_if(moved, [](const auto* each) { return !isJunkMail(*each) || !each->messageId; });
    return moved;
}

void Past::add(const PastScan& scan) {
    auto found = mail_.sent(scan.account, scan.folder, span(scan));
    if (!scan.junkStays) std::erase_if(found, [](const auto* each) { return isJunkMail(*each); });
    const auto moved = movedBy(scan);
    found.insert(found.end(), moved.begin(), moved.end());

    ScanRecord record;
    record.started = now_ - scan.ago * day;
    record.account = mail_.address(scan.account);
    record.folder = scan.folder;
    record.scanned = std::ssize(found);
    record.junk = std::ranges::count_if(found, [](const auto* each) { return isJunkMail(*each); });
    if (!moved.empty()) record.movedTo = scan.movedTo;
    for (const auto* each : moved)
        record.moved.push_back({*each->messageId, each->sender, each->subject});
    if (scan.binnedAgo) record.deletedAt = now_ - *scan.binnedAgo * day;
    (scan.binnedAgo ? history_.deleted : history_.records).mutate([&](auto& records) {
        records.push_back(record);
    });

    std::vector<ScanRecord::Saved> lines;
    std::vector<std::pair<std::string, bool>> decided;
    for (const auto* each : found) {
        lines.push_back(saved(*each));
        if (each->messageId) decided.emplace_back(*each->messageId, isJunkMail(*each));
    }
    if (!scan.fileGone) history_.writeScan(lines, record.started);
    seen_.mark(decided, record.account, record.folder);
    std::vector<std::string> gone;
    for (const auto* each : moved) gone.push_back(*each->messageId);
    seen_.mark(gone, true, record.account, scan.movedTo);
}

void Past::interrupt(const PastScan& scan) {
    PendingMove move;
    move.account = mail_.address(scan.account);
    move.source = scan.folder;
    move.destination = scan.movedTo;
    move.folderLabel = scan.folder;
    for (const auto* each : mail_.sent(scan.account, scan.folder, span(scan)))
        if (isJunkMail(*each) && each->messageId)
            move.remaining.push_back({each->id, *each->messageId});
    move.done = std::ssize(movedBy(scan));
    move.started = now_ - scan.ago * day + 180;
    if (!move.remaining.empty()) interrupted_.begin(std::move(move));
}

void giveScans(const Services& services, const sample::SampleFacts& facts) {
    const PastScan unfinished{"Fernhill", "INBOX", 12.3, 30, "Junk", true};
    Past past(services, facts);
    past.add({.account = "Lockwood Surveying",
              .folder = "Archive",
              .ago = 61.6,
              .reach = 1'500,
              .junkStays = true,
              .binnedAgo = 28.5});
    past.add({.account = "Fernhill",
              .folder = "INBOX",
              .ago = 140.5,
              .reach = 365,
              .movedTo = "Junk",
              .binnedAgo = 5});
    past.add(
        {.account = "Fernhill", .folder = "Archive", .ago = 75.4, .reach = 365, .fileGone = true});
    past.add(
        {.account = "Fernhill", .folder = "INBOX", .ago = 48.7, .reach = 400, .movedTo = "Junk"});
    past.add({.account = "Lockwood Surveying",
              .folder = "Inbox",
              .ago = 33.2,
              .reach = 365,
              .movedTo = "Junk Email"});
    past.add({.account = "Gmail", .folder = "INBOX", .ago = 19.5, .reach = 30, .junkStays = true});
    past.add(unfinished);
    past.interrupt(unfinished);
    past.save();
}

/// Three corrections make a rule that shows how often it was made.
void giveRules(const Services& services, const sample::SampleFacts& facts) {
    const auto senders = PastMail(facts).frequentSenders("Fernhill", "INBOX");
    const auto writer = [&](Category category, std::size_t place) {
        const auto found = senders.find(category);
        return found != senders.end() && place < found->second.size() ? found->second[place]
                                                                      : PastMail::Writer();
    };
    Rules rules(services);
    const auto add = [&](const PastMail::Writer& from, std::optional<Category> category,
                         Rule::Verdict verdict, Rule::Scope scope, int times) {
        for (int i = 0; i < times; ++i)
            rules.add(from.sender, category, verdict, scope, from.subject, {});
    };
    using enum Category;
    add(writer(deliveryFailureBounce, 0), {}, Rule::Verdict::junk, Rule::Scope::always, 1);
    // A rule that an early version had written by mistake.
    rules.all.mutate([](auto& all) {
        for (auto& rule : all) rule.legacy = true;
    });
    add(writer(advertisingOrPromotion, 0), advertisingOrPromotion, Rule::Verdict::junk,
        Rule::Scope::always, 3);
    add(writer(newsletterOrDigest, 0), newsletterOrDigest, Rule::Verdict::keep, Rule::Scope::always,
        2);
    rules.add("parish.example", std::nullopt, Rule::Verdict::keep, Rule::Scope::always,
              "added by hand", {});
    add(writer(newsletterOrDigest, 1), newsletterOrDigest, Rule::Verdict::keep,
        Rule::Scope::session, 2);
    add(writer(advertisingOrPromotion, 1), advertisingOrPromotion, Rule::Verdict::keep,
        Rule::Scope::session, 1);
    add(writer(socialMediaBlast, 1), socialMediaBlast, Rule::Verdict::junk, Rule::Scope::session,
        1);
}

void giveFlips(const Services& services) {
    Calibration calibration(services);
    constexpr int corrections = 14, against = 2, senders = 7;
    const auto correct = [&](Category category, Rule::Verdict verdict, int times) {
        for (int i = 0; i < times; ++i)
            calibration.record(category, verdict,
                               "sender" + std::to_string(i % senders) + ".example");
    };
    correct(Category::socialMediaBlast, Rule::Verdict::keep, corrections);
    correct(Category::socialMediaBlast, Rule::Verdict::junk, against);
    correct(Category::accountWelcomeOrInvitation, Rule::Verdict::junk, corrections - 1);
}

void giveSchedule(const Services& services, const sample::SampleFacts& facts) {
    const PastMail mail(facts);
    Schedule schedule(services);
    schedule.setWatched({{mail.id("Fernhill"), "INBOX"},
                         {mail.id("Lockwood Surveying"), "Inbox"},
                         // Was deleted in the mail program since.
                         {mail.id("Fernhill"), "Lists/Running"}});
    // Not due for hours, so that nothing begins by itself.
    schedule.setLastRun(services.clock.now() - day / 8);
    schedule.setEnabled(true);
}

}  // namespace

void givePast(const Services& services, const sample::SampleFacts& facts) {
    giveScans(services, facts);
    giveRules(services, facts);
    giveFlips(services);
    giveSchedule(services, facts);
}

}  // namespace brindlet::demo
