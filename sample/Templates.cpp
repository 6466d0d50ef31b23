#include "sample/Templates.h"

#include <array>
#include <chrono>
#include <utility>

#include "sample/Random.h"

namespace brindlet::sample {
namespace {

constexpr std::array<std::string_view, 12> months{"January",   "February", "March",    "April",
                                                  "May",       "June",     "July",     "August",
                                                  "September", "October",  "November", "December"};

/// From December on, three months each.
constexpr std::array<std::string_view, 4> seasons{"winter", "spring", "summer", "autumn"};

std::chrono::year_month_day dateOf(std::int64_t moment) {
    using namespace std::chrono;
    return year_month_day(floor<days>(sys_seconds(seconds(moment))));
}

/// January is 0.
std::size_t monthOf(std::int64_t moment) {
    return static_cast<unsigned>(dateOf(moment).month()) - 1;
}

/// Calls `line` with each line that holds something and is no remark.
template <class F>
void eachLine(std::string_view text, F&& line) {
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        const std::string_view one = text.substr(0, end);
        if (!one.empty() && one.front() != '#') line(one);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
}

}  // namespace

std::string_view Person::firstName() const {
    return std::string_view(name).substr(0, name.find(' '));
}

std::string_view Person::domain() const {
    const std::size_t at = address.find('@');
    return at == std::string::npos ? std::string_view("localhost.example")
                                   : std::string_view(address).substr(at + 1);
}

std::string Person::shown() const {
    return name.empty() ? address : name + " <" + address + '>';
}

WordLists::WordLists(std::string_view text) {
    eachLine(text, [&](std::string_view line) {
        const std::size_t colon = line.find(": ");
        if (colon == std::string_view::npos) return;
        std::vector<std::string> list;
        std::string_view words = line.substr(colon + 2);
        while (true) {
            const std::size_t bar = words.find('|');
            list.emplace_back(words.substr(0, bar));
            if (bar == std::string_view::npos) break;
            words.remove_prefix(bar + 1);
        }
        numbers_.emplace(line.substr(0, colon), static_cast<int>(lists_.size()));
        lists_.push_back(std::move(list));
    });
}

int WordLists::find(std::string_view name) const {
    const auto found = numbers_.find(name);
    return found == numbers_.end() ? -1 : found->second;
}

std::string WordLists::word(int list, int turn, std::uint64_t key) const {
    const auto& words = lists_[static_cast<std::size_t>(list)];
    Random random(mixed(key, static_cast<std::uint64_t>(list)));
    // Turns walk on through the list, so that two places of one message rarely get the same word.
    const std::uint64_t first = random.below(words.size());
    std::string word = words[(first + static_cast<std::uint64_t>(turn)) % words.size()];
    for (int i = 0; i < turn; ++i) random.next();
    for (char& c : word) {
        if (c == '*') c = static_cast<char>('1' + random.below(9));
        if (c == '#') c = static_cast<char>('0' + random.below(10));
        if (c == '^') c = static_cast<char>('A' + random.below(26));
    }
    return word;
}

Template::Template(std::string_view text, const WordLists& words) {
    constexpr std::array<std::pair<std::string_view, Place>, 9> known{{
        {"brand", Place::brand},
        {"domain", Place::domain},
        {"me", Place::me},
        {"you", Place::you},
        {"today", Place::today},
        {"soon", Place::soon},
        {"month", Place::month},
        {"season", Place::season},
        {"year", Place::year},
    }};
    while (!text.empty()) {
        Piece piece;
        const std::size_t open = text.find('{');
        const std::size_t close = text.find('}', open == std::string_view::npos ? 0 : open);
        piece.literal = text.substr(0, open);
        if (open == std::string_view::npos || close == std::string_view::npos) {
            piece.literal = text;
            pieces_.push_back(std::move(piece));
            break;
        }
        std::string_view name = text.substr(open + 1, close - open - 1);
        text.remove_prefix(close + 1);
        for (const auto& [place, meaning] : known)
            if (name == place) piece.place = meaning;
        if (piece.place == Place::none) {
            std::string_view list = name;
            if (!list.empty() && list.back() >= '2' && list.back() <= '9') {
                piece.turn = list.back() - '1';
                list.remove_suffix(1);
            }
            piece.list = words.find(list);
            if (piece.list >= 0)
                piece.place = Place::word;
            else
                (piece.literal += '{').append(name) += '}';
        }
        pieces_.push_back(std::move(piece));
    }
}

void Template::appendTo(std::string& out, const Filling& filling) const {
    for (const Piece& piece : pieces_) {
        out += piece.literal;
        switch (piece.place) {
            case Place::none:
                break;
            case Place::word:
                out += filling.words.word(piece.list, piece.turn, filling.key);
                break;
            case Place::brand:
                out += filling.sender.name;
                break;
            case Place::domain:
                out += filling.sender.domain();
                break;
            case Place::me:
                out += filling.sender.firstName();
                break;
            case Place::you:
                out += filling.recipient.firstName();
                break;
            case Place::today:
                out += dayAndMonth(filling.moment);
                break;
            case Place::soon:
                out += dayAndMonth(
                    filling.moment +
                    86400 * static_cast<std::int64_t>(2 + reduced(mixed(filling.key, 977), 12)));
                break;
            case Place::month:
                out += months[(monthOf(filling.moment) + 11) % 12];
                break;
            case Place::season:
                out += seasons[(monthOf(filling.moment) + 1) % 12 / 3];
                break;
            case Place::year:
                out += std::to_string(static_cast<int>(dateOf(filling.moment).year()));
                break;
        }
    }
}

std::string Template::filled(const Filling& filling) const {
    std::string text;
    appendTo(text, filling);
    return text;
}

std::string dayAndMonth(std::int64_t moment) {
    const auto date = dateOf(moment);
    return std::to_string(static_cast<unsigned>(date.day())) + ' ' +
           std::string(months[monthOf(moment)]);
}

}  // namespace brindlet::sample
