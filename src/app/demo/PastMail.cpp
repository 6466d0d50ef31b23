#include "app/demo/PastMail.h"

#include <algorithm>

namespace brindlet::demo {

bool isJunkMail(const sample::SampleFacts::Message& message) {
    const auto category = fromRaw<Category>(message.category);
    return category && isDefaultJunk(*category);
}

PastMail::PastMail(const sample::SampleFacts& facts) : facts_(facts) {
    for (const auto& message : facts.messages) byRow_.emplace(message.id, &message);
}

const sample::SampleFacts::Account* PastMail::find(std::string_view account) const {
    const auto found =
        std::ranges::find(facts_.accounts, account, &sample::SampleFacts::Account::name);
    return found == facts_.accounts.end() ? nullptr : &*found;
}

std::string PastMail::id(std::string_view account) const {
    const auto* found = find(account);
    return found ? found->id : std::string();
}

std::string PastMail::address(std::string_view account) const {
    const auto* found = find(account);
    return found ? found->address : std::string();
}

std::vector<const PastMail::Message*> PastMail::all(std::string_view account,
                                                    std::string_view folder) const {
    std::vector<const Message*> messages;
    const auto* const found = find(account);
    if (!found) return messages;
    for (const auto& each : found->folders) {
        if (each.name != folder) continue;
        for (const auto row : each.messages)
            if (const auto message = byRow_.find(row); message != byRow_.end())
                messages.push_back(message->second);
    }
    return messages;
}

std::vector<const PastMail::Message*> PastMail::sent(std::string_view account,
                                                     std::string_view folder,
                                                     const Span& span) const {
    auto messages = all(account, folder);
    std::erase_if(messages, [&](const Message* each) {
        const auto sent = Date::fromUnix(static_cast<double>(each->dateSent));
        return sent < span.from || sent >= span.until;
    });
    return messages;
}

std::map<Category, std::vector<PastMail::Writer>> PastMail::frequentSenders(
    std::string_view account, std::string_view folder) const {
    std::map<Category, std::map<std::string, std::vector<const Message*>>> bySender;
    for (const auto* each : all(account, folder)) {
        const auto category = fromRaw<Category>(each->category);
        if (category && !each->sender.empty() && !each->subject.empty())
            bySender[*category][each->sender].push_back(each);
    }
    std::map<Category, std::vector<Writer>> writers;
    for (const auto& [category, senders] : bySender) {
        std::vector<std::pair<std::size_t, Writer>> counted;
        for (const auto& [sender, messages] : senders)
            counted.push_back({messages.size(), {sender, messages.front()->subject}});
        std::ranges::stable_sort(counted, std::greater{}, &std::pair<std::size_t, Writer>::first);
        for (auto& [count, writer] : counted) writers[category].push_back(std::move(writer));
    }
    return writers;
}

}  // namespace brindlet::demo
