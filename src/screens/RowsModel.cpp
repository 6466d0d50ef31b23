#include "screens/RowsModel.h"

#include <map>
#include <unordered_map>

namespace brindlet::screens {

// A damaged file may give one id to several rows; then the first, the second and so on are told
// apart.
RowSteps RowsModel::steps(const Ids& before, const Ids& after) {
    std::map<std::pair<std::string_view, std::size_t>, std::uint64_t> numbers;
    const auto keys = [&](const Ids& ids) {
        std::unordered_map<std::string_view, std::size_t> met;
        std::vector<std::uint64_t> made;
        for (const auto id : ids)
            made.push_back(numbers.try_emplace({id, met[id]++}, numbers.size()).first->second);
        return made;
    };
    const auto from = keys(before);
    return rowSteps(from, keys(after));
}

}  // namespace brindlet::screens
