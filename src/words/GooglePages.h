#pragma once

/// Google's own pages, where the person makes an app password and takes it back.
namespace brindlet::googlePages {

inline constexpr const char* appPasswords = "https://myaccount.google.com/apppasswords";
/// As a sentence names it.
inline constexpr const char* permissions = "myaccount.google.com/permissions";

}  // namespace brindlet::googlePages
