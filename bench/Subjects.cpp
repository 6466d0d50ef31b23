#include "Subjects.h"

#include <algorithm>
#include <array>
#include <random>
#include <string_view>
#include <utility>

namespace brindlet::bench {
namespace {

constexpr std::array<std::string_view, 20> sentences{
    "Your order %n has shipped",
    "%a, your weekly report for %t is ready",
    "New comment on \"%t\"",
    "%a %b has subscribed to you on Lantern",
    "Save %n% on %t - this weekend only!",
    "[%t] Build #%n passed",
    "Re: %t (was: minutes of %n March)",
    "%a just uploaded a video: %t",
    "Your statement for account ending in %n",
    "Don't miss out, %a: last hours of the %t sale",
    "%t digest, issue %n",
    "Invoice %n from %t is available",
    "Your verification code is %n",
    "%a %b invited you to \"%t\"",
    "People you may know: %a, %b and %n others",
    "What we're reading this week: %t, and more about %t",
    "Reminder: %t starts in %n minutes",
    "%a liked your post about %t",
    "Your %t subscription renews on %n April",
    "We've picked %n offers near you, %a",
};
constexpr std::array<std::string_view, 16> names{
    "Amber",  "Basil",  "Clover",  "Dalia",  "Elowen",  "Fergus", "Greta", "Hollis",
    "Imogen", "Jasper", "Kestrel", "Linden", "Marlowe", "Niamh",  "Orla",  "Perrin"};
constexpr std::array<std::string_view, 8> foreignNames{
    "Ana\u00efs", "Bj\u00f6rn",     "Chlo\u00e9",   "\u0414\u0430\u0440\u044c\u044f",
    "Zo\u00eb",   "Ji\u0159\u00ed", "\u674e\u96f7", "Mu\u00f1oz"};
constexpr std::array<std::string_view, 24> titleWords{
    "harbour", "lantern", "garden",   "quarterly", "copper",  "Meadow",  "river",  "Atlas",
    "silver",  "orchard", "notebook", "winter",    "cycling", "Kitchen", "maple",  "signal",
    "pocket",  "summit",  "velvet",   "anchor",    "paper",   "Compass", "willow", "thunder"};

class Writer {
  public:
    explicit Writer(std::uint32_t seed) : random_(seed) {}

    std::size_t below(std::size_t bound) { return random_() % bound; }

    std::string subject(std::string_view sentence) {
        const bool foreign = below(10) == 0;
        std::string text;
        for (std::size_t i = 0; i < sentence.size(); ++i) {
            const char next = i + 1 < sentence.size() ? sentence[i + 1] : ' ';
            if (sentence[i] != '%' || next == ' ') {
                text += sentence[i];
                continue;
            }
            ++i;
            if (next == 'n') {
                text += std::to_string(below(100'000));
            } else if (next == 't') {
                for (std::size_t words = 1 + below(3); words > 0; --words) {
                    text += titleWords[below(titleWords.size())];
                    if (words > 1) text += ' ';
                }
            } else {
                text +=
                    foreign ? foreignNames[below(foreignNames.size())] : names[below(names.size())];
            }
        }
        if (foreign) text += " \u2013 \u00e0 bient\u00f4t";
        return text;
    }

  private:
    std::mt19937 random_;
};

}  // namespace

std::vector<Letter> makeLetters(std::size_t count, std::size_t senders, std::uint32_t seed) {
    Writer writer(seed);
    std::vector<Letter> letters;
    letters.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const auto sender = writer.below(senders);
        // Half of a sender's mail says the same.
        const auto kind = writer.below(2) == 0 ? 0 : writer.below(4);
        const auto sentence = (7 * sender + kind) % sentences.size();
        const auto id = std::to_string(sender);
        letters.push_back({"House " + id + " <News@mail" + id + ".shop.example>",
                           writer.subject(sentences[sentence])});
    }
    return letters;
}

std::vector<Letter> makeLongLetters(std::size_t count, std::uint32_t seed) {
    constexpr int wordsEach = 17;
    Writer writer(seed);
    std::vector<Letter> letters;
    letters.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        std::string text;
        while (std::count(text.begin(), text.end(), ' ') < wordsEach)
            text += writer.subject(sentences[writer.below(sentences.size())]) + ' ';
        std::size_t end = 0;
        for (int words = 0; words < wordsEach; ++words) end = text.find(' ', end + 1);
        letters.push_back({"news@mail.shop.example", text.substr(0, end)});
    }
    return letters;
}

}  // namespace brindlet::bench
