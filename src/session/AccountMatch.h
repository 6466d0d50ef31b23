#pragma once

#include <string>
#include <vector>

#include "mail/MailAccount.h"

namespace brindlet {

/// The account that a label names: the first whose own label equals it, in the whole list; else the
/// first with an address where one contains the other, in any letter case. Null when none does.
const MailAccount* accountForLabel(const std::vector<MailAccount>& accounts,
                                   const std::string& label);

/// The account's folder that an earlier reading knew as `old`: by its id in the whole list; else the
/// first whose last path component is the same in any letter case, so that a folder that moved to
/// another parent is still found. Null when none is.
const MailFolder* folderAsBefore(const MailAccount& account, const MailFolder& old);

}  // namespace brindlet
