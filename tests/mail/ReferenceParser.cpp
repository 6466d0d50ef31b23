#include "mail/ReferenceParser.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <optional>
#include <vector>

#include "base/Graphemes.h"
#include "base/Text.h"
#include "base/Utf8.h"

namespace brindlet::testing {
namespace {

using Characters = std::vector<std::string>;

Characters charactersOf(std::string_view raw) {
    const std::string text = repairedUtf8(raw);
    Characters characters;
    for (std::string_view rest = text; !rest.empty();) {
        const auto length = graphemeLength(rest);
        characters.emplace_back(rest.substr(0, length));
        rest.remove_prefix(length);
    }
    return characters;
}

bool standsAt(const Characters& text, std::size_t at, std::string_view lowerCased) {
    for (const char c : lowerCased) {
        if (at >= text.size() || lowercased(text[at]) != std::string(1, c)) return false;
        ++at;
    }
    return true;
}

std::optional<std::size_t> find(const Characters& text, std::size_t from, std::size_t to,
                                std::string_view lowerCased) {
    for (std::size_t at = from; at < to && at < text.size(); ++at)
        if (standsAt(text, at, lowerCased)) return at;
    return std::nullopt;
}

/// A pattern over the text; every call compiles it anew. Matches as (start, end) of a group.
struct Match {
    std::size_t start, end, groupStart, groupEnd;
};
std::optional<Match> match(const char* expression, const std::string& text, std::size_t from) {
    int error = 0;
    PCRE2_SIZE place = 0;
    pcre2_compile_context* const context = pcre2_compile_context_create(nullptr);
    pcre2_set_newline(context, PCRE2_NEWLINE_LF);
    pcre2_code* const code =
        pcre2_compile(reinterpret_cast<PCRE2_SPTR>(expression), PCRE2_ZERO_TERMINATED,
                      PCRE2_UTF | PCRE2_UCP, &error, &place, context);
    pcre2_match_data* const data = pcre2_match_data_create(2, nullptr);
    const int count = pcre2_match(code, reinterpret_cast<PCRE2_SPTR>(text.data()), text.size(),
                                  from, 0, data, nullptr);
    std::optional<Match> found;
    if (count > 0) {
        const PCRE2_SIZE* const v = pcre2_get_ovector_pointer(data);
        found = Match{v[0], v[1], count > 1 ? v[2] : 0, count > 1 ? v[3] : 0};
    }
    pcre2_match_data_free(data);
    pcre2_code_free(code);
    pcre2_compile_context_free(context);
    return found;
}

}  // namespace

std::string referenceVisibleText(std::string_view raw, std::int64_t limit) {
    const Characters text = charactersOf(raw);
    std::string out;
    std::size_t at = 0;
    std::int64_t steps = 0;
    std::int64_t written = 0;
    bool lastWasBlank = true;
    const auto blank = [&] {
        if (lastWasBlank) return;
        out += ' ';
        ++written;
        lastWasBlank = true;
    };
    while (at < text.size() && steps < 80'000 && written < limit) {
        ++steps;
        if (text[at] == "<") {
            std::optional<std::size_t> end;
            const char* const closer = standsAt(text, at + 1, "script")  ? "</script"
                                       : standsAt(text, at + 1, "style") ? "</style"
                                                                         : nullptr;
            if (closer)
                if (const auto found = find(text, at, text.size(), closer)) {
                    const std::size_t behind = *found + std::string_view(closer).size();
                    const auto bracket = find(text, behind, behind + 24, ">");
                    end = bracket ? *bracket + 1 : behind;
                }
            if (!end)
                if (const auto bracket = find(text, at, text.size(), ">")) end = *bracket + 1;
            if (!end) break;
            at = *end;
            blank();
        } else if (const auto semicolon = find(text, at, at + 12, ";");
                   text[at] == "&" && semicolon) {
            at = *semicolon + 1;
            blank();
        } else {
            const char* first = text[at].data();
            if (isWhiteSpace(nextCodePoint(first, first + text[at].size()))) {
                blank();
            } else {
                out += text[at];
                ++written;
                lastWasBlank = false;
            }
            ++at;
        }
    }
    return std::string(trimBlanks(out));
}

MailStore::Parsed referenceParse(std::string_view bytes, std::int64_t limit) {
    std::string text = repairedUtf8(bytes.substr(0, 120'000));
    const Characters characters = charactersOf(text);
    std::size_t length = 0;
    for (const std::string& character : characters) {
        length += character.size();
        if (character == "\n") {
            text.erase(0, length);
            break;
        }
    }
    std::string header = text;
    std::optional<std::string> body;
    for (const char* gap : {"\r\n\r\n", "\n\n"}) {
        const auto at = text.find(gap);
        if (at == std::string::npos) continue;
        header = text.substr(0, at);
        body = text.substr(at + std::string_view(gap).size());
        break;
    }
    std::string unfolded;
    std::size_t at = 0;
    while (const auto fold = match("\\r?\\n[ \\t]+", header, at)) {
        unfolded += header.substr(at, fold->start - at) + ' ';
        at = fold->end;
    }
    unfolded += header.substr(at);

    MailStore::Parsed parsed;
    if (const auto found = match("(?im)^Message-I[Dd]:[ \\t]*<?([^<>\\s]+)>?", unfolded, 0))
        parsed.messageID = unfolded.substr(found->groupStart, found->groupEnd - found->groupStart);
    if (body) parsed.body = referenceVisibleText(*body, limit);
    return parsed;
}

}  // namespace brindlet::testing
