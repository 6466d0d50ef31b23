#include "words/OfferWords.h"

#include "classify/Category.h"
#include "platform/Locale.h"

namespace brindlet {
namespace {

const char* const aboutTheSame = "Every message from them about the same thing";

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const auto& word : words) {
        if (!text.empty()) text += ' ';
        text += word;
    }
    return text;
}

std::string counted(const std::vector<std::int64_t>& ids, const Locale& locale) {
    return locale.grouped(static_cast<std::int64_t>(ids.size()));
}

std::string questionOf(const PendingRule& offer, const Locale& locale) {
    if (!offer.members.empty())
        return "Do the same for " + counted(offer.members, locale) + " more like this?";
    if (!offer.kin.empty())
        return "Do the same for " + counted(offer.kin, locale) + " more about the same thing?";
    return "Only this one - nothing else they sent looks like it";
}

std::string explanationOf(const PendingRule& offer) {
    if (!offer.members.empty())
        return "\u201c" + joined(offer.templateWords) + "\u201d - their other " +
               std::string(displayName(offer.category)) + " is untouched";
    if (!offer.kin.empty()) return "Matched on what the message is about - the rest is untouched";
    if (!offer.everything.empty())
        return "The whole sender is still there if that is what you meant";
    return {};
}

std::vector<OfferButton> buttonsOf(const PendingRule& offer, const Locale& locale) {
    std::vector<OfferButton> buttons;
    std::optional<SweepChoice> narrowest;
    const auto add = [&](const std::vector<std::int64_t>& ids, SweepChoice choice,
                         const std::string& label, const std::string& help) {
        if (ids.empty()) return;
        if (!narrowest) narrowest = choice;
        buttons.push_back({label, help, choice, false});
    };
    add(offer.members, SweepChoice::members, "These " + counted(offer.members, locale),
        "Change only the messages shaped like this one");
    if (offer.members.empty())
        add(offer.kin, SweepChoice::kin, "These " + counted(offer.kin, locale), aboutTheSame);
    else
        add(offer.kin, SweepChoice::kin, "All " + counted(offer.kin, locale) + " like these",
            std::string(aboutTheSame) + ", however it is worded");
    add(offer.everything, SweepChoice::everything,
        "Every " + std::string(displayName(offer.category)) + " from this sender", {});
    if (narrowest)
        buttons.push_back({"Always", "Change these, and keep the rule for good", narrowest, true});
    buttons.push_back({"Not this time", {}, std::nullopt, false});
    return buttons;
}

}  // namespace

OfferWords offerWords(const PendingRule& offer, const Locale& locale) {
    OfferWords words;
    words.question = questionOf(offer, locale);
    words.explanation = explanationOf(offer);
    words.buttons = buttonsOf(offer, locale);
    return words;
}

}  // namespace brindlet
