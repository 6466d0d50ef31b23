#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "mail/MailStore.h"

/// The plainest way to take a message apart: repair the whole text, cut it into characters, and go
/// through them one by one. Slow, and made to be read.
namespace brindlet::testing {

std::string referenceVisibleText(std::string_view raw, std::int64_t limit);
MailStore::Parsed referenceParse(std::string_view bytes, std::int64_t limit);

}  // namespace brindlet::testing
