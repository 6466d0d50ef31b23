#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brindlet::tools {

/// The document with the text in place of what stands between the lines "<!-- name -->" and
/// "<!-- /name -->", which stay. None when the document does not have these lines, in this order.
std::optional<std::string> withMarkedPart(std::string_view document, std::string_view name,
                                          std::string_view text);

}  // namespace brindlet::tools
