#include "sample/FetchRequest.h"

#include <algorithm>

#include "sample/ModifiedUtf7.h"

namespace brindlet::sample {
namespace {

constexpr std::string_view lineEnd = "\r\n";

std::string flagList(const ImapAccount::Marks& marks) {
    std::string list;
    if (marks.seen) list += "\\Seen";
    if (marks.flagged) list += list.empty() ? "\\Flagged" : " \\Flagged";
    return '(' + list + ')';
}

/// Gmail's own labels are quoted like all others, their backslash too.
std::string labelList(const std::vector<std::string>& labels) {
    std::string list;
    for (const std::string& label : labels)
        list += (list.empty() ? "" : " ") + imapQuoted(toModifiedUtf7(label));
    return '(' + list + ')';
}

std::string literal(const std::string& bytes) {
    return '{' + std::to_string(bytes.size()) + '}' + std::string(lineEnd) + bytes;
}

std::string_view fieldName(std::string_view line) {
    std::string_view name = line.substr(0, std::min(line.find(':'), line.size()));
    while (name.ends_with(' ') || name.ends_with('\t')) name.remove_suffix(1);
    return name;
}

}  // namespace

std::string headerFields(std::string_view header, const std::vector<std::string>& names) {
    std::string chosen;
    bool wanted = false;
    while (!header.empty() && !header.starts_with(lineEnd)) {
        const std::size_t end = header.find(lineEnd);
        const std::size_t length =
            end == std::string_view::npos ? header.size() : end + lineEnd.size();
        const std::string_view line = header.substr(0, length);
        header.remove_prefix(length);
        // A line that begins with a blank goes on with the field before it.
        if (!line.starts_with(' ') && !line.starts_with('\t'))
            wanted = std::any_of(names.begin(), names.end(), [&](const std::string& name) {
                return sameAscii(name, fieldName(line));
            });
        if (wanted) chosen += line;
    }
    return chosen.append(lineEnd);
}

std::string imapQuoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') quoted += '\\';
        quoted += c;
    }
    return quoted + '"';
}

FetchRequest FetchRequest::labels() {
    FetchRequest request;
    request.items_.push_back({Item::Kind::labels, "X-GM-LABELS", {}});
    return request;
}

bool FetchRequest::parseHeader(ImapParser& parser, std::vector<Item>& items) {
    Item item{Item::Kind::header, "BODY[HEADER]", {}};
    if (parser.take(".FIELDS (")) {
        std::string names;
        do {
            auto name = parser.text();
            if (!name) return false;
            names += (names.empty() ? "" : " ") + *name;
            item.fields.push_back(std::move(*name));
        } while (parser.take(" "));
        if (!parser.take(")")) return false;
        item.name = "BODY[HEADER.FIELDS (" + names + ")]";
    }
    items.push_back(std::move(item));
    return parser.take("]");
}

bool FetchRequest::parseItem(ImapParser& parser, std::vector<Item>& items) {
    if (parser.take("BODY.PEEK[HEADER") || parser.take("BODY[HEADER"))
        return parseHeader(parser, items);
    const auto name = parser.atom();
    if (!name) return false;
    if (sameAscii(*name, "UID")) return true;  // is told anyway
    if (sameAscii(*name, "FLAGS"))
        items.push_back({Item::Kind::flags, "FLAGS", {}});
    else if (sameAscii(*name, "RFC822.SIZE"))
        items.push_back({Item::Kind::size, "RFC822.SIZE", {}});
    else if (sameAscii(*name, "X-GM-LABELS"))
        items.push_back({Item::Kind::labels, "X-GM-LABELS", {}});
    else
        return false;
    return true;
}

std::optional<FetchRequest> FetchRequest::parse(ImapParser& parser) {
    FetchRequest request;
    const bool several = parser.take("(");
    do {
        if (!parseItem(parser, request.items_)) return std::nullopt;
    } while (several && parser.take(" "));
    if (several && !parser.take(")")) return std::nullopt;
    return request;
}

std::string FetchRequest::answer(ImapAccount& account, std::size_t number,
                                 const ImapMailbox::Message& message) const {
    const auto marks = account.marks(message.message);
    if (!marks) return "";
    std::string answer =
        "* " + std::to_string(number) + " FETCH (UID " + std::to_string(message.uid);
    for (const Item& item : items_) {
        answer += ' ' + item.name + ' ';
        switch (item.kind) {
            case Item::Kind::flags:
                answer += flagList(*marks);
                break;
            case Item::Kind::size:
                answer += std::to_string(account.size(message.message));
                break;
            case Item::Kind::labels:
                answer += labelList(account.labels(message.message));
                break;
            case Item::Kind::header: {
                const std::string header = account.header(message.message);
                answer += literal(item.fields.empty() ? header : headerFields(header, item.fields));
                break;
            }
        }
    }
    return answer.append(")").append(lineEnd);
}

}  // namespace brindlet::sample
