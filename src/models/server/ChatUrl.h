#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brindlet {

/// Where a model server on this machine takes its questions, from how a person names the server:
/// "http://localhost:11434" gives "http://127.0.0.1:11434/v1/chat/completions". A path in front of
/// that one is kept, and "/v1" or the whole is not added again where the name has it already.
///
/// None unless the name says in so many words that the server is this machine: http, then an
/// address of 127.0.0.0/8 in four plain decimal numbers, [::1] or localhost, which becomes
/// 127.0.0.1 so that nothing is ever looked up; a port from 1 to 65535 if any; a path of letters,
/// digits and "-._~/" if any. What other programs would also take for such an address, in octal,
/// shortened or behind a user's name, is refused: each reads those in its own way.
std::optional<std::string> chatUrl(std::string_view server);

}  // namespace brindlet
