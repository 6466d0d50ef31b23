#include "imap/Imap.h"

#include <algorithm>
#include <utility>

#include "base/Secret.h"
#include "base/Text.h"
#include "base/Utf8.h"
#include "imap/AsciiCase.h"
#include "imap/FetchedIDs.h"
#include "imap/UidSets.h"

namespace brindlet {
namespace {

using Failure = Imap::Failure;
using Kind = Failure::Kind;

constexpr std::size_t mostReceived = 1'048'576;

std::string_view withoutCarriageReturns(std::string_view line) {
    while (line.starts_with('\r')) line.remove_prefix(1);
    while (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

/// What would be a command of its own, or, as quotes go as they stand, could become the one flag
/// that deletes.
bool mayNotBeSent(std::string_view text) {
    if (text.find_first_of(std::string_view("\r\n\0", 3)) != std::string_view::npos) return true;
    constexpr std::string_view flag = "\\deleted";
    return std::search(text.begin(), text.end(), flag.begin(), flag.end(), isIgnoringCase) !=
           text.end();
}

std::string formatted(std::int64_t tag) {
    const std::string digits = std::to_string(tag);
    return 'a' + std::string(digits.size() < 3 ? 3 - digits.size() : 0, '0') + digits;
}

/// The labels of the system begin with a backslash and go bare.
std::string joined(const std::vector<std::string>& labels) {
    std::string all;
    for (const std::string& label : labels) {
        if (!all.empty()) all += ' ';
        all += label.starts_with('\\') ? label : '"' + label + '"';
    }
    return all;
}

}  // namespace

std::string Imap::Failure::description() const {
    switch (kind) {
        case Kind::connection:
            return "Couldn't reach Gmail: " + text;
        case Kind::protocolError:
            return "Gmail said something unexpected: " + text;
        case Kind::auth:
            return "Gmail refused the sign-in: " + text;
    }
    return text;
}

Imap::Imap(TlsConnector& connector, std::string host, std::uint16_t port)
    : connector_(connector), host_(std::move(host)), port_(port) {}

Imap::~Imap() {
    close();
}

void Imap::close() {
    if (const auto connection = std::exchange(connection_, nullptr)) connection->cancel();
}

Imap::Failed Imap::connect() {
    connection_ = connector_.make(host_, port_);
    if (const auto failure = connection_->connect()) return Failure{Kind::connection, *failure};
    const auto greeting = readResponse(std::nullopt);
    return greeting ? Failed() : greeting.failure();
}

Imap::Failed Imap::sendLine(std::string_view text) {
    if (mayNotBeSent(text)) return Failure{Kind::protocolError, "no response"};
    if (!connection_) return Failure{Kind::connection, "not connected"};
    const Secret line = Secret::joined({text, "\r\n"});
    const auto failure = connection_->send(line.text());
    return failure ? Failed({Kind::connection, *failure}) : Failed();
}

/// Gives out line by line what comes, up to and with the one that begins with `last`, which is the
/// result.
Result<std::string, Failure> Imap::read(std::string_view last, const EachLine& eachLine) {
    while (true) {
        const auto bytes = takeLine();
        if (!bytes) {
            if (const auto failure = receive()) return *failure;
            continue;
        }
        std::string repaired;
        if (!isValidUtf8(*bytes)) repaired = repairedUtf8(*bytes);
        const auto line = withoutCarriageReturns(repaired.empty() ? *bytes : repaired);
        eachLine(line);
        if (line.starts_with(last)) return std::string(line);
    }
}

/// The next line in the buffer, without its line feed. It stands until something is received.
std::optional<std::string_view> Imap::takeLine() {
    const auto lineFeed = buffer_.find('\n', searched_);
    if (lineFeed == std::string::npos) {
        searched_ = buffer_.size();
        return std::nullopt;
    }
    const auto line = std::string_view(buffer_).substr(taken_, lineFeed - taken_);
    taken_ = searched_ = lineFeed + 1;
    return line;
}

Imap::Failed Imap::receive() {
    if (!connection_) return Failure{Kind::connection, "not connected"};
    // Only here, so that no more than the beginning of one line is ever moved.
    buffer_.erase(0, taken_);
    searched_ -= std::exchange(taken_, 0);
    auto received = connection_->receive(mostReceived);
    if (received.bytes.empty()) {
        if (received.failure) return Failure{Kind::connection, *received.failure};
        if (received.ended) return Failure{Kind::connection, "server closed the connection"};
    } else if (buffer_.empty()) {
        buffer_ = std::move(received.bytes);
    } else {
        buffer_ += received.bytes;
    }
    return std::nullopt;
}

Result<Imap::Lines, Failure> Imap::readResponse(std::optional<std::string_view> tag) {
    Lines lines;
    const auto last = read(tag ? std::string(*tag) + ' ' : "* OK",
                           [&](std::string_view line) { lines.emplace_back(line); });
    if (!last) return last.failure();
    return lines;
}

/// One command, whose answer is given out line by line.
Imap::Failed Imap::run(std::string_view text, const EachLine& eachLine) {
    const std::string tag = formatted(++tag_);
    const Secret tagged = Secret::joined({tag, " ", text});
    if (const auto failure = sendLine(tagged.text())) return failure;
    const auto last = read(tag + ' ', eachLine);
    if (!last) return last.failure();
    return last->starts_with(tag + " OK") ? Failed() : Failed({Kind::protocolError, *last});
}

Result<Imap::Lines, Failure> Imap::command(std::string_view text) {
    Lines lines;
    if (const auto failure = run(text, [&](std::string_view line) { lines.emplace_back(line); }))
        return *failure;
    return lines;
}

Result<std::int64_t, Failure> Imap::select(std::string_view mailbox) {
    const auto lines = command("SELECT \"" + std::string(mailbox) + '"');
    if (!lines) return lines.failure();
    for (const std::string& line : *lines) {
        if (line.find(" EXISTS") == std::string::npos) continue;
        const auto pieces = nonEmptyPieces(line, ' ');
        if (pieces.size() < 2) continue;
        if (const auto count = parseInt64(pieces[1])) return *count;
    }
    return std::int64_t{0};
}

Result<MessageIDs, Failure> Imap::fetchMessageIDs() {
    FetchedIDs fetched;
    if (const auto failure = run("UID FETCH 1:* (UID BODY.PEEK[HEADER.FIELDS (MESSAGE-ID)])",
                                 [&](std::string_view line) { fetched.add(line); }))
        return *failure;
    return std::move(fetched.ids);
}

Imap::Failed Imap::addLabels(const std::vector<std::string>& labels,
                             const std::vector<std::uint32_t>& uids) {
    return storeLabels(" +X-GM-LABELS (", labels, uids);
}

Imap::Failed Imap::removeLabels(const std::vector<std::string>& labels,
                                const std::vector<std::uint32_t>& uids) {
    return storeLabels(" -X-GM-LABELS (", labels, uids);
}

Imap::Failed Imap::storeLabels(std::string_view item, const std::vector<std::string>& labels,
                               const std::vector<std::uint32_t>& uids) {
    if (labels.empty()) return std::nullopt;
    for (const std::string& set : uidSets(uids)) {
        const auto done = command("UID STORE " + set + std::string(item) + joined(labels) + ')');
        if (!done) return done.failure();
    }
    return std::nullopt;
}

}  // namespace brindlet
