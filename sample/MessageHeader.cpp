#include "sample/MessageHeader.h"

#include <array>
#include <chrono>

#include "sample/MessageParts.h"
#include "sample/MimeText.h"

namespace brindlet::sample {
namespace {

constexpr std::array<std::string_view, 7> weekdays{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
constexpr std::array<std::string_view, 12> months{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                  "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::array<int, 6> zones{0, 1, 2, -5, -8, 0};

std::string twoDigits(std::int64_t number) {
    std::string text(2, '0');
    text[0] = static_cast<char>('0' + number / 10);
    text[1] = static_cast<char>('0' + number % 10);
    return text;
}

std::string addressText(const Person& person) {
    if (person.name.empty()) return person.address;
    std::string text = headerText(person.name);
    // These would end the name early.
    if (person.name.find_first_of(",.\"") != std::string::npos && isAscii(person.name))
        text = '"' + text + '"';
    return text + " <" + person.address + '>';
}

std::string serverName(const std::string& domain, Random& random) {
    return "mta" + std::to_string(random.between(1, 40)) + '.' + domain;
}

void appendReceived(std::string& out, const PlannedMessage& message, Random& random, int hop) {
    const std::string domain(message.sender.domain());
    const std::string greeting = serverName(domain, random);
    const std::string server = serverName(domain, random);
    const std::string address = std::to_string(random.between(2, 250));
    const std::string receiver = std::to_string(random.between(1, 9));
    const std::string number = token(random.next(), 16);
    out += "Received: from " + greeting + " (" + server + " [203.0.113." + address + "])\n\tby mx" +
           receiver + ".fernhill.example (Postbox) with ESMTPS id " + number + "\n\tfor <" +
           message.recipients.front().address + ">; " + headerDate(message.dateSent + 3 - hop, 0) +
           '\n';
}

void appendSignature(std::string& out, const PlannedMessage& message, Random& random) {
    const std::string domain(message.sender.domain());
    out += "Authentication-Results: mx.fernhill.example;\n\tdkim=pass header.d=" + domain +
           ";\n\tspf=pass smtp.mailfrom=bounce." + domain +
           ";\n\tdmarc=pass header.from=" + domain +
           "\nDKIM-Signature: v=1; a=rsa-sha256; c=relaxed/relaxed; d=" + domain;
    out += "; s=key" + std::to_string(random.between(1, 9)) +
           ";\n\th=from:to:subject:date:mime-version:content-type;\n\tbh=";
    out += token(random.next(), 43) + "=;\n\tb=";
    for (int line = 0; line < 5; ++line) out += token(random.next(), 66) + "\n\t ";
    out += token(random.next(), 14) + "==\n";
}

void appendMessageId(std::string& out, const PlannedMessage& message, Random& random) {
    if (message.messageId.empty()) return;
    constexpr std::array<std::string_view, 4> spellings{
        "Message-ID:", "Message-Id:", "Message-ID:", "message-id:"};
    const bool folded = message.trouble == Trouble::foldedMessageId;
    out += spellings[random.below(spellings.size())];
    out += folded ? "\n\t<" : " <";
    out += message.messageId + ">\n";
}

}  // namespace

std::string makeMessageId(const Person& sender, std::int64_t dateSent, Random& random) {
    constexpr std::string_view digits = "0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQ";
    const auto some = [&](std::size_t count, std::size_t base) {
        std::string text;
        for (std::size_t i = 0; i < count; ++i) text += digits[random.below(base)];
        return text;
    };
    const std::string host(sender.domain());
    const std::uint64_t form = random.below(5);
    const std::string first = some(24, form == 2 ? digits.size() : 16);
    const std::string second = some(8, form == 2 ? 36 : 10);
    if (form == 0) return identifierFor(first) + '@' + host;
    if (form == 1) return std::to_string(dateSent) + '.' + second + "@mail." + host;
    if (form == 2) return "CA+" + first + '=' + second + "@mail." + host;
    if (form == 3) return first + '-' + second + "-000000@" + host;
    return first + "$1/%" + second + '@' + host;
}

std::string headerDate(std::int64_t moment, int zoneHours) {
    using namespace std::chrono;
    const sys_seconds local{seconds(moment + zoneHours * 3600)};
    const auto day = floor<days>(local);
    const year_month_day date(day);
    const std::int64_t second = (local - day).count();
    std::string text(weekdays[weekday(day).c_encoding()]);
    text += ", " + std::to_string(static_cast<unsigned>(date.day())) + ' ';
    text += months[static_cast<unsigned>(date.month()) - 1];
    text += ' ' + std::to_string(static_cast<int>(date.year())) + ' ' + twoDigits(second / 3600) +
            ':' + twoDigits(second / 60 % 60) + ':' + twoDigits(second % 60) + ' ';
    text += zoneHours < 0 ? '-' : '+';
    return text + twoDigits(zoneHours < 0 ? -zoneHours : zoneHours) + "00";
}

void appendHeader(std::string& out, const PlannedMessage& message, Random& random,
                  std::size_t targetSize) {
    const bool machineSent = !message.family->fromContact();
    const bool isShort = targetSize < 3'200;
    out += "Return-Path: <" + message.sender.address + ">\n";
    const int hops = isShort ? 1 : static_cast<int>(random.between(2, 4));
    for (int hop = 0; hop < hops; ++hop) appendReceived(out, message, random, hop);
    const bool idFirst = random.chance(300);
    if (idFirst) appendMessageId(out, message, random);
    if (!isShort) appendSignature(out, message, random);
    out += "Date: " + headerDate(message.dateSent, zones[random.below(zones.size())]) + '\n';
    out += "From: " + addressText(message.sender) + "\nTo: ";
    for (std::size_t i = 0; i < message.recipients.size(); ++i)
        (out += i > 0 ? ",\n " : "") += addressText(message.recipients[i]);
    out += '\n';
    if (message.trouble != Trouble::noSubjectRow)
        out.append("Subject: ")
            .append(message.subjectPrefix)
            .append(headerText(message.subject))
            .append("\n");
    if (!idFirst) appendMessageId(out, message, random);
    if (!message.subjectPrefix.empty())
        out += "In-Reply-To: <" + token(message.key, 24) + "@mail.fernhill.example>\n";
    const std::string domain(message.sender.domain());
    if (machineSent) {
        out += "List-Unsubscribe: <https://links." + domain + "/u/" + token(random.next(), 48) +
               ">,\n <mailto:unsubscribe@" + domain + ">\n";
        out += "Precedence: bulk\nX-Mailer-Campaign: " + token(random.next(), 20) + '\n';
    } else if (!isShort) {
        out += "X-Mailer: Quillpost 4." + std::to_string(random.below(20)) + '\n';
    }
    out += "MIME-Version: 1.0\n";
}

}  // namespace brindlet::sample
