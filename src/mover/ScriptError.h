#pragma once

#include <string>
#include <string_view>

/// What can be told from the text that the script host leaves on standard error: lines such as
/// "12:34: execution error: Mail has no folder Work (-2700)". Matching minds the letter case.
namespace brindlet {

/// The last line that is not empty, without every "execution error: "; `otherwise` when there is
/// none. Offsets and number stay.
std::string lastErrorLine(std::string_view errorText, std::string_view otherwise);

/// True when the system refuses us the use of other programs' menus.
bool lacksMenuPermission(std::string_view errorText);

/// True when the mail program ended while the script was talking to it.
bool tellsThatMailIsGone(std::string_view errorText);

}  // namespace brindlet
