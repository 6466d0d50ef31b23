#pragma once

#include <array>
#include <string_view>

/// Labels and folders that every Gmail account has of itself.
namespace brindlet::sample {

/// Above Gmail's own folders; is none itself.
inline constexpr std::string_view gmailRoot = "[Gmail]";
/// Holds every message but those in Spam and the bin.
inline constexpr std::string_view gmailAllMail = "[Gmail]/All Mail";

struct GmailLabel {
    std::string_view path;
    /// As a label; empty where it is none.
    std::string_view label;
    /// What the folder is for (RFC 6154); empty where that has no word.
    std::string_view attribute;
    /// A client may put it on and off.
    bool changes = false;
};

inline constexpr std::array<GmailLabel, 9> gmailLabels{{
    {"INBOX", "\\Inbox", "", true},
    {gmailAllMail, "", "\\All"},
    {"[Gmail]/Important", "\\Important", "\\Important", true},
    {"[Gmail]/Starred", "\\Starred", "\\Flagged", true},
    {"[Gmail]/Sent Mail", "\\Sent", "\\Sent"},
    {"[Gmail]/Drafts", "\\Draft", "\\Drafts"},
    {"[Gmail]/Spam", "", "\\Junk"},
    {"[Gmail]/Trash", "", "\\Trash"},
    {"[Gmail]/Bin", "", "\\Trash"},
}};

}  // namespace brindlet::sample
