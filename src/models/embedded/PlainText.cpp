#include "models/embedded/PlainText.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "models/embedded/Ascii.h"

namespace brindlet {
namespace {

/// A word this long made of base64 letters alone is taken for encoded text.
constexpr std::size_t encodedLineBytes = 56;

int hexValue(char c) {
    if (ascii::isDigit(c)) return c - '0';
    // Escapes are written in capitals; "=ad" is far more often a link's parameter.
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

int base64Value(char c) {
    if (ascii::isUpper(c)) return c - 'A';
    if (ascii::isLower(c)) return c - 'a' + 26;
    if (ascii::isDigit(c)) return c - '0' + 52;
    return c == '+' ? 62 : c == '/' ? 63 : -1;
}

bool isBase64Word(std::string_view word) {
    return !word.empty() &&
           std::ranges::all_of(word, [](char c) { return base64Value(c) >= 0 || c == '='; });
}

bool isEncodedLine(std::string_view word) {
    return word.size() >= encodedLineBytes && std::ranges::any_of(word, ascii::isUpper) &&
           std::ranges::any_of(word, ascii::isLower) && std::ranges::any_of(word, ascii::isDigit) &&
           isBase64Word(word);
}

bool startsWithIgnoringCase(std::string_view word, std::string_view lowerCased) {
    return word.size() >= lowerCased.size() &&
           std::equal(lowerCased.begin(), lowerCased.end(), word.begin(),
                      [](char a, char b) { return a == ascii::lower(b); });
}

/// "--" and then a token with some digits in it, as mail programs invent them.
bool isBoundary(std::string_view word) {
    return word.starts_with("--") && word.size() >= 12 &&
           std::ranges::count_if(word, ascii::isDigit) >= 3;
}

bool isPartParameter(std::string_view word) {
    static constexpr std::array<std::string_view, 7> names{
        "charset=", "boundary=", "format=", "delsp=", "name=", "filename=", "reply-type="};
    return std::ranges::any_of(
        names, [&](std::string_view name) { return startsWithIgnoringCase(word, name); });
}

/// The words of a text, split at blanks and control characters.
class Words {
  public:
    explicit Words(std::string_view text) : rest_(text) {}

    bool next(std::string_view& word) {
        const auto start = std::ranges::find_if_not(rest_, ascii::isControlOrBlank);
        const auto end = std::find_if(start, rest_.end(), ascii::isControlOrBlank);
        word = std::string_view(start, end);
        rest_ = std::string_view(end, rest_.end());
        return !word.empty();
    }

  private:
    std::string_view rest_;
};

/// Decodes base64 digits and wipes the tags of what comes out.
class EncodedRun {
  public:
    void add(std::string_view word) {
        for (const char c : word) {
            const int value = base64Value(c);
            if (value < 0) continue;
            bits_ = (bits_ << 6 | static_cast<std::uint32_t>(value)) & 0xFFFF;
            count_ += 6;
            if (count_ < 8) continue;
            count_ -= 8;
            put(static_cast<char>(bits_ >> count_ & 0xFF));
        }
    }
    const std::string& text() const { return text_; }

  private:
    void put(char c) {
        if (c == '<') inTag_ = true;
        if (!inTag_) text_ += ascii::isControlOrBlank(c) ? ' ' : c;
        if (c != '>' || !inTag_) return;
        inTag_ = false;
        text_ += ' ';
    }

    std::uint32_t bits_ = 0;
    int count_ = 0;
    bool inTag_ = false;
    std::string text_;
};

/// Appends the word with its escapes decoded; false when it ends in a soft line break, so that the
/// next word goes on where this one stopped.
bool appendUnescaped(std::string& out, std::string_view word) {
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (word[i] != '=') {
            out += word[i];
            continue;
        }
        if (i + 1 == word.size()) return false;
        const int high = hexValue(word[i + 1]);
        const int low = i + 2 < word.size() ? hexValue(word[i + 2]) : -1;
        if (high < 0 || low < 0) {
            out += '=';
            continue;
        }
        out += static_cast<char>(high * 16 + low);
        i += 2;
    }
    return true;
}

/// The bytes of the UTF-8 sequence that the text begins with, 0 when it is none.
std::size_t sequenceBytes(std::string_view text) {
    const auto first = static_cast<unsigned char>(text.front());
    const std::size_t size = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : first >= 0xC2 ? 2 : 0;
    if (size > text.size()) return 0;
    for (std::size_t i = 1; i < size; ++i)
        if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) return 0;
    return size;
}

/// The letters from U+00C0 on without their marks; "." for what is no letter, and capitals for the
/// two letters that some stand for.
constexpr std::string_view plainLetters =
    "aaaaaaAceeeeiiiidnooooo.ouuuuyTSaaaaaaAceeeeiiiidnooooo.ouuuuyTy"
    "aaaaaaccccccccddddeeeeeeeeeegggggggghhhhiiiiiiiiiiJJjjkkklllllll"
    "lllnnnnnnnnnooooooOOrrrrrrssssssssttttttuuuuuuuuuuuuwwyyyzzzzzzs";

std::string_view plainLetter(std::size_t number) {
    if (number >= plainLetters.size() || plainLetters[number] == '.') return {};
    switch (plainLetters[number]) {
        case 'A':
            return "ae";
        case 'O':
            return "oe";
        case 'S':
            return "ss";
        case 'T':
            return "th";
        case 'J':
            return "ij";
        default:
            return plainLetters.substr(number, 1);
    }
}

/// Two bytes of UTF-8.
void appendPlainLetter(std::string& out, std::string_view character) {
    const auto number =
        static_cast<std::size_t>((character[0] & 0x1F) << 6 | (character[1] & 0x3F));
    if (number == 0xA0) {  // no-break space
        out += ' ';
    } else if (number == 0xAD || number == 0x34F) {
        return;  // soft hyphen, grapheme joiner
    } else if (number >= 0xC0 && !plainLetter(number - 0xC0).empty()) {
        out += plainLetter(number - 0xC0);
    } else {
        out += character;
    }
}

/// A byte of no UTF-8 sequence comes out of quoted-printable in one of the older western sets.
std::string_view plainByte(char c) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0xC0) return plainLetter(byte - 0xC0U);
    switch (byte) {
        case 0x80:
            return "\xE2\x82\xAC";
        case 0x91:
        case 0x92:
            return "'";
        case 0x93:
        case 0x94:
            return "\"";
        case 0x96:
        case 0x97:
            return "-";
        case 0xA3:
            return "\xC2\xA3";
        default:
            return " ";
    }
}

/// The last byte of a character from U+2000 to U+203F.
std::string_view plainMark(char c) {
    const auto last = static_cast<unsigned char>(c);
    if (last <= 0x8A || last == 0xAF) return " ";   // spaces of many widths
    if (last >= 0x90 && last <= 0x95) return "-";   // dashes
    if (last == 0x98 || last == 0x99) return "'";   // single quotes
    if (last >= 0x9C && last <= 0x9F) return "\"";  // double quotes
    return {};                                      // the rest is invisible
}

}  // namespace

std::string undressed(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    Words words(text);
    std::string_view word;
    bool more = words.next(word);
    while (more) {
        if (isBoundary(word) || isPartParameter(word)) {
            more = words.next(word);
        } else if (startsWithIgnoringCase(word, "content-") && word.ends_with(':')) {
            // The value after the name, which goes on for as long as its words end in ";".
            do more = words.next(word);
            while (more && word.ends_with(';'));
            if (more) more = words.next(word);
        } else if (isEncodedLine(word)) {
            EncodedRun run;
            do {
                run.add(word);
                more = words.next(word);
            } while (more && word.size() >= 4 && isBase64Word(word));
            out += run.text();
            out += ' ';
        } else {
            if (appendUnescaped(out, word)) out += ' ';
            more = words.next(word);
        }
    }
    return out;
}

std::string folded(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const std::string_view rest = text.substr(i);
        if (static_cast<unsigned char>(text[i]) < 0x80) {
            out += ascii::lower(text[i++]);
            continue;
        }
        const std::size_t size = sequenceBytes(rest);
        const std::string_view character = rest.substr(0, size);
        if (size == 0)
            out += plainByte(text[i]);
        else if (size == 2)
            appendPlainLetter(out, character);
        else if (character.starts_with("\xE2\x80"))
            out += plainMark(character[2]);
        else if (character != "\xEF\xBB\xBF")  // byte-order mark, in marketing mail a filler
            out += character;
        i += std::max<std::size_t>(size, 1);
    }
    return out;
}

}  // namespace brindlet
