#include "doubles/SentBytes.h"

#include <algorithm>

#include "base/ThreadSafety.h"

namespace brindlet::doubles {
namespace {

Locked<std::set<std::string>>& lines() {
    static Locked<std::set<std::string>> all;
    return all;
}

std::string lowered(std::string_view text) {
    std::string lower(text);
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return lower;
}

/// Takes off the front as many of these characters as there are; false for none.
bool takeAll(std::string_view& text, std::string_view characters) {
    const auto count = std::min(text.find_first_not_of(characters), text.size());
    text.remove_prefix(count);
    return count > 0;
}

bool take(std::string_view& text, std::string_view part) {
    if (!text.starts_with(part)) return false;
    text.remove_prefix(part.size());
    return true;
}

bool isCommand(std::string_view text) {
    if (take(text, "LOGIN \"") || take(text, "SELECT \"")) return text.ends_with('"');
    if (!take(text, "UID STORE "))
        return text == "UID FETCH 1:* (UID BODY.PEEK[HEADER.FIELDS (MESSAGE-ID)])";
    return takeAll(text, "0123456789,:") &&
           (take(text, " +X-GM-LABELS (") || take(text, " -X-GM-LABELS (")) && text.ends_with(')');
}

/// Without all that a text of the person's can be: quotes are not escaped, so that goes from the
/// first quote to the last.
std::string withoutQuoted(std::string_view text) {
    const auto first = std::min(text.find('"'), text.size());
    const auto last = text.rfind('"');
    std::string bare(text.substr(0, first));
    if (last != std::string_view::npos) bare += text.substr(last);
    return bare;
}

}  // namespace

void SentBytes::record(std::string_view bytes) {
    lines().with([&](std::set<std::string>& all) { return all.emplace(bytes).second; });
}

std::set<std::string> SentBytes::everything() {
    return lines().get();
}

std::string SentBytes::breach(std::string_view bytes) {
    std::string_view line = bytes;
    if (!line.ends_with("\r\n")) return "is no whole line";
    line.remove_suffix(2);
    if (line.find_first_of(std::string_view("\r\n\0", 3)) != std::string_view::npos)
        return "is more than one line";
    if (lowered(line).find("\\deleted") != std::string::npos) return "has the flag that deletes";
    const std::string bare = lowered(withoutQuoted(line));
    for (const char* const word : {"expunge", "move", "copy", "append"})
        if (bare.find(word) != std::string::npos) return std::string("has the word ") + word;
    if (!take(line, "a") || !takeAll(line, "0123456789") || !take(line, " ")) return "has no tag";
    return isCommand(line) ? "" : "is none of the commands";
}

}  // namespace brindlet::doubles
