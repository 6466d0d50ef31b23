#include "imap/FetchedIDs.h"

#include <algorithm>
#include <charconv>

#include "base/Graphemes.h"
#include "base/Text.h"
#include "base/Utf8.h"
#include "imap/AsciiCase.h"

namespace brindlet {
namespace {

constexpr std::string_view uidWord = "UID ";
constexpr std::string_view headerName = "message-id:";

/// The numbers that a text begins with, read as one UID. None when there are none, when they are
/// too many, or when one of them is no plain digit ("12½").
std::optional<std::uint32_t> leadingUid(std::string_view text) {
    std::uint32_t uid = 0;
    const char* const end = text.data() + text.size();
    const auto [at, error] = std::from_chars(text.data(), end, uid);
    if (error != std::errc{}) return std::nullopt;
    if (at == end || static_cast<unsigned char>(*at) < 0x80) return uid;
    const char* next = at;
    const bool plain = graphemeLength({at - 1, static_cast<std::size_t>(end - at + 1)}) == 1 &&
                       !isNumber(nextCodePoint(next, end));
    return plain ? std::optional(uid) : std::nullopt;
}

/// What follows the header's name, wherever in the line that stands.
std::optional<std::string_view> headerValue(std::string_view line) {
    for (auto colon = line.find(':'); colon != std::string_view::npos;
         colon = line.find(':', colon + 1)) {
        const auto after = colon + 1;
        if (after < headerName.size()) continue;
        const auto name = line.substr(after - headerName.size(), headerName.size());
        if (std::equal(name.begin(), name.end(), headerName.begin(), isIgnoringCase))
            return line.substr(after);
    }
    return std::nullopt;
}

std::string_view withoutBrackets(std::string_view value) {
    if (value.starts_with('<')) value.remove_prefix(1);
    if (value.ends_with('>')) value.remove_suffix(1);
    return value;
}

}  // namespace

void FetchedIDs::add(std::string_view line) {
    if (line.starts_with('*')) {
        if (const auto word = line.find(uidWord); word != std::string_view::npos) {
            pending = leadingUid(line.substr(word + uidWord.size()));
            if (!pending) return;
        }
    }
    if (!pending) return;
    const auto value = headerValue(line);
    if (!value) return;
    const auto id = withoutBrackets(trimSpacesAndTabs(*value));
    if (!id.empty()) ids.set(id, *pending);
    pending.reset();
}

}  // namespace brindlet
