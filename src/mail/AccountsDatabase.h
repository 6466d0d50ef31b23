#pragma once

#include <string>

#include "mail/AccountDiscovery.h"

namespace brindlet {

/// What the system's account database ("Library/Accounts/Accounts4.sqlite" below `home`) calls each
/// account, read from a private copy below `temporary` that is removed again. Empty when there is
/// no database or it cannot be read. Blocks; callers take turns, since the copy's place is fixed.
AccountLabels readAccountsDatabase(const std::string& home, const std::string& temporary);

}  // namespace brindlet
