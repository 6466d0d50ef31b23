#pragma once

#include <string_view>

/// The texts of resources/, embedded by the build.
namespace brindlet::resources {

extern const std::string_view classifyInstructions;
extern const std::string_view eventInstructions;
extern const std::string_view vetoExpression;

}  // namespace brindlet::resources
