#pragma once

#include <string_view>

/// The texts of scripts/, embedded by the build. They are sent to the mail program as they stand.
namespace brindlet::resources {

extern const std::string_view bulkMoveScript;
extern const std::string_view menuMoveScript;

}  // namespace brindlet::resources
