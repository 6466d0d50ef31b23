#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "mail/MailAccount.h"

namespace brindlet {

/// The folder that the mail program makes when an account has no other place for junk.
inline constexpr std::string_view ownJunkFolder = "Brindlet Junk";

/// Where an account's junk may go: its junk folders, the fullest first, and `ownJunkFolder` at the
/// end unless it is one of them.
std::vector<std::string> junkCandidates(const MailAccount& account);

/// Where it does go. The person's choice, as saved, counts while that folder is still there;
/// `ownJunkFolder` always counts, as it can be made. Otherwise the first candidate, but that a
/// Gmail account passes those with "spam" in their name: that folder trains the filter and is
/// emptied after a month.
std::string junkDestination(const MailAccount& account, const std::optional<std::string>& saved);

}  // namespace brindlet
