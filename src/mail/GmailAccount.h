#pragma once

#include <string_view>

#include "mail/MailAccount.h"

/// What tells a Gmail account apart, where a folder is only a label: a move that is scripted adds
/// one and leaves the message where it is.
namespace brindlet {

/// True when a folder's name begins with "[Gmail]". Neither the address nor the host tells.
bool isGmail(const MailAccount& account);

/// True when mail that is moved into the folder is only tagged. On a Gmail account that is so for
/// every name without "spam", "trash" or "bin" in it; a folder called Cabin thus counts as a bin.
bool isLabelFolder(std::string_view name, const MailAccount& account);

/// True when mail in the folder teaches Gmail's filter and goes after a month: on a Gmail account,
/// every name with "spam" in it.
bool isSpamFolder(std::string_view name, const MailAccount& account);

}  // namespace brindlet
