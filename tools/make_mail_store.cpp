#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "Arguments.h"
#include "base/Json.h"
#include "sample/SampleMailStore.h"

namespace {

using brindlet::sample::SampleOptions;

constexpr std::string_view usage =
    "make_mail_store DIR [--messages N] [--seed S] [--newest T]\n"
    "\n"
    "Makes a home folder with invented mail in DIR: \"Library/Mail/V10\" with an index and "
    "message\n"
    "files, \"Library/Accounts\" with what the system calls the accounts, \"sample-facts.json\" "
    "with\n"
    "what a reader must find there, and \"mail-program.json\" with what the simulated mail "
    "program is\n"
    "like. The same N, S and T make the same mail. A folder that holds a Library already is left\n"
    "alone. Prints the accounts and their folders as JSON.\n"
    "\n"
    "  --messages N  how many messages, from 1 to 1000000 (2000)\n"
    "  --seed S      another mailbox for every number (1)\n"
    "  --newest T    no mail is later than this, in seconds since 1970 (1772000000)\n"
    "  --help        this text\n";

std::string summary(const std::string& home, const brindlet::sample::SampleFacts& facts) {
    brindlet::JsonWriter json;
    json.beginObject();
    json.member("home", home);
    json.member("messages", static_cast<std::int64_t>(facts.messages.size()));
    json.member("newest", facts.newest);
    json.key("accounts");
    json.beginArray();
    for (const auto& account : facts.accounts) {
        json.beginObject();
        json.member("id", account.id);
        json.member("name", account.name);
        json.member("address", account.address);
        json.key("folders");
        json.beginArray();
        for (const auto& folder : account.folders) {
            json.beginObject();
            json.member("id", folder.id);
            json.member("name", folder.name);
            json.member("count", folder.count);
            json.member("role", folder.role);
            json.endObject();
        }
        json.endArray();
        json.endObject();
    }
    json.endArray();
    json.endObject();
    return std::move(json).text();
}

}  // namespace

int main(int count, char** values) {
    brindlet::tools::Arguments arguments(count, values, {"--messages", "--seed", "--newest"});
    if (arguments.help) {
        std::fwrite(usage.data(), 1, usage.size(), stdout);
        return 0;
    }
    SampleOptions options;
    constexpr std::int64_t farFuture = 4'000'000'000;
    options.messages = arguments.number("--messages", 1, 1'000'000).value_or(options.messages);
    options.newest = arguments.number("--newest", 0, farFuture).value_or(options.newest);
    if (const auto seed = arguments.number("--seed", 0, INT64_MAX))
        options.seed = static_cast<std::uint64_t>(*seed);
    if (arguments.problem.empty() && arguments.words.size() != 1)
        arguments.problem = "Name the one folder to make; --help tells more.";
    if (!arguments.problem.empty()) {
        std::fprintf(stderr, "%s\n", arguments.problem.c_str());
        return brindlet::tools::wrongUse;
    }

    const std::string& home = arguments.words.front();
    const bool isLong = options.messages >= 10'000;
    const auto outcome =
        brindlet::sample::makeMailStore(home, options, [&](std::size_t written, std::size_t all) {
            constexpr std::size_t often = 5'000;
            if (isLong && written % often == 0)
                std::fprintf(stderr, "\r%zu of %zu messages", written, all);
        });
    if (isLong) std::fputc('\n', stderr);
    if (!outcome.problem.empty()) {
        std::fprintf(stderr, "%s\n", outcome.problem.c_str());
        return 1;
    }
    std::puts(summary(home, outcome.facts).c_str());
    return 0;
}
