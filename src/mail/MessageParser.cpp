#include "base/Text.h"
#include "base/Utf8.h"
#include "mail/MailStore.h"

// A message file starts with a line that counts the message's bytes; then comes the message in its
// raw form. Everything that is searched for here is ASCII, which repairing UTF-8 neither makes nor
// removes, so the searches run on the raw bytes and only what is given back is repaired.

namespace brindlet {
namespace {

constexpr std::size_t none = std::string_view::npos;

bool isSpaceOrTab(char c) {
    return c == ' ' || c == '\t';
}
bool isAsciiWhite(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// Drops everything up to the first line feed that no carriage return precedes, blindly: where no
/// line counts the bytes, something else is lost.
std::string_view withoutCountLine(std::string_view text) {
    for (auto at = text.find('\n'); at != none; at = text.find('\n', at + 1))
        if (at == 0 || text[at - 1] != '\r') return text.substr(at + 1);
    return text;
}

struct Gap {
    std::size_t start = none;
    std::size_t length = 0;
};

/// The line end twice over. One with carriage returns wins wherever it stands; most mail has none.
Gap findGap(std::string_view text) {
    if (text.find('\r') != none)
        for (auto at = text.find('\n'); at != none; at = text.find('\n', at + 1))
            if (at > 0 && text.substr(at - 1, 4) == "\r\n\r\n") return {at - 1, 4};
    for (auto at = text.find('\n'); at != none; at = text.find('\n', at + 1))
        if (at + 1 < text.size() && text[at + 1] == '\n') return {at, 2};
    return {};
}

/// Moves past "Message-ID:" in any case. Where case is ignored the long s is an s.
bool takeName(std::string_view& line) {
    std::string_view rest = line;
    for (const char expected : std::string_view("message-id:")) {
        if (expected == 's' && rest.starts_with("\xC5\xBF")) {
            rest.remove_prefix(2);
            continue;
        }
        if (rest.empty()) return false;
        const char c = rest.front();
        if ((c >= 'A' && c <= 'Z' ? c + 32 : c) != expected) return false;
        rest.remove_prefix(1);
    }
    line = rest;
    return true;
}

/// Moves past blanks, and past line ends that blanks follow: there the header line goes on.
void skipBlanksAndFolds(std::string_view& text) {
    while (true) {
        while (!text.empty() && isSpaceOrTab(text.front())) text.remove_prefix(1);
        const std::size_t end = text.starts_with("\r\n") ? 2 : text.starts_with('\n') ? 1 : 0;
        if (end == 0 || end == text.size() || !isSpaceOrTab(text[end])) return;
        text.remove_prefix(end);
    }
}

/// What stands at the front up to white space or an angle bracket.
std::string idAtFront(std::string_view text) {
    std::size_t end = 0;
    while (end < text.size() && text[end] != '<' && text[end] != '>' && !isAsciiWhite(text[end]))
        ++end;
    const std::string id = repairedUtf8(text.substr(0, end));
    const char* at = id.data();
    const char* const last = at + id.size();
    while (at < last) {
        const char* const here = at;
        if (isWhiteSpace(nextCodePoint(at, last)))
            return id.substr(0, static_cast<std::size_t>(here - id.data()));
    }
    return id;
}

/// The first Message-ID line that has a value; one without is passed over.
std::optional<std::string> findMessageID(std::string_view header) {
    for (std::size_t line = 0; line < header.size();) {
        std::string_view rest = header.substr(line);
        if (takeName(rest)) {
            skipBlanksAndFolds(rest);
            if (rest.starts_with('<')) rest.remove_prefix(1);
            std::string id = idAtFront(rest);
            if (!id.empty()) return id;
        }
        const auto end = header.find('\n', line);
        if (end == none) break;
        line = end + 1;
    }
    return std::nullopt;
}

}  // namespace

MailStore::Parsed MailStore::parseMessage(std::string_view bytes, std::int64_t limit) {
    const std::string_view text = withoutCountLine(bytes);
    const Gap gap = findGap(text);
    Parsed parsed;
    parsed.messageID = findMessageID(text.substr(0, gap.start));
    if (gap.length > 0) parsed.body = visibleText(text.substr(gap.start + gap.length), limit);
    return parsed;
}

}  // namespace brindlet
