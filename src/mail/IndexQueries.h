#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "mail/MailMessage.h"

/// The statements behind `MailStore::messages`, over a database that is already the reader's own.
namespace brindlet {

/// The rows filed in a mailbox, newest first. The mailbox is the statement's one parameter; `limit`
/// and `since` below 1 leave their clause out.
std::string filedMessagesQuery(std::int64_t limit, std::int64_t since);
/// The rows labelled with it, which are filed elsewhere.
std::string labelledMessagesQuery(std::int64_t limit, std::int64_t since);

/// Runs one of the two. What came before an error is kept; an empty list may mean any failure.
std::vector<MailMessage> readMessages(const std::string& database, const std::string& query,
                                      std::int64_t mailbox);

}  // namespace brindlet
