#include "models/training/Phrase.h"

#include <array>
#include <utility>

#include "models/embedded/Ascii.h"

namespace brindlet::training {
namespace {

class Parser {
  public:
    explicit Parser(std::string_view line) : rest_(line) {}

    bool run(Phrase& phrase) { return sequence(phrase, "") && rest_.empty(); }

  private:
    /// Reads on to one of the characters of `stops`, which is left, or the end.
    bool sequence(Phrase& phrase, std::string_view stops) {
        while (!rest_.empty() && stops.find(rest_.front()) == std::string_view::npos) {
            const char c = rest_.front();
            rest_.remove_prefix(1);
            switch (c) {
                case '(':
                    if (!choices(phrase)) return false;
                    break;
                case '{':
                    if (!slot(phrase)) return false;
                    break;
                case ')':
                case '}':
                    return false;
                case '\\':
                    if (rest_.empty()) return false;
                    text(phrase, rest_.front());
                    rest_.remove_prefix(1);
                    break;
                default:
                    text(phrase, c);
            }
        }
        return true;
    }

    static void text(Phrase& phrase, char c) {
        if (phrase.parts.empty() || phrase.parts.back().text.empty()) phrase.parts.emplace_back();
        phrase.parts.back().text += c;
    }

    bool choices(Phrase& phrase) {
        Phrase::Part part;
        do {
            if (!sequence(part.choices.emplace_back(), "|)") || rest_.empty()) return false;
        } while (std::exchange(rest_, rest_.substr(1)).front() == '|');
        phrase.parts.push_back(std::move(part));
        return true;
    }

    bool slot(Phrase& phrase) {
        static constexpr std::array<std::pair<std::string_view, Phrase::Change>, 3> changes{{
            {"lower", Phrase::Change::lower},
            {"upper", Phrase::Change::upper},
            {"plain", Phrase::Change::plain},
        }};
        const auto end = rest_.find('}');
        if (end == 0 || end == std::string_view::npos) return false;
        std::string_view name = rest_.substr(0, end);
        rest_.remove_prefix(end + 1);
        Phrase::Part part;
        if (const auto colon = name.find(':'); colon != std::string_view::npos) {
            for (const auto& [word, change] : changes)
                if (word == name.substr(colon + 1)) part.change = change;
            if (part.change == Phrase::Change::none) return false;
            name = name.substr(0, colon);
        }
        part.slot = name;
        phrase.parts.push_back(std::move(part));
        return true;
    }

    std::string_view rest_;
};

}  // namespace

bool parsePhrase(std::string_view line, Phrase& phrase) {
    return Parser(line).run(phrase);
}

std::string changed(std::string text, Phrase::Change change) {
    if (change == Phrase::Change::none) return text;
    if (change == Phrase::Change::plain)
        std::erase_if(text, [](char c) { return !ascii::isAlphanumeric(c); });
    for (char& c : text) c = change == Phrase::Change::upper ? ascii::upper(c) : ascii::lower(c);
    return text;
}

}  // namespace brindlet::training
