#pragma once

#include <cstdint>
#include <string>

/// What really lies in a sample home, counted without the help of the program or of the server.
/// Blocking.
namespace brindlet::demo {

/// Message files below a mailbox's own folder.
std::int64_t messageFiles(const std::string& home, const std::string& account,
                          const std::string& mailbox);

/// Messages that a mailbox of an account over IMAP lists: those that lie in it and those that only
/// have its label. 0 where there is no such mailbox.
std::int64_t messagesListed(const std::string& home, const std::string& account,
                            const std::string& mailbox);

}  // namespace brindlet::demo
