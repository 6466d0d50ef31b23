#include "mover/MenuReport.h"

#include "base/Text.h"

namespace brindlet {

std::string menuList(const std::set<std::string>& messageIDs) {
    std::string list = "\n";
    for (const auto& id : messageIDs) list.append(id).append("\n");
    return list;
}

std::optional<MenuResult> parseMenuResult(std::string_view output) {
    const auto first = output.find('|');
    if (first == std::string_view::npos) return std::nullopt;
    const auto second = output.find('|', first + 1);
    if (second == std::string_view::npos) return std::nullopt;
    const auto gone = parseInt64(output.substr(first + 1, second - first - 1));
    if (!parseInt64(output.substr(0, first)) || !gone) return std::nullopt;
    return MenuResult{*gone, output.substr(second + 1)};
}

std::set<std::string> parseGoneIDs(std::string_view rest) {
    std::set<std::string> ids;
    for (const auto line : nonEmptyPieces(rest, '\n'))
        if (const auto id = trimSpacesAndTabs(line); !id.empty()) ids.emplace(id);
    return ids;
}

}  // namespace brindlet
