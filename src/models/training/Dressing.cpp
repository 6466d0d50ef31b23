#include "models/training/Dressing.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "models/training/Phrase.h"

namespace brindlet::training {
namespace {

constexpr std::size_t bodyBytes = 700;

template <std::size_t count>
std::string_view anyOf(const std::array<std::string_view, count>& texts, Random& random) {
    return texts[random.below(count)];
}

std::string quotedPrintable(std::string_view text) {
    static constexpr std::string_view digits = "0123456789ABCDEF";
    std::string out;
    std::size_t column = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        const bool escaped = byte >= 0x7F || c == '=';
        if (column + 3 > 75) {
            out += "= ";
            column = 0;
        }
        if (escaped)
            out.append({'=', digits[byte / 16], digits[byte % 16]});
        else
            out += c;
        column += escaped ? 3 : 1;
    }
    return out;
}

std::string base64(std::string_view text) {
    static constexpr std::string_view digits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string out;
    for (std::size_t i = 0; i < text.size(); i += 3) {
        std::size_t bits = 0;
        for (std::size_t n = 0; n < 3; ++n)
            bits = bits << 8 | (i + n < text.size() ? static_cast<unsigned char>(text[i + n]) : 0U);
        if (i > 0 && i % 57 == 0) out += ' ';
        for (std::size_t n = 0; n < 4; ++n)
            out += i + n > text.size() ? '=' : digits[bits >> (18 - 6 * n) & 63];
    }
    return out;
}

std::string boundary(Random& random) {
    static constexpr std::array<std::string_view, 5> starts{"--", "----=_Part_", "--000000",
                                                            "--===============", "--b1_"};
    std::string out(anyOf(starts, random));
    for (std::size_t left = 14 + random.below(12); left > 0; --left)
        out += "0123456789abcdef"[random.below(16)];
    return out;
}

std::string part(std::string_view type, std::string_view encoding, std::string_view body,
                 Random& random) {
    static constexpr std::array<std::string_view, 5> charsets{"utf-8", "UTF-8", "\"utf-8\"",
                                                              "iso-8859-1", "us-ascii"};
    std::string out;
    if (random.chance(20)) out += "This is a multi-part message in MIME format. ";
    out += boundary(random);
    out.append(" Content-Type: ").append(type).append("; charset=");
    out.append(anyOf(charsets, random)).append(" Content-Transfer-Encoding: ");
    return out.append(encoding).append(" ").append(body);
}

std::string dressedBody(const std::string& body, Grammar::Dress dress, Random& random) {
    const auto drawn = random.below(100);
    if (dress == Grammar::Dress::bulk && random.chance(10))
        return base64("<html><body>" + body + "</body></html>");
    if (drawn < (dress == Grammar::Dress::plain ? 85U : 45U)) return body;
    if (drawn < 65) return part("text/plain", "7bit", body, random);
    if (drawn < 82) return part("text/plain", "quoted-printable", quotedPrintable(body), random);
    if (drawn < 92) return part("text/html", "quoted-printable", quotedPrintable(body), random);
    if (drawn < 96) return part("text/plain", "base64", base64(body), random);
    return quotedPrintable(body);
}

}  // namespace

void dressUp(SampleMail& mail, Grammar::Dress dress, Random& random) {
    static constexpr std::array<std::string_view, 6> pictures{
        "\U0001F525 ", "\U0001F381 ", "\U0001F4A5 ", "\U0001F389 ", "\u23F0 ", "\u2728 "};
    const auto drawn = random.below(100);
    if (drawn < 5)
        mail.subject = changed(mail.subject, Phrase::Change::upper);
    else if (drawn < 11)
        mail.subject = changed(mail.subject, Phrase::Change::lower);
    else if (drawn < 17 && dress == Grammar::Dress::bulk)
        mail.subject.insert(0, anyOf(pictures, random));

    // Web mail often begins with its subject as a heading.
    if (dress != Grammar::Dress::plain && random.chance(12))
        mail.body.insert(0, mail.subject + ' ');
    if (random.chance(20)) mail.body = changed(mail.body, Phrase::Change::lower);
    if (random.chance(3)) mail.body.clear();
    if (!mail.body.empty()) mail.body = dressedBody(mail.body, dress, random);
    if (mail.body.size() > bodyBytes) mail.body.resize(bodyBytes);
}

}  // namespace brindlet::training
