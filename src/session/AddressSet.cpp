#include "session/AddressSet.h"

#include <utility>

namespace brindlet {
namespace {

std::uint16_t neighbours(std::string_view text, std::size_t at) {
    return static_cast<std::uint16_t>(static_cast<unsigned char>(text[at - 1]) << 8 |
                                      static_cast<unsigned char>(text[at + 1]));
}

bool isBetween(std::string_view text, std::size_t at) {
    return at > 0 && at + 1 < text.size();
}

}  // namespace

AddressSet::AddressSet(std::vector<std::string> addresses) : addresses_(std::move(addresses)) {
    std::erase(addresses_, std::string());
    for (std::uint32_t i = 0; i < addresses_.size(); ++i) {
        const std::string_view address = addresses_[i];
        const auto at = address.find('@');
        if (at != std::string_view::npos && isBetween(address, at))
            byNeighbours_[neighbours(address, at)].push_back(i);
        else
            others_.push_back(i);
    }
}

bool AddressSet::occursIn(std::string_view text) const {
    for (const auto i : others_)
        if (text.find(addresses_[i]) != std::string_view::npos) return true;
    for (auto at = text.find('@'); at != std::string_view::npos; at = text.find('@', at + 1)) {
        if (!isBetween(text, at)) continue;
        const auto found = byNeighbours_.find(neighbours(text, at));
        if (found == byNeighbours_.end()) continue;
        for (const auto i : found->second) {
            const std::string_view address = addresses_[i];
            const auto before = address.find('@');
            if (before <= at && text.substr(at - before, address.size()) == address) return true;
        }
    }
    return false;
}

}  // namespace brindlet
