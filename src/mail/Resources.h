#pragma once

#include <string_view>

/// The listing scripts, as the mail program's script host gets them.
namespace brindlet::resources {

extern const std::string_view listMailboxNamesScript;
extern const std::string_view listIdentitiesScript;

}  // namespace brindlet::resources
