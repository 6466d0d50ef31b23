#include "sample/MessageParts.h"

#include "sample/Random.h"

namespace brindlet::sample {
namespace {

/// Joins the pieces without a temporary for each.
template <class... Texts>
void append(std::string& out, const Texts&... texts) {
    (out.append(texts), ...);
}

std::string link(const Letter& letter, std::uint64_t number) {
    const std::uint64_t key = mixed(letter.key, 5000 + number);
    std::string url = "https://links.";
    append(url, letter.senderDomain, "/c/", token(key, 24 + reduced(key, 100)));
    return url;
}

void appendCard(std::string& out, const Letter& letter, const Piece& piece, std::size_t number) {
    const std::string target = link(letter, number);
    append(out,
           "<tr><td class=\"card\" style=\"padding:16px 24px;border-bottom:1px solid #e6e2da;\">",
           "\n<a href=\"", target, "\"><img src=\"https://images.", letter.senderDomain, "/w/552/",
           token(mixed(letter.key, 7000 + number), 22),
           ".jpg\" width=\"552\" height=\"230\" border=\"0\" alt=\"\" "
           "style=\"display:block;width:100%;max-width:552px;height:auto;\"></a>\n"
           "<h2 style=\"margin:12px 0;font-family:Georgia,serif;font-size:20px;\">",
           htmlEscaped(piece.title), "</h2>\n<p style=\"margin:0 0 16px 0;font-family:Helvetica,",
           "Arial,sans-serif;font-size:16px;line-height:25px;\">", htmlEscaped(piece.text),
           "</p>\n<a class=\"button\" href=\"", target,
           "\" style=\"display:inline-block;padding:12px 24px;color:#ffffff;\">&rarr;</a>\n"
           "</td></tr>\n");
}

void appendFooter(std::string& out, const Letter& letter) {
    append(out, "<tr><td class=\"footer\" style=\"padding:24px;font-size:12px;color:#7d776d;\">",
           htmlEscaped(letter.senderName), " &middot; <a href=\"", link(letter, 1),
           "\">Unsubscribe</a> &middot; <a href=\"", link(letter, 2), "\">Preferences</a>\n",
           "<img src=\"https://open.", letter.senderDomain, "/o/", token(letter.key, 40),
           ".gif\" width=\"1\" height=\"1\" alt=\"\"></td></tr>\n");
}

void appendCompanyHtml(std::string& out, const Letter& letter, const Filler& filler,
                       std::size_t size) {
    append(out, "<div class=\"preheader\" style=\"display:none;max-height:0;overflow:hidden;\">",
           htmlEscaped(letter.paragraphs.front()));
    // Many senders pad the preview line, so that nothing of the page shows in it.
    if (reduced(mixed(letter.key, 41), 3) == 0)
        for (int i = 0; i < 12; ++i) out += "&#847;&zwnj;&nbsp;";
    append(
        out,
        "</div>\n<table class=\"wrapper\" role=\"presentation\" width=\"100%\" cellspacing="
        "\"0\" cellpadding=\"0\" border=\"0\"><tr><td align=\"center\">\n"
        "<table class=\"sheet\" role=\"presentation\" width=\"600\" cellspacing=\"0\" "
        "cellpadding=\"0\" border=\"0\">\n<tr><td class=\"masthead\" align=\"center\"><a href=\"",
        link(letter, 0), "\"><img src=\"https://images.", letter.senderDomain,
        "/logo.png\" width=\"140\" alt=\"", htmlEscaped(letter.senderName),
        "\"></a></td></tr>\n<tr><td class=\"content\">\n<h1>", htmlEscaped(letter.subject),
        "</h1>\n");
    for (const std::string& paragraph : letter.paragraphs)
        append(out, "<p>", htmlEscaped(paragraph), "</p>\n");
    append(out, "</td></tr>\n");
    for (std::size_t number = 0; out.size() + 1'300 < size; ++number)
        appendCard(out, letter, filler.piece(number), number);
    appendFooter(out, letter);
    out += "</table>\n</td></tr></table>\n";
}

void appendLetterHtml(std::string& out, const Letter& letter, const Filler& filler,
                      std::size_t size) {
    for (const std::string& paragraph : letter.paragraphs)
        append(out, "<div dir=\"ltr\">", htmlEscaped(paragraph), "</div>\n<div><br></div>\n");
    if (out.size() + 300 > size) return;
    // The earlier letters of the exchange, as they are quoted.
    out += "<blockquote type=\"cite\" style=\"margin:0 0 0 .8ex;border-left:1px solid #ccc;\">\n";
    for (std::size_t number = 0; out.size() + 200 < size; ++number) {
        const Piece piece = filler.piece(number);
        append(out, "<div style=\"font-family:Helvetica,Arial,sans-serif;font-size:14px;\">",
               htmlEscaped(piece.title), ", ", htmlEscaped(piece.text),
               "</div>\n<div><br class=\"quoted\"></div>\n");
    }
    out += "</blockquote>\n";
}

}  // namespace

Piece Filler::piece(std::size_t number) const {
    Filling filling = filling_;
    filling.key = mixed(filling_.key, 100 + number);
    if (family_.ascii) {
        const auto& cards = texts_.cards(family_);
        const Card& card = cards[reduced(filling.key, cards.size())];
        return {card.title.filled(filling), card.text.filled(filling)};
    }
    // There are no cards in other tongues; the family's own words go on.
    const auto& subjects = family_.subjects;
    const auto& sayings = family_.sayings;
    return {subjects[number % subjects.size()].subject.filled(filling),
            sayings[number % sayings.size()].filled(filling)};
}

std::string typeset(std::string_view text) {
    std::string out;
    out.reserve(text.size() + 16);
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool opens = i == 0 || text[i - 1] == ' ' || text[i - 1] == '(';
        if (text[i] == '\'')
            out += opens ? "\u2018" : "\u2019";
        else if (text[i] == '"')
            out += opens ? "\u201c" : "\u201d";
        else if (text[i] == '-' && opens && text.substr(i, 2) == "- ")
            out += "\u2013";
        else
            out += text[i];
    }
    return out;
}

std::string htmlEscaped(std::string_view text) {
    std::string escaped;
    escaped.reserve(text.size() + 16);
    for (const char c : text) {
        if (c == '&')
            escaped += "&amp;";
        else if (c == '<')
            escaped += "&lt;";
        else if (c == '>')
            escaped += "&gt;";
        else if (c == '"')
            escaped += "&quot;";
        else
            escaped += c;
    }
    return escaped;
}

std::string token(std::uint64_t key, std::size_t length) {
    constexpr std::string_view characters =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";
    Random random(key);
    std::string text;
    text.reserve(length);
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < length; ++i, bits >>= 6) {
        if (i % 10 == 0) bits = random.next();
        text += characters[bits & 63];
    }
    return text;
}

std::string htmlPart(const Letter& letter, const Filler& filler, std::string_view style,
                     std::string_view charset, std::size_t size) {
    std::string out;
    out.reserve(size + 4096);
    append(out, "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta http-equiv=\"Content-Type\" ",
           "content=\"text/html; charset=", charset, "\">\n<meta name=\"viewport\" ",
           "content=\"width=device-width, initial-scale=1\">\n");
    if (letter.machineSent) append(out, "<title>", htmlEscaped(letter.subject), "</title>\n");
    if (letter.machineSent && size > 6'000)
        append(out, "<style type=\"text/css\">\n", style, "</style>\n");
    append(out, "</head>\n<body>\n");
    if (letter.machineSent)
        appendCompanyHtml(out, letter, filler, size);
    else
        appendLetterHtml(out, letter, filler, size);
    out += "</body>\n</html>\n";
    return out;
}

std::string plainPart(const Letter& letter, const Filler& filler, std::size_t size) {
    std::string out;
    out.reserve(size + 2048);
    for (const std::string& paragraph : letter.paragraphs) append(out, paragraph, "\n\n");
    if (letter.machineSent) {
        for (std::size_t number = 0; out.size() + 400 < size; ++number) {
            const Piece piece = filler.piece(number);
            append(out, "* ", piece.title, "\n", piece.text, "\n", link(letter, number), "\n\n");
        }
        append(out, "--\n", letter.senderName, "\nUnsubscribe: ", link(letter, 1), "\n");
    } else if (out.size() + 250 < size) {
        append(out, "> On an earlier day you wrote:\n>\n");
        for (std::size_t number = 0; out.size() + 200 < size; ++number) {
            const Piece piece = filler.piece(number);
            append(out, "> ", piece.title, ", ", piece.text, "\n>\n");
        }
    }
    return out;
}

}  // namespace brindlet::sample
