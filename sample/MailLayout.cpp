#include "sample/MailLayout.h"

#include "sample/Random.h"

namespace brindlet::sample {
namespace {

bool staysPlain(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
           c == '.' || c == '_' || c == '~';
}

constexpr std::string_view hexDigits = "0123456789ABCDEF";

}  // namespace

const std::string_view dataRootInHome = "Library/Mail/V10";
const std::string_view indexInDataRoot = "MailData/Envelope Index";

std::string percentEncoded(std::string_view text, Slash slash) {
    std::string encoded;
    encoded.reserve(text.size() + 8);
    for (const char c : text) {
        if (staysPlain(c) || (c == '/' && slash == Slash::keep)) {
            encoded += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        encoded += '%';
        encoded += hexDigits[byte >> 4];
        encoded += hexDigits[byte & 15];
    }
    return encoded;
}

std::string mailboxUrl(std::string_view scheme, std::string_view account, std::string_view name) {
    std::string url(scheme);
    url += "://";
    url += account;
    url += '/';
    url += percentEncoded(name, Slash::keep);
    return url;
}

std::string identifierFor(std::string_view name) {
    std::uint64_t key = name.size();
    for (const char c : name) key = mixed(key, static_cast<unsigned char>(c));
    std::string identifier;
    for (std::size_t i = 0; i < 36; ++i) {
        if (i == 8 || i == 13 || i == 18 || i == 23)
            identifier += '-';
        else if (i == 14)
            identifier += '4';  // the version of identifiers that are made by chance
        else if (i == 19)
            identifier += hexDigits[8 + reduced(mixed(key, i), 4)];
        else
            identifier += hexDigits[reduced(mixed(key, i), 16)];
    }
    return identifier;
}

std::string mailboxDirectory(std::string_view account, std::string_view name) {
    std::string path(account);
    std::size_t from = 0;
    while (from <= name.size()) {
        std::size_t end = name.find('/', from);
        if (end == std::string_view::npos) end = name.size();
        if (end > from) {
            path += '/';
            path += name.substr(from, end - from);
            path += ".mbox";
        }
        from = end + 1;
    }
    return path;
}

std::string mailboxDataDirectory(std::string_view account, std::string_view name) {
    std::string path = mailboxDirectory(account, name);
    const std::string identifier = identifierFor(path);
    return path + '/' + identifier + "/Data";
}

std::string digitFolders(std::int64_t rowId) {
    std::string folders;
    for (std::int64_t left = rowId / 1000; left > 0; left /= 10) {
        folders += static_cast<char>('0' + left % 10);
        folders += '/';
    }
    return folders;
}

std::string messageDirectory(std::string_view dataDirectory, std::int64_t rowId) {
    return std::string(dataDirectory) + '/' + digitFolders(rowId) + "Messages";
}

std::string messageFileName(std::int64_t rowId, FileKind kind) {
    return std::to_string(rowId) + (kind == FileKind::partial ? ".partial.emlx" : ".emlx");
}

std::string attachmentDirectory(std::string_view dataDirectory, std::int64_t rowId) {
    return std::string(dataDirectory) + '/' + digitFolders(rowId) + "Attachments/" +
           std::to_string(rowId);
}

}  // namespace brindlet::sample
