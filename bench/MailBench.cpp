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
#include "base/Task.h"
#include "doubles/Doubles.h"
#include "mail/IndexQueries.h"
#include "mail/MailStore.h"

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
                 world.power, world.desktop, world.locale}) {}
    doubles::World world;
    FixedDirectories directories;
    MailStore store;
};

struct Fullest {
    std::string account;
    std::int64_t mailbox = 0;
    std::int64_t count = 0;
};

/// The account with the most mail, and the mailbox of it that most is filed in.
Fullest fullest(const MailStore& store) {
    Fullest best;
    const auto accounts = store.loadAccounts(false, false);
    if (accounts.empty()) return best;
    best.account = accounts.front().id;
    for (const MailFolder& folder : accounts.front().folders)
        if (folder.count > best.count) {
            best.mailbox = folder.id;
            best.count = folder.count;
        }
    return best;
}

/// All that a scan reads before it decides anything. Every file of the account is parsed, so that
/// the work is that of the floor, whichever mailboxes the messages lie in.
std::vector<MailStore::Parsed> readPhase(const MailStore& store,
                                         const std::vector<std::int64_t>& ids, WorkerCrew& crew) {
    const Fullest target = fullest(store);
    const auto rows = store.messages(target.mailbox, 0, 0);
    const auto correspondents = store.correspondents();
    const MessagePaths paths = store.locateMessageFiles(target.account);
    std::vector<MailStore::Parsed> bodies;
    bodies.reserve(ids.size());
    for (std::size_t at = 0; at < ids.size(); at += run) {
        const std::span<const std::int64_t> some(ids.data() + at, std::min(run, ids.size() - at));
        for (auto& parsed : MailStore::parseMessageFiles(some, paths, bodyLimit, crew))
            bodies.push_back(std::move(parsed));
    }
    return bodies;
}

void parseAll(const std::vector<std::string>& files) {
    const auto buffer = std::make_unique_for_overwrite<char[]>(MailStore::bytesRead);
    for (const std::string& file : files)
        MailStore::parseMessageFile(file, bodyLimit, {buffer.get(), MailStore::bytesRead});
}

std::vector<std::int64_t> idsOf(const std::vector<std::string>& files) {
    std::vector<std::int64_t> ids;
    for (const std::string& file : files)
        if (const auto id =
                MessagePaths::idOfFileName(std::filesystem::path(file).filename().string()))
            ids.push_back(*id);
    return ids;
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
    const Fullest target = fullest(reader.store);
    if (target.account.empty()) {
        std::cerr << "There is no mail data in " << home << ".\n";
        return false;
    }
    const std::string account = *reader.store.mailRoot() + '/' + target.account;
    const auto files = floors::messageFiles(account);
    const auto ids = idsOf(files);
    WorkerCrew one(1);
    WorkerCrew two(2);
    const std::string index = *reader.store.mailRoot() + "/MailData/Envelope Index";
    const std::string copy = reader.world.directories.root() + "/copy.db";
    floors::copy(index, copy);
    const std::string query = filedMessagesQuery(0, 0);
    const auto floor = [&] { floors::walkAndRead(account); };
    return compare(
        {{"read phase, one reader", floor, [&] { readPhase(reader.store, ids, one); }, 2.2, 1.6},
         {"read phase, two readers", floor, [&] { readPhase(reader.store, ids, two); }, 1.3, 1.0},
         {"parse files",
          [&] {
              for (const auto& file : files) floors::readOnce(file);
          },
          [&] { parseAll(files); }, 1.8, 1.4},
         {"locate message files", [&] { floors::walk(account); },
          [&] { reader.store.locateMessageFiles(target.account); }, 1.3, 1.1},
         {"messages of a mailbox", [&] { floors::step(copy, query, target.mailbox); },
          [&] { readMessages(copy, query, target.mailbox); }, 1.4, 1.15}},
        rounds, std::to_string(files.size()));
}

long peakKilobytes() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

void memory(const std::string& home) {
    Reader reader(home);
    const Fullest target = fullest(reader.store);
    const auto ids =
        idsOf(floors::messageFiles(reader.store.mailRoot().value_or("") + '/' + target.account));
    WorkerCrew crew(8);
    const long before = peakKilobytes();
    const auto bodies = readPhase(reader.store, ids, crew);
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
