#pragma once

#include <string>
#include <string_view>

namespace brindlet {

// A message's text reaches the model as it was sent: nothing between the file and here takes apart
// its parts or decodes them. These two make words of it again. Both take any bytes.

/// Leaves out boundary lines and part headers, decodes quoted-printable escapes, and replaces long
/// runs of base64 by the text inside them, without its tags.
std::string undressed(std::string_view text);

/// Latin letters lower-cased and without their marks ("\u00C4rger" gives "arger"), typographic
/// quotes, dashes and blanks as their plain forms, invisible characters dropped. A byte that is no
/// UTF-8 is read as the western character sets have it. Other scripts stay as they are.
std::string folded(std::string_view text);

}  // namespace brindlet
