#include "MarkedPart.h"

namespace brindlet::tools {

std::optional<std::string> withMarkedPart(std::string_view document, std::string_view name,
                                          std::string_view text) {
    const std::string open = "<!-- " + std::string(name) + " -->\n";
    const std::string close = "<!-- /" + std::string(name) + " -->";
    const auto start = document.find(open);
    if (start == std::string_view::npos) return std::nullopt;
    const auto from = start + open.size();
    const auto to = document.find(close, from);
    if (to == std::string_view::npos) return std::nullopt;
    return std::string(document.substr(0, from)) + std::string(text) +
           std::string(document.substr(to));
}

}  // namespace brindlet::tools
