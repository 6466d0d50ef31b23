#pragma once

#include <optional>
#include <string>

#include "mail/MailAccount.h"

namespace brindlet {

/// How mail gets to its destination: by a script that tells the mail program to move each message,
/// or by the mail program's own menu, as a person would.
enum class MoveRoute { script, menu };

/// The menu only where a scripted move would merely tag, and only when the person allows it.
MoveRoute moveRoute(const MailAccount& account, const std::string& destination, bool allowUIMove);

/// Whether the mail can be filed on Gmail's own server, given an app password: not out of a folder
/// of junk, nor into one of Gmail's own folders.
bool mayFileThroughGmail(const MailAccount& account, const std::string& destination, bool fromJunk);

/// Where the ticked mail of a folder goes: rescued mail to the account's inbox, junk to where the
/// person chose (`saved`) or else to where the account keeps it.
std::string moveDestination(const MailAccount& account, bool fromJunk,
                            const std::optional<std::string>& saved);

}  // namespace brindlet
