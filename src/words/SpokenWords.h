#pragma once

namespace brindlet::spoken {

/// What a screen reader says of controls and lists that show no word of their own.
inline constexpr const char* back = "Back";
inline constexpr const char* dismiss = "Dismiss";
inline constexpr const char* clear = "Clear";
inline constexpr const char* account = "Account";
inline constexpr const char* howMany = "How many messages";
inline constexpr const char* mailboxes = "Mailboxes";
inline constexpr const char* messages = "Messages";
inline constexpr const char* pastScans = "Past scans";
inline constexpr const char* binnedScans = "Deleted scans";
inline constexpr const char* movedMessages = "Moved messages";
inline constexpr const char* progress = "Progress";
inline constexpr const char* rules = "Rules";
inline constexpr const char* kindOfMail = "Kind of mail";
inline constexpr const char* ruleSays = "What the rule says";
inline constexpr const char* expanded = "Expanded";
inline constexpr const char* collapsed = "Collapsed";

}  // namespace brindlet::spoken
