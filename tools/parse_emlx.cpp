#include <cstdio>
#include <string>

#include "Arguments.h"
#include "base/Json.h"
#include "mail/MailStore.h"

// What the reader of message files makes of them.

namespace brindlet::tools {
namespace {

constexpr const char* usage =
    "parse_emlx FILE...\n"
    "\n"
    "Prints a JSON line for each message file, with its path, its Message-ID (null when it has\n"
    "none) and up to 700 characters of its visible text. A file that cannot be read gives what an\n"
    "empty one gives.\n"
    "\n"
    "  --help   this text\n";

constexpr std::int64_t bodyLimit = 700;

void print(const std::string& path, const MailStore::Parsed& parsed) {
    JsonWriter out;
    out.beginObject();
    out.member("path", path);
    out.key("messageID");
    if (parsed.messageID)
        out.value(*parsed.messageID);
    else
        out.null();
    out.member("body", parsed.body);
    out.endObject();
    std::puts(std::move(out).text().c_str());
}

int main(int count, char** values) {
    const Arguments arguments(count, values, {});
    if (arguments.help) {
        std::fputs(usage, stdout);
        return 0;
    }
    if (!arguments.problem.empty() || arguments.words.empty()) {
        std::fprintf(stderr, "%s\n",
                     arguments.problem.empty() ? "Name a message file; --help tells more."
                                               : arguments.problem.c_str());
        return wrongUse;
    }
    for (const std::string& path : arguments.words)
        print(path, MailStore::parseMessageFile(path, bodyLimit));
    return 0;
}

}  // namespace
}  // namespace brindlet::tools

int main(int count, char** values) {
    return brindlet::tools::main(count, values);
}
