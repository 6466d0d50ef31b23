#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Text into the forms in which mail carries it. Input is valid UTF-8, line ends are line feeds.
namespace brindlet::sample {

/// RFC 4648, broken at 76 characters, with a line feed at the end.
std::string base64Lines(std::string_view bytes);
/// RFC 2045 section 6.7: soft breaks before the 77th character.
std::string quotedPrintable(std::string_view bytes);
/// ISO-8859-1; none when a character has no place in it.
std::optional<std::string> latin1(std::string_view text);
/// A header's text as it stands when it is ASCII, else in encoded words of RFC 2047.
std::string headerText(std::string_view text);
/// Lines of at most 76 bytes where blanks allow it; paragraphs keep their empty lines.
std::string wrapped(std::string_view text, std::string_view indent);
bool isAscii(std::string_view text);

}  // namespace brindlet::sample
