#include "models/embedded/MailText.h"

#include <cstddef>

namespace brindlet {
namespace {

constexpr std::size_t headerBytes = 512;
constexpr std::size_t bodyBytes = 6000;

/// Where the label stands at the start of a line; npos when it does not.
std::size_t findLabel(std::string_view text, std::string_view label) {
    for (auto at = text.find(label); at != std::string_view::npos; at = text.find(label, at + 1))
        if (at == 0 || text[at - 1] == '\n') return at;
    return std::string_view::npos;
}

/// Moves past the label, giving what stood before it without its line end.
bool takeLabel(std::string_view& rest, std::string_view label, std::string_view& before) {
    const auto at = findLabel(rest, label);
    if (at == std::string_view::npos) return false;
    before = rest.substr(0, at == 0 ? 0 : at - 1);
    rest.remove_prefix(at + label.size());
    return true;
}

}  // namespace

MailText splitPrompt(std::string_view prompt) {
    MailText mail;
    std::string_view ignored;
    std::string_view* open = &mail.body;
    if (takeLabel(prompt, "FROM: ", ignored)) open = &mail.sender;
    if (takeLabel(prompt, "SUBJECT: ", *open)) open = &mail.subject;
    if (takeLabel(prompt, "BODY:", *open)) {
        open = &mail.body;
        if (prompt.starts_with('\n')) prompt.remove_prefix(1);
    }
    *open = prompt;
    mail.sender = mail.sender.substr(0, headerBytes);
    mail.subject = mail.subject.substr(0, headerBytes);
    mail.body = mail.body.substr(0, bodyBytes);
    return mail;
}

}  // namespace brindlet
