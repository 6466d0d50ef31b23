#include "sample/ImapParser.h"

#include <algorithm>

#include "sample/ImapInput.h"

namespace brindlet::sample {
namespace {

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool standsAmongWildcards(char c) {
    constexpr std::string_view special = "(){\"\\";
    return c > ' ' && c < '\x7F' && special.find(c) == std::string_view::npos;
}

/// "]" is no atom's, but a text's.
bool standsInAtom(char c) {
    return standsAmongWildcards(c) && c != '%' && c != '*';
}

}  // namespace

bool sameAscii(std::string_view one, std::string_view other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](char a, char b) { return lower(a) == lower(b); });
}

bool ImapParser::take(std::string_view expected) {
    if (!sameAscii(rest_.substr(0, expected.size()), expected)) return false;
    rest_.remove_prefix(expected.size());
    return true;
}

template <class Stands>
std::optional<std::string> ImapParser::run(Stands stands) {
    const auto end = std::find_if_not(rest_.begin(), rest_.end(), stands);
    if (end == rest_.begin()) return std::nullopt;
    std::string taken(rest_.begin(), end);
    rest_.remove_prefix(taken.size());
    return taken;
}

std::optional<std::string> ImapParser::atom() {
    return run(standsInAtom);
}

std::optional<std::string> ImapParser::wildcards() {
    return run(standsAmongWildcards);
}

std::optional<std::string> ImapParser::quoted() {
    std::string content;
    for (std::size_t i = 1; i < rest_.size(); ++i) {
        char c = rest_[i];
        if (c == '"') {
            rest_.remove_prefix(i + 1);
            return content;
        }
        if (c == '\\') {
            if (++i == rest_.size()) return std::nullopt;
            c = rest_[i];
            if (c != '"' && c != '\\') return std::nullopt;
        }
        if (c == '\r' || c == '\n' || c == '\0') return std::nullopt;
        content += c;
    }
    return std::nullopt;
}

std::optional<std::string> ImapParser::literal() {
    const std::size_t end = rest_.find('\n');
    if (end == std::string_view::npos) return std::nullopt;
    std::string_view line = rest_.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    const LiteralMark mark = literalMark(line);
    if (mark.length != line.size() || rest_.size() - end - 1 < mark.size) return std::nullopt;
    std::string content(rest_.substr(end + 1, mark.size));
    rest_.remove_prefix(end + 1 + mark.size);
    return content;
}

std::optional<std::string> ImapParser::text() {
    if (rest_.starts_with('"')) return quoted();
    if (rest_.starts_with('{')) return literal();
    return atom();
}

std::optional<std::string> ImapParser::label() {
    if (!rest_.starts_with('\\')) return text();
    const std::string_view before = rest_;
    rest_.remove_prefix(1);
    auto name = atom();
    if (!name) rest_ = before;
    return name ? std::optional('\\' + *name) : std::nullopt;
}

}  // namespace brindlet::sample
