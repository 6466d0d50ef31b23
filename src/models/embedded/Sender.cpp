#include "models/embedded/Sender.h"

#include <algorithm>

#include "models/embedded/Ascii.h"
#include "models/embedded/Tokens.h"

namespace brindlet {

Sender::Sender(std::string_view folded) {
    const auto open = folded.rfind('<');
    std::string_view address = folded;
    if (open != std::string_view::npos) {
        name = folded.substr(0, open);
        address = folded.substr(open + 1);
        address = address.substr(0, address.find('>'));
    }
    const auto at = address.find('@');
    local = address.substr(0, at);
    if (at != std::string_view::npos) domain = address.substr(at + 1);
    while (!domain.empty() && !ascii::isAlphanumeric(domain.back())) domain.remove_suffix(1);
}

std::size_t Sender::echoes() const {
    constexpr std::size_t mostWords = 8;
    const auto words = tokens(name, mostWords);
    return static_cast<std::size_t>(std::ranges::count_if(words, [&](std::string_view word) {
        return word.size() > 2 && local.find(word) != std::string_view::npos;
    }));
}

bool isReply(std::string_view foldedSubject) {
    static constexpr std::string_view starts[]{
        "re:", "re :", "fw:", "fw :", "fwd:", "aw:", "sv:", "wg:"};
    return std::ranges::any_of(
        starts, [&](std::string_view start) { return foldedSubject.starts_with(start); });
}

}  // namespace brindlet
