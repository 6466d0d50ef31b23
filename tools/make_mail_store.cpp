#include <algorithm>
#include <charconv>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Json.h"
#include "sample/SampleMailStore.h"

namespace {

using brindlet::sample::SampleOptions;

constexpr std::string_view usage =
    "make_mail_store DIR [--messages N] [--seed S] [--newest T]\n"
    "\n"
    "Makes a home folder with invented mail in DIR: \"Library/Mail/V10\" with an index and "
    "message\n"
    "files, and \"sample-facts.json\" with what a reader must find there. The same N, S and T make "
    "the\n"
    "same mail. A folder that holds a Library already is left alone. Prints the accounts and "
    "their\n"
    "folders as JSON.\n"
    "\n"
    "  --messages N  how many messages, from 1 to 1000000 (2000)\n"
    "  --seed S      another mailbox for every number (1)\n"
    "  --newest T    no mail is later than this, in seconds since 1970 (1772000000)\n"
    "  --help        this text\n";

constexpr int wrongUse = 2;

std::optional<std::int64_t> numberFrom(std::string_view text, std::int64_t least,
                                       std::int64_t most) {
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    if (number < least || number > most) return std::nullopt;
    return number;
}

struct Arguments {
    std::string directory;
    SampleOptions options;
    bool help = false;
};

/// None, after a sentence on standard error, when they cannot be understood.
std::optional<Arguments> argumentsFrom(const std::vector<std::string_view>& words) {
    Arguments arguments;
    const auto complain = [](std::string_view what, std::string_view word) {
        std::fprintf(stderr, "%.*s%.*s\n", static_cast<int>(what.size()), what.data(),
                     static_cast<int>(word.size()), word.data());
        return std::nullopt;
    };
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string_view word = words[i];
        if (word == "--help") {
            arguments.help = true;
        } else if (word == "--messages" || word == "--seed" || word == "--newest") {
            if (++i == words.size()) return complain("A number is missing after ", word);
            constexpr std::int64_t farFuture = 4'000'000'000;
            const auto number = word == "--messages" ? numberFrom(words[i], 1, 1'000'000)
                                : word == "--seed"   ? numberFrom(words[i], 0, INT64_MAX)
                                                     : numberFrom(words[i], 0, farFuture);
            if (!number) return complain("This is no number that fits: ", words[i]);
            if (word == "--messages")
                arguments.options.messages = *number;
            else if (word == "--seed")
                arguments.options.seed = static_cast<std::uint64_t>(*number);
            else
                arguments.options.newest = *number;
        } else if (word.starts_with('-')) {
            return complain("There is no such option: ", word);
        } else if (!arguments.directory.empty()) {
            return complain("One folder is enough; this is too much: ", word);
        } else {
            arguments.directory = word;
        }
    }
    if (arguments.directory.empty() && !arguments.help)
        return complain("Name the folder to make.", "");
    return arguments;
}

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
    const auto arguments =
        argumentsFrom(std::vector<std::string_view>(values + std::min(count, 1), values + count));
    if (!arguments) {
        std::fprintf(stderr, "%.*s\n", static_cast<int>(usage.find('\n')), usage.data());
        return wrongUse;
    }
    if (arguments->help) {
        std::fwrite(usage.data(), 1, usage.size(), stdout);
        return 0;
    }
    const bool isLong = arguments->options.messages >= 10'000;
    const auto outcome = brindlet::sample::makeMailStore(
        arguments->directory, arguments->options, [&](std::size_t written, std::size_t all) {
            constexpr std::size_t often = 5'000;
            if (isLong && written % often == 0)
                std::fprintf(stderr, "\r%zu of %zu messages", written, all);
        });
    if (isLong) std::fputc('\n', stderr);
    if (!outcome.problem.empty()) {
        std::fprintf(stderr, "%s\n", outcome.problem.c_str());
        return 1;
    }
    std::puts(summary(arguments->directory, outcome.facts).c_str());
    return 0;
}
