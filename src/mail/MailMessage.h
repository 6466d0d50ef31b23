#pragma once

#include <cstdint>
#include <string>

namespace brindlet {

/// One row of the mail index: an immutable value.
struct MailMessage {
    /// The row id, which also names the message's file.
    std::int64_t id = 0;
    /// "comment <address>" when there is a display name, else the bare address; empty without a
    /// sender.
    std::string sender;
    std::string subject;
    /// Seconds since 1970, UTC.
    std::int64_t dateSent = 0;

    friend bool operator==(const MailMessage&, const MailMessage&) = default;
};

}  // namespace brindlet
