#include "imap/UidSets.h"

#include <algorithm>

namespace brindlet {
namespace {

/// The runs of a sorted list without repetitions.
std::vector<std::string> pieces(const std::vector<std::uint32_t>& uids) {
    std::vector<std::string> pieces;
    for (std::size_t first = 0; first < uids.size();) {
        std::size_t last = first;
        while (last + 1 < uids.size() && uids[last + 1] == uids[last] + 1) ++last;
        pieces.push_back(std::to_string(uids[first]));
        if (last > first) pieces.back() += ':' + std::to_string(uids[last]);
        first = last + 1;
    }
    return pieces;
}

}  // namespace

std::vector<std::string> uidSets(std::vector<std::uint32_t> uids) {
    constexpr std::size_t limit = 901;  // of the pieces, a comma counted with each
    std::sort(uids.begin(), uids.end());
    uids.erase(std::unique(uids.begin(), uids.end()), uids.end());
    std::vector<std::string> sets;
    for (const std::string& piece : pieces(uids)) {
        if (!sets.empty() && sets.back().size() + 1 + piece.size() + 1 < limit)
            sets.back() += ',' + piece;
        else
            sets.push_back(piece);
    }
    return sets;
}

}  // namespace brindlet
