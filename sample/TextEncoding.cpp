#include "sample/TextEncoding.h"

#include <utility>

#include "sample/MimeText.h"

namespace brindlet::sample {

std::string_view transferName(Transfer transfer) {
    switch (transfer) {
        case Transfer::sevenBit:
            return "7bit";
        case Transfer::eightBit:
            return "8bit";
        case Transfer::quotedPrintable:
            return "quoted-printable";
        case Transfer::base64:
            break;
    }
    return "base64";
}

TextEncoding chooseEncoding(bool ascii, bool fitsLatin1, Random& random) {
    const std::uint64_t choice = random.below(100);
    if (ascii) {
        if (choice < 78) return {"us-ascii", Transfer::sevenBit};
        if (choice < 94) return {"utf-8", Transfer::quotedPrintable};
        if (choice < 98) return {"utf-8", Transfer::base64};
        return {"utf-8", Transfer::eightBit};
    }
    if (choice < 25 && fitsLatin1) return {"iso-8859-1", Transfer::eightBit};
    if (choice < 75) return {"utf-8", Transfer::eightBit};
    if (choice < 85) return {"utf-8", Transfer::quotedPrintable};
    if (choice < 90 && fitsLatin1) return {"iso-8859-1", Transfer::quotedPrintable};
    return {"utf-8", Transfer::base64};
}

std::string encoded(std::string text, const TextEncoding& encoding) {
    if (encoding.charset == "iso-8859-1")
        if (auto bytes = latin1(text)) text = *std::move(bytes);
    switch (encoding.transfer) {
        case Transfer::quotedPrintable:
            return quotedPrintable(text);
        case Transfer::base64:
            return base64Lines(text);
        case Transfer::sevenBit:
        case Transfer::eightBit:
            break;
    }
    return text;
}

}  // namespace brindlet::sample
