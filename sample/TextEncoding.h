#pragma once

#include <string>
#include <string_view>

#include "sample/Random.h"

namespace brindlet::sample {

/// How a message's texts are carried.
enum class Transfer { sevenBit, eightBit, quotedPrintable, base64 };

struct TextEncoding {
    std::string_view charset;
    Transfer transfer = Transfer::sevenBit;
};

/// The name in the header.
std::string_view transferName(Transfer transfer);

/// Most of what is not ASCII comes as raw bytes, a third of them ISO-8859-1 where the text fits.
TextEncoding chooseEncoding(bool ascii, bool fitsLatin1, Random& random);

/// Turns UTF-8 into the bytes of the part; what has no place in ISO-8859-1 stays UTF-8.
std::string encoded(std::string text, const TextEncoding& encoding);

}  // namespace brindlet::sample
