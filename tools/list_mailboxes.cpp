#include <cstdio>
#include <string>

#include "Arguments.h"
#include "ToolWorld.h"
#include "base/Json.h"
#include "mail/MailStore.h"
#include "models/embedded/EmbeddedModel.h"

// What the reader of the mail index makes of a home folder.

namespace brindlet::tools {
namespace {

constexpr const char* usage =
    "list_mailboxes --home DIR\n"
    "\n"
    "Prints the mail accounts below the home folder as a JSON array, each with its folders in the\n"
    "order that the screens show.\n"
    "\n"
    "  --home DIR   the folder that has Library/Mail in it\n"
    "  --help       this text\n";

int complain(const std::string& sentence, int status) {
    std::fprintf(stderr, "%s\n", sentence.c_str());
    return status;
}

void write(JsonWriter& out, const MailAccount& account) {
    out.beginObject();
    out.member("id", account.id);
    out.key("folders");
    out.beginArray();
    for (const MailFolder& folder : account.folders) {
        out.beginObject();
        out.member("id", folder.id);
        out.member("name", folder.name);
        out.member("count", folder.count);
        out.member("role", rawValue(folder.role));
        out.endObject();
    }
    out.endArray();
    out.endObject();
}

int main(int count, char** values) {
    const Arguments arguments(count, values, {"--home"});
    if (arguments.help) {
        std::fputs(usage, stdout);
        return 0;
    }
    if (!arguments.problem.empty()) return complain(arguments.problem, wrongUse);
    const auto home = arguments.option("--home");
    if (!home || !arguments.words.empty())
        return complain("Name a home folder with --home and nothing else; --help tells more.",
                        wrongUse);

    EmbeddedModel model;
    ToolWorld world(*home, std::nullopt);
    const MailStore store(world.services(model));
    if (!store.canReadIndex())
        return complain("There is no mail index that can be read in " + *home + ".", 1);
    JsonWriter out;
    out.beginArray();
    for (const MailAccount& account : store.loadAccounts(false, false)) write(out, account);
    out.endArray();
    std::puts(std::move(out).text().c_str());
    return 0;
}

}  // namespace
}  // namespace brindlet::tools

int main(int count, char** values) {
    return brindlet::tools::main(count, values);
}
