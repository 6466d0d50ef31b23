#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include <sys/resource.h>

#include "Floors.h"
#include "Rounds.h"
#include "doubles/Doubles.h"
#include "mail/IndexQueries.h"
#include "mail/MailStore.h"
#include "mail/MessageReaders.h"

// The reading of a mailbox beside what the machine alone costs, over a sample home directory.

namespace brindlet::bench {
namespace {

constexpr std::int64_t bodyLimit = 700;
constexpr std::size_t run = 256;  // messages that a scan parses at a time

class FixedDirectories : public Directories {
  public:
    FixedDirectories(std::string home, std::string temporary)
        : home_(std::move(home)), temporary_(std::move(temporary)) {}
    std::string home() const override { return home_; }
    std::string temporary() const override { return temporary_; }
    std::string store() const override { return temporary_; }

  private:
    std::string home_;
    std::string temporary_;
};

/// A mail store over one home, with a temporary folder of its own.
struct Reader {
    explicit Reader(const std::string& home)
        : directories(home, world.directories.temporary()),
          store({world.clock, directories, world.mainQueue, world.defaults, world.model,
                 world.power, world.desktop, world.locale, world.processes, world.runningApps,
                 world.keys, world.tls, world.scriptHost}) {}
    doubles::World world;
    FixedDirectories directories;
    MailStore store;
};

/// What the benchmarks need to know of a sample beforehand.
struct Sample {
    struct Account {
        std::string id;
        std::string root;
        std::vector<std::int64_t> messages;
    };
    std::vector<Account> accounts;
    std::vector<std::string> files;
    /// The mailbox that most is filed in.
    std::int64_t fullest = 0;
};

Sample surveyed(const MailStore& store) {
    Sample sample;
    std::int64_t most = 0;
    for (const MailAccount& account : store.loadAccounts(false, false)) {
        Sample::Account& one = sample.accounts.emplace_back();
        one.id = account.id;
        one.root = *store.mailRoot() + '/' + account.id;
        for (const std::string& file : floors::messageFiles(one.root)) {
            sample.files.push_back(file);
            const auto name = std::filesystem::path(file).filename().string();
            if (const auto id = MessagePaths::idOfFileName(name)) one.messages.push_back(*id);
        }
        for (const MailFolder& folder : account.folders)
            if (folder.count > most) {
                most = folder.count;
                sample.fullest = folder.id;
            }
    }
    return sample;
}

/// All that a scan reads before it decides anything, over every account of the sample.
std::vector<MailStore::Parsed> readPhase(const MailStore& store, const Sample& sample,
                                         MessageReaders& readers) {
    const auto accounts = store.loadAccounts(false, false);
    const auto rows = store.messages(sample.fullest, 0, 0);
    const auto correspondents = store.correspondents();
    std::vector<MailStore::Parsed> bodies;
    bodies.reserve(sample.files.size());
    for (const Sample::Account& account : sample.accounts) {
        const MessagePaths paths = store.locateMessageFiles(account.id);
        const std::span<const std::int64_t> ids(account.messages);
        for (std::size_t at = 0; at < ids.size(); at += run)
            for (auto& parsed :
                 readers.parse(ids.subspan(at, std::min(run, ids.size() - at)), paths, bodyLimit))
                bodies.push_back(std::move(parsed));
    }
    return bodies;
}

void parseAll(const std::vector<std::string>& files) {
    const auto buffer = std::make_unique_for_overwrite<char[]>(MailStore::bytesRead);
    for (const std::string& file : files)
        MailStore::parseMessageFile(file, bodyLimit, {buffer.get(), MailStore::bytesRead});
}

std::string repeated(std::string_view piece, std::size_t bytes) {
    std::string text;
    while (text.size() + piece.size() <= bytes) text += piece;
    return text;
}

/// Processor time of single messages that were made to be slow.
bool hostile() {
    constexpr std::size_t size = MailStore::bytesRead - 10;
    constexpr double most = 2.0;
    const std::pair<const char*, std::string> bodies[] = {
        {"unclosed scripts", repeated("<script>", size)},
        {"unclosed styles and scripts", repeated("<style><script>", size)},
        {"combining marks", "a" + repeated("\xCC\x81", size)},
        {"ampersands", repeated("&", size)},
        {"ampersands before marks", repeated("&", 690) + "x" + repeated("\xCC\x81", size) + ";"},
        {"marked brackets", repeated("<x>\xCC\x81", size)},
        {"marked semicolons", repeated("&;\xCC\x81", size)},
        {"prepended brackets", repeated("\xD8\x80>", size)},
        {"closers in a row", repeated("<script></script", size)},
        {"emoji", "<" + repeated("\xF0\x9F\x91\xA9\xE2\x80\x8D", size)},
        {"stray bytes", repeated("\x80", size)},
        {"carriage returns", repeated("\r", size)},
        {"line feeds", repeated("x\n", size)},
    };
    bool good = true;
    for (const auto& [name, body] : bodies)
        for (const char* start : {"1\nA: b\n\n", "1\nMessage-ID: "}) {
            const std::string message = start + body;
            std::vector<double> times;
            for (int i = 0; i < 5; ++i)
                times.push_back(
                    cpuMilliseconds([&] { MailStore::parseMessage(message, bodyLimit); }));
            const double time = median(times);
            const bool kept = time <= most * strictness().slack;
            good = good && kept;
            std::printf("hostile: %-28s in %-6s %6.2f ms  at most %.2f%s\n", name,
                        start[2] == 'A' ? "body" : "header", time, most, kept ? "" : "  TOO SLOW");
        }
    return good;
}

bool snapshot(int rounds) {
    constexpr std::size_t megabytes = 500;
    doubles::World world;
    const std::string home = world.directories.home();
    const std::string data = home + "/Library/Mail/V10/MailData";
    std::filesystem::create_directories(data);
    {
        std::ofstream index(data + "/Envelope Index", std::ios::binary);
        const std::string block(1 << 20, 'x');
        for (std::size_t i = 0; i < megabytes; ++i) index << block;
    }
    // It is no database, so the read ends with the copy.
    const MailStore store(world.services());
    return compare(
        {{"snapshot of the index",
          [&] { floors::copy(data + "/Envelope Index", world.directories.root() + "/copy"); },
          [&] { store.correspondents(); }, 1.1, 1.0}},
        rounds, "500 MB");
}

bool reading(const std::string& home, int rounds) {
    Reader reader(home);
    const Sample sample = surveyed(reader.store);
    if (sample.files.empty()) {
        std::cerr << "There is no mail data in " << home << ".\n";
        return false;
    }
    MessageReaders one(1);
    MessageReaders two(2);
    const std::string index = *reader.store.mailRoot() + "/MailData/Envelope Index";
    const std::string copy = reader.world.directories.root() + "/copy.db";
    floors::copy(index, copy);
    const std::string query = filedMessagesQuery(0, 0);
    const auto walkAndRead = [&] {
        for (const auto& account : sample.accounts) floors::walkAndRead(account.root);
    };
    const auto walk = [&] {
        for (const auto& account : sample.accounts) floors::walk(account.root);
    };
    const auto read = [&] {
        for (const auto& file : sample.files) floors::readOnce(file);
    };
    const auto locate = [&] {
        for (const auto& account : sample.accounts) reader.store.locateMessageFiles(account.id);
    };
    return compare({{"read phase, one reader", walkAndRead,
                     [&] { readPhase(reader.store, sample, one); }, 2.2, 1.6},
                    {"read phase, two readers", walkAndRead,
                     [&] { readPhase(reader.store, sample, two); }, 1.3, 1.0},
                    {"parse files", read, [&] { parseAll(sample.files); }, 1.8, 1.4},
                    {"locate message files", walk, locate, 1.3, 1.1},
                    {"messages of a mailbox", [&] { floors::step(copy, query, sample.fullest); },
                     [&] { readMessages(copy, query, sample.fullest); }, 1.4, 1.15}},
                   rounds, std::to_string(sample.files.size()));
}

long peakKilobytes() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

void memory(const std::string& home) {
    Reader reader(home);
    const Sample sample = surveyed(reader.store);
    MessageReaders readers(8);
    const long before = peakKilobytes();
    const auto bodies = readPhase(reader.store, sample, readers);
    std::printf("read phase of %zu messages: %ld MB above the program\n", bodies.size(),
                (peakKilobytes() - before) / 1024);
}

constexpr const char* help =
    "usage: mail_bench [--rounds N] HOME...   the read paths beside their floors\n"
    "       mail_bench --snapshot             the copy of a large index beside its floor\n"
    "       mail_bench --hostile              messages made to be slow\n"
    "       mail_bench --memory HOME          what the read phase holds at its peak\n"
    "       mail_bench --parse-only DIR       parses every message file below DIR once\n";

int main(const std::vector<std::string>& arguments) {
    int rounds = 9;
    bool good = !arguments.empty();
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        const bool hasNext = i + 1 < arguments.size();
        if (argument == "--help") {
            std::cout << help;
            return 0;
        }
        if (argument == "--rounds" && hasNext) {
            rounds = std::max(1, std::atoi(arguments[++i].c_str()));
        } else if (argument == "--snapshot") {
            good = snapshot(rounds) && good;
        } else if (argument == "--hostile") {
            good = hostile() && good;
        } else if (argument == "--memory" && hasNext) {
            memory(arguments[++i]);
        } else if (argument == "--parse-only" && hasNext) {
            const auto files = floors::messageFiles(arguments[++i]);
            parseAll(files);
            std::printf("%zu files\n", files.size());
        } else if (argument.starts_with("--")) {
            std::cerr << help;
            return 2;
        } else {
            good = reading(argument, rounds) && good;
        }
    }
    if (arguments.empty()) std::cerr << help;
    return good ? 0 : arguments.empty() ? 2 : 1;
}

}  // namespace
}  // namespace brindlet::bench

int main(int count, char** values) {
    return brindlet::bench::main(std::vector<std::string>(values + 1, values + count));
}
