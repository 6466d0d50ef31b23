#include "models/embedded/EventReader.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "base/Utf8.h"
#include "models/embedded/Ascii.h"
#include "models/embedded/EventTables.h"
#include "models/embedded/PlainText.h"

namespace brindlet {
namespace {

constexpr std::size_t longestSubject = 512;
constexpr std::size_t mostObjectWords = 4;
/// What a lone digit is as a token of the tables.
constexpr std::string_view anyNumber = "#n1";

/// Titles are somebody's words: what stands between quotes says nothing about what happened.
std::string withoutQuotes(std::string_view subject) {
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 6> quotes{{
        {"\"", "\""},
        {"\xE2\x80\x9C", "\xE2\x80\x9D"},
        {"\xE2\x80\x9E", "\xE2\x80\x9C"},
        {"\xE2\x80\x9E", "\xE2\x80\x9D"},
        {"\xC2\xAB", "\xC2\xBB"},
        {"\xC2\xBB", "\xC2\xAB"},
    }};
    std::string out;
    while (!subject.empty()) {
        std::size_t skipped = 0;
        for (const auto& [open, close] : quotes) {
            if (!subject.starts_with(open)) continue;
            const auto end = subject.find(close, open.size());
            if (end == std::string_view::npos) continue;
            const std::size_t size = end + close.size();
            if (skipped == 0 || size < skipped) skipped = size;
        }
        out += skipped > 0 ? ' ' : subject.front();
        subject.remove_prefix(std::max<std::size_t>(skipped, 1));
    }
    return out;
}

/// The words as the subject has them, and folded, as the tables do.
struct Words {
    std::vector<std::string> own;
    std::vector<std::string> plain;
    std::vector<std::string_view> tokens;

    explicit Words(std::string_view subject)
        : own(letterNumberWords(lowercased(subject), Apostrophe::splits)) {
        // What apostrophes cut off: "l'", "d'", "'s", "'t".
        std::erase_if(own, [](const std::string& word) {
            return word.size() == 1 &&
                   std::string_view("cdjlmnst").find(word[0]) != std::string_view::npos;
        });
        for (const auto& word : own)
            plain.push_back(std::ranges::any_of(word, ascii::isDigit) ? std::string(anyNumber)
                                                                      : folded(word));
        tokens.assign(plain.begin(), plain.end());
    }
};

}  // namespace

EventReader::EventReader()
    : actions_(eventActionWords()), things_(eventGoods()), filling_(eventFilling()) {}

std::optional<EventReader::Event> EventReader::read(std::string_view subject) const {
    const Words words(withoutQuotes(repairedUtf8(subject.substr(0, longestSubject))));
    std::vector<bool> dropped(words.own.size());
    const auto drop = [&](std::size_t, std::size_t first, std::size_t count) {
        std::fill_n(dropped.begin() + static_cast<std::ptrdiff_t>(first), count, true);
    };

    std::size_t action = actions_.count();
    std::size_t behind = 0;
    actions_.each(words.tokens, [&](std::size_t group, std::size_t first, std::size_t) {
        if (group > action) return;
        if (group < action) behind = first;
        action = group;
    });
    if (action == actions_.count()) return std::nullopt;
    const EventAction& deed = eventActions()[action];
    actions_.each(words.tokens, [&](std::size_t group, std::size_t first, std::size_t count) {
        if (group == action) drop(group, first, count);
    });
    if (deed.scope == EventAction::Scope::after) drop(0, 0, behind);

    std::vector<bool> goods(words.own.size());
    things_.each(words.tokens, [&](std::size_t, std::size_t first, std::size_t) {
        goods[first] = !dropped[first];
    });
    const bool goodsAlone = deed.scope == EventAction::Scope::goods;
    filling_.each(words.tokens, drop);

    Event event{std::string(deed.name), {}};
    std::size_t taken = 0;
    for (std::size_t i = 0; i < words.own.size() && taken < mostObjectWords; ++i) {
        if (goodsAlone ? !goods[i] : dropped[i] || words.plain[i] == anyNumber) continue;
        if (!event.object.empty()) event.object += ' ';
        event.object += words.own[i];
        ++taken;
    }
    return event;
}

}  // namespace brindlet
