#include "sample/EmlxWriter.h"

namespace brindlet::sample {
namespace {

/// Ten characters of count, padded with blanks, and the line feed.
constexpr std::size_t countWidth = 10;
constexpr std::size_t countLine = countWidth + 1;

void appendNumber(std::string& out, std::string_view key, std::string_view type,
                  std::int64_t number) {
    out += "\t<key>";
    out += key;
    out += "</key>\n\t<";
    out += type;
    out += '>';
    out += std::to_string(number);
    out += "</";
    out += type;
    out += ">\n";
}

}  // namespace

std::int64_t flagBits(const EmlxFlags& flags) {
    std::int64_t bits = std::int64_t{1} << 33;
    if (flags.read) bits |= 1;
    if (flags.flagged) bits |= 1 << 4;
    return bits | (1 << 7);
}

void beginEmlx(std::string& out) {
    out.assign(countWidth, ' ');
    out += '\n';
}

void finishEmlx(std::string& out, const EmlxFlags& flags) {
    const std::string count = std::to_string(out.size() - countLine);
    out.replace(0, count.size(), count);
    out +=
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
        "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
        "<plist version=\"1.0\">\n<dict>\n";
    appendNumber(out, "conversation-id", "integer", flags.conversation);
    appendNumber(out, "date-last-viewed", "integer", flags.read ? flags.dateReceived + 60 : 0);
    appendNumber(out, "date-received", "integer", flags.dateReceived);
    appendNumber(out, "flags", "integer", flagBits(flags));
    appendNumber(out, "remote-id", "string", flags.remoteId);
    out += "</dict>\n</plist>\n";
}

std::string_view messageInEmlx(std::string_view file) {
    std::size_t count = 0;
    std::size_t at = 0;
    for (; at < file.size() && file[at] >= '0' && file[at] <= '9' && at < countWidth; ++at)
        count = count * 10 + static_cast<std::size_t>(file[at] - '0');
    if (at == 0 || file.size() < countLine || file[countWidth] != '\n') return {};
    if (count > file.size() - countLine) return {};
    return file.substr(countLine, count);
}

}  // namespace brindlet::sample
