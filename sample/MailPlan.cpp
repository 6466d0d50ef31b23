#include "sample/MailPlan.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "sample/FamilyChoice.h"
#include "sample/MessageHeader.h"
#include "sample/Quantiles.h"
#include "sample/Random.h"

namespace brindlet::sample {
namespace {

struct TroubleShare {
    Trouble trouble;
    /// Of ten thousand messages; from 200 messages on there is at least one.
    std::size_t share;
};
constexpr std::array<TroubleShare, 9> troubles{{
    {Trouble::emptyFile, 8},
    {Trouble::binaryFile, 8},
    {Trouble::fileWithoutHeader, 8},
    {Trouble::missingFile, 15},
    {Trouble::noMessageId, 15},
    {Trouble::duplicateMessageId, 20},
    {Trouble::foldedMessageId, 150},
    {Trouble::noSenderRow, 10},
    {Trouble::noSubjectRow, 10},
}};

bool keepsOldMail(Mix mix) {
    return mix == Mix::archive || mix == Mix::project;
}

/// Makes the messages one by one; what concerns all of them together is shared out afterwards.
class Planner {
  public:
    Planner(const SampleOptions& options, const SampleTexts& texts)
        : options_(options), texts_(texts) {
        for (const SampleAccount& account : sampleAccounts())
            for (const SampleFolder& folder : account.folders) addFolder(account, folder);
    }

    MailPlan run() && {
        std::int64_t shared = 0;
        for (std::size_t folder = 0; folder < plan_.folders.size(); ++folder) {
            // Rounded up from the front, so that the first messages of all go to the first folder.
            const std::int64_t before = shareOf(shared);
            shared += plan_.folders[folder].folder->permille;
            for (std::int64_t i = before; i < shareOf(shared); ++i) addMessage(folder);
        }
        shareOutSizes();
        shareOutTroubles();
        numberRows();
        return std::move(plan_);
    }

  private:
    void addFolder(const SampleAccount& account, const SampleFolder& folder) {
        std::string url = mailboxUrl(account.scheme, account.id, folder.name);
        if (!folder.urlPath.empty())
            url = mailboxUrl(account.scheme, account.id, "").append(folder.urlPath);
        plan_.folders.push_back(
            {&account, &folder, mailboxDataDirectory(account.id, folder.name), std::move(url)});
    }

    std::int64_t shareOf(std::int64_t permille) const {
        return (options_.messages * permille + 999) / 1000;
    }

    void addMessage(std::size_t folder) {
        PlannedMessage message;
        message.folder = folder;
        message.key = mixed(options_.seed, plan_.messages.size());
        Random random(message.key);
        Mix mix = plan_.folders[folder].folder->mix;
        const SampleAccount& account = *plan_.folders[folder].account;
        const bool allMail = account.name == "Gmail" && mix == Mix::inbox;
        // What the other accounts keep apart lies in All Mail too.
        if (allMail && random.chance(100))
            mix = Mix::sent;
        else if (allMail && random.chance(10))
            mix = Mix::drafts;

        message.family = &chooseFamily(texts_, mix, random);
        choosePeople(message, mix, account, random);
        chooseMoment(message, mix, random);
        const Filling filling{texts_.words(), message.key, message.sender,
                              message.recipients.front(), message.dateSent};
        const auto& subjects = message.family->subjects;
        message.subjectLine = random.below(subjects.size());
        message.subject = subjects[message.subjectLine].subject.filled(filling);
        const bool fromContact = message.family->fromContact();
        if (fromContact && random.chance(450))
            message.subjectPrefix = "Re: ";
        else if (fromContact && random.chance(50))
            message.subjectPrefix = "Fwd: ";
        message.messageId = makeMessageId(message.sender, message.dateSent, random);
        message.flags.read = mix != Mix::inbox || random.chance(600);
        message.flags.flagged = random.chance(20);
        message.flags.remoteId = static_cast<std::int64_t>(plan_.messages.size()) + 101;
        message.flags.conversation = static_cast<std::int64_t>(message.key >> 40);
        if (random.chance(30)) message.kind = FileKind::partial;
        if (allMail) chooseLabels(message, mix, random);
        plan_.messages.push_back(std::move(message));
    }

    const Person& anyContact(bool atWork, Random& random) const {
        const auto& people = atWork ? texts_.colleagues() : texts_.contacts();
        // The smaller of two, since some people write more than others.
        const std::uint64_t one = random.below(people.size());
        return people[std::min(one, random.below(people.size()))];
    }

    void choosePeople(PlannedMessage& message, Mix mix, const SampleAccount& account,
                      Random& random) const {
        // Mail that lies on the Mac alone came through the first account once.
        const Person owner =
            account.address.empty() ? sampleAccounts().front().owner() : account.owner();
        const bool atWork = message.family->marked("work");
        if (writtenByOwner(mix)) {
            message.sender = owner;
            message.recipients.push_back(anyContact(atWork, random));
            if (random.chance(150)) message.recipients.push_back(anyContact(atWork, random));
            // Addresses as people type them, and a group that has none.
            if (random.chance(40)) {
                Person& first = message.recipients.front();
                first.name.clear();
                if (first.address.front() >= 'a' && first.address.front() <= 'z')
                    first.address.front() = static_cast<char>(first.address.front() - 'a' + 'A');
            }
            if (random.chance(15)) message.recipients.push_back({"", "undisclosed-recipients:;"});
            return;
        }
        message.recipients.push_back(owner);
        const auto& senders = message.family->senders;
        if (senders.empty()) {
            message.sender = anyContact(atWork, random);
            if (random.chance(200)) message.recipients.push_back(anyContact(atWork, random));
        } else {
            const std::uint64_t one = random.below(senders.size());
            message.sender = senders[std::min(one, random.below(senders.size()))];
        }
        if (random.chance(40)) message.sender.name.clear();
    }

    void chooseMoment(PlannedMessage& message, Mix mix, Random& random) const {
        const auto share = static_cast<std::int64_t>(random.below(1000));
        const std::int64_t least =
            keepsOldMail(mix) ? keptAgeQuantile(share) : recentAgeQuantile(share);
        const std::int64_t most =
            keepsOldMail(mix) ? keptAgeQuantile(share + 1) : recentAgeQuantile(share + 1);
        message.dateSent =
            options_.newest - least -
            static_cast<std::int64_t>(random.below(static_cast<std::uint64_t>(most - least) + 1));
        message.flags.dateReceived =
            message.dateSent + static_cast<std::int64_t>(random.between(1, 90));
    }

    void chooseLabels(PlannedMessage& message, Mix mix, Random& random) const {
        const auto label = [&](std::string_view name) {
            for (std::size_t i = 0; i < plan_.folders.size(); ++i)
                if (plan_.folders[i].account == plan_.folders[message.folder].account &&
                    plan_.folders[i].folder->name == name)
                    message.labels.push_back(i);
        };
        const std::string_view category = message.family->category;
        if (mix == Mix::sent) return label("[Gmail]/Sent Mail");
        if (mix == Mix::drafts) return label("[Gmail]/Drafts");
        if (random.chance(600)) label("INBOX");
        if (random.chance(150)) label("[Gmail]/Important");
        if (message.flags.flagged) label("[Gmail]/Starred");
        if (category == "newsletterOrDigest" && random.chance(500)) label("Newsletters");
        if (category == "receiptOrOrderOrShipping" && random.chance(700)) label("Receipts");
        if (category == "receiptOrOrderOrShipping" && random.chance(150)) label("Travel");
        if (category == "personalMessageOrReminder" && random.chance(80))
            label("Travel/Côte d'été");
    }

    std::vector<std::size_t> shuffledNumbers(std::uint64_t purpose) const {
        std::vector<std::size_t> numbers(plan_.messages.size());
        std::iota(numbers.begin(), numbers.end(), std::size_t{0});
        Random random(mixed(options_.seed, purpose));
        random.shuffle(numbers);
        return numbers;
    }

    /// Every message gets a place of its own in the distribution, so that small samples follow it
    /// too.
    void shareOutSizes() {
        const auto places = shuffledNumbers(0x512e);
        for (std::size_t i = 0; i < places.size(); ++i) {
            PlannedMessage& message = plan_.messages[i];
            const std::size_t share = (places[i] * 100'000 + 50'000) / places.size();
            message.targetSize = messageSizeQuantile(static_cast<std::int64_t>(share));
            // One in five is HTML alone and two in three have an HTML part; what is very short is
            // mostly plain.
            Random random(mixed(message.key, 0x54a9e));
            const bool isShort = message.targetSize < 4'200;
            const std::uint64_t choice = random.below(1000);
            if (choice < (isShort ? 750u : 260u))
                message.shape = Shape::plain;
            else if (choice < (isShort ? 850u : 478u))
                message.shape = Shape::html;
            else
                message.shape = Shape::alternative;
        }
    }

    void shareOutTroubles() {
        const auto order = shuffledNumbers(0x7a0b1e);
        std::size_t next = 0;
        for (const auto& [trouble, share] : troubles) {
            std::size_t count = order.size() * share / 10'000;
            if (order.size() >= 200) count = std::max<std::size_t>(count, 1);
            for (; count > 0; --count, ++next) {
                PlannedMessage& message = plan_.messages[order[next]];
                message.trouble = trouble;
                if (trouble != Trouble::none) message.kind = FileKind::whole;
                switch (trouble) {
                    case Trouble::emptyFile:
                    case Trouble::binaryFile:
                    case Trouble::fileWithoutHeader:
                    case Trouble::noMessageId:
                        message.messageId.clear();
                        break;
                    case Trouble::duplicateMessageId:
                        message.messageId = plan_.messages[order.back()].messageId;
                        break;
                    case Trouble::noSubjectRow:
                        message.subject.clear();
                        message.subjectPrefix = {};
                        break;
                    default:
                        break;
                }
            }
        }
    }

    /// Later mail has higher row ids, but for what was moved or fetched again since; there are
    /// gaps.
    void numberRows() {
        Random random(mixed(options_.seed, 0x20f1d));
        std::vector<std::pair<std::int64_t, std::size_t>> order;
        for (std::size_t i = 0; i < plan_.messages.size(); ++i) {
            std::int64_t moment = plan_.messages[i].flags.dateReceived;
            if (random.chance(50)) moment = options_.newest - 3600;
            order.emplace_back(moment, i);
        }
        std::sort(order.begin(), order.end());
        std::vector<PlannedMessage> sorted;
        sorted.reserve(order.size());
        std::int64_t rowId = 411;
        for (const auto& [moment, i] : order) {
            rowId += 1 + static_cast<std::int64_t>(random.below(4));
            sorted.push_back(std::move(plan_.messages[i]));
            sorted.back().rowId = rowId;
        }
        plan_.messages = std::move(sorted);
    }

    const SampleOptions& options_;
    const SampleTexts& texts_;
    MailPlan plan_;
};

}  // namespace

MailPlan planMail(const SampleOptions& options, const SampleTexts& texts) {
    return Planner(options, texts).run();
}

}  // namespace brindlet::sample
