#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "Rounds.h"
#include "base/Files.h"
#include "base/Json.h"
#include "doubles/Doubles.h"
#include "stores/RuleIndex.h"
#include "stores/Seen.h"

// Finding the rules of a message, and loading and saving the list of all that was ever decided.

namespace brindlet::bench {
namespace {

/// Keeps the compiler from dropping work whose result nobody reads.
template <class T>
void keep(const T& value) {
    asm volatile("" : : "r"(&value) : "memory");
}

constexpr int senders = 5000;

std::string shop(std::size_t number) {
    return "shop" + std::to_string(number % senders) + ".example";
}

/// Of each sender in turn: all its mail, one category, one pattern, one address.
std::vector<Rule> someRules(std::size_t count) {
    std::vector<Rule> rules(count);
    for (std::size_t i = 0; i < count; ++i) {
        Rule& rule = rules[i];
        const auto kind = i * 7 / senders % 4 + i % 4;
        rule.sender = kind % 4 == 3 ? "news@mail." + shop(i * 7) : shop(i * 7);
        if (kind % 4 == 1) rule.category = "newsletterOrDigest";
        if (kind % 4 == 2) rule.templateWords = {"your", "weekly", "digest"};
        rule.verdict = i % 3 ? Rule::Verdict::junk : Rule::Verdict::keep;
    }
    return rules;
}

struct Message {
    std::string sender;
    std::string subject;
};

std::vector<Message> someMessages(std::size_t count) {
    std::mt19937 random(1);
    std::vector<Message> messages(count);
    for (auto& message : messages) {
        const auto number = random();
        message.sender = "The Shop Around the Corner <news@mail." + shop(number) + ">";
        message.subject = "Your weekly digest no. " + std::to_string(number % 1000) +
                          ": 20 things that you should not miss";
    }
    return messages;
}

void decideAll(const std::vector<Message>& messages, const std::vector<Rule>& rules) {
    const RuleIndex index(rules);
    for (const Message& message : messages) {
        const auto covering = index.covering(message.sender);
        keep(RuleIndex::blanketVerdict(covering));
        keep(RuleIndex::match(covering, "newsletterOrDigest", message.subject));
    }
}

/// A list as scans of 500 messages leave it, with ids as the large mail services make them.
void writeSeenFile(const std::string& path, std::size_t entries) {
    constexpr std::string_view letters =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+-/=";
    constexpr std::size_t plainLetters = 62;
    std::mt19937 random(1);
    files::Writer file(path);
    JsonWriter out(file);
    out.beginObject();
    for (std::size_t i = 0; i < entries; ++i) {
        const auto scan = i / 500;
        const auto bound = i % 8 == 0 ? letters.size() : plainLetters;
        std::string id;
        for (int k = 0; k < 36; ++k) id += letters[random() % bound];
        out.key(id + "@mail.example.com");
        out.beginObject();
        out.member("junk", random() % 3 == 0);
        out.member("when", 721692800.123456 + 1234.567891 * static_cast<double>(scan));
        out.member("account", "somebody@mail.example.com");
        out.member("folder", scan % 4 ? "INBOX" : "Archive/2024");
        out.endObject();
    }
    out.endObject();
}

/// Reads the file whole and copies it once, in memory of its own.
void readAndCopy(const std::string& path, std::size_t size) {
    const std::unique_ptr<char[]> bytes(new char[size]);
    const std::unique_ptr<char[]> copy(new char[size]);
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    std::size_t got = 0;
    while (got < size) {
        const auto some = ::read(file, bytes.get() + got, size - got);
        if (some <= 0) break;
        got += static_cast<std::size_t>(some);
    }
    ::close(file);
    std::memcpy(copy.get(), bytes.get(), got);
    keep(copy[got / 2]);
}

void writePlainly(const std::string& path, const std::string& bytes) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    std::size_t done = 0;
    while (done < bytes.size()) {
        const auto some = ::write(file, bytes.data() + done, bytes.size() - done);
        if (some <= 0) break;
        done += static_cast<std::size_t>(some);
    }
    ::close(file);
}

bool rules(std::size_t count, int rounds) {
    const auto messages = someMessages(count);
    const auto few = someRules(100);
    const auto many = someRules(10'000);
    return compare({{"10,000 rules over 100", [&] { decideAll(messages, few); },
                     [&] { decideAll(messages, many); }, 8, 5}},
                   rounds, std::to_string(count));
}

bool seenList(std::size_t count, int rounds) {
    doubles::World world;
    const std::string path = world.directories.store() + "/seen.json";
    const std::string copy = world.directories.store() + "/copy.json";
    writeSeenFile(path, count);
    const std::string bytes = files::read(path).value_or("");
    Seen seen(world.services());
    if (seen.size() != count) {
        std::fprintf(stderr, "the list was not read\n");
        return false;
    }
    const std::vector<std::string> nothing;
    const bool good =
        compare({{"seen.json load", [&] { readAndCopy(path, bytes.size()); },
                  [&] { keep(Seen(world.services()).size()); }, 7, 5},
                 {"seen.json save", [&] { writePlainly(copy, bytes); },
                  [&] { seen.mark(nothing, false, std::nullopt, std::nullopt); }, 4, 1.8}},
                rounds, std::to_string(count));
    if (files::read(path) == bytes) return good;
    std::fprintf(stderr, "the list was not written as it was read\n");
    return false;
}

constexpr std::string_view help =
    "Usage: stores_bench [--rounds N] [--messages N] [--entries N]\n"
    "Finding the rules of so many messages (100,000), and loading and saving a list of so many\n"
    "decided ones (1,000,000), each beside its floor. The limits hold at these sizes: a short list\n"
    "lies in the cache, where its floor costs next to nothing.\n";

int main(const std::vector<std::string>& arguments) {
    std::size_t messages = 100'000;
    std::size_t entries = 1'000'000;
    int rounds = 9;
    for (std::size_t i = 0; i < arguments.size(); i += 2) {
        const auto number = i + 1 < arguments.size() ? std::atoi(arguments[i + 1].c_str()) : 0;
        if (number < 1) {
            std::fputs(help.data(), arguments[i] == "--help" ? stdout : stderr);
            return arguments[i] == "--help" ? 0 : 2;
        }
        if (arguments[i] == "--rounds") rounds = number;
        if (arguments[i] == "--messages") messages = static_cast<std::size_t>(number);
        if (arguments[i] == "--entries") entries = static_cast<std::size_t>(number);
    }
    const bool rulesGood = rules(messages, rounds);
    const bool seenGood = seenList(entries, rounds);
    return rulesGood && seenGood ? 0 : 1;
}

}  // namespace
}  // namespace brindlet::bench

int main(int count, char** values) {
    return brindlet::bench::main(std::vector<std::string>(values + 1, values + count));
}
