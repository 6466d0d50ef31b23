#include <sys/resource.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Rounds.h"
#include "imap/Imap.h"

// The fetch of every Message-ID of a mailbox beside a bare search for line feeds in the bytes that
// the server sends. It may cost only so much more, as much a message in a large mailbox as in a
// small one, and hold no more than a few times those bytes.

namespace brindlet::bench {
namespace {

/// What the server says, piece by piece, without a network.
class CannedStream : public TlsStream {
  public:
    explicit CannedStream(std::string_view said) : said_(said) {}
    Failure connect() override { return std::nullopt; }
    Failure send(std::string_view) override { return std::nullopt; }
    Received receive(std::size_t most) override {
        const auto piece = said_.substr(0, most);
        said_.remove_prefix(piece.size());
        return {std::string(piece), piece.empty(), std::nullopt};
    }
    void cancel() override {}

  private:
    std::string_view said_;
};

class CannedConnector : public TlsConnector {
  public:
    explicit CannedConnector(std::string_view said) : said_(said) {}
    std::shared_ptr<TlsStream> make(const std::string&, std::uint16_t) override {
        return std::make_shared<CannedStream>(said_);
    }

  private:
    std::string_view said_;
};

/// Greeting and answer, with ids of the length and the look that a large mailer's have.
std::string conversation(std::size_t messages) {
    std::string said;
    said.reserve(messages * 160);  // at once, or the peak of memory would be here
    said += "* OK ready\r\n";
    for (std::size_t i = 1; i <= messages; ++i) {
        char id[64];
        std::snprintf(id, sizeof id, "<CA%016llx%016llx=sw@mail.example.org>",
                      static_cast<unsigned long long>(i * 0x9E3779B97F4A7C15u),
                      static_cast<unsigned long long>(i * 0xC2B2AE3D27D4EB4Fu));
        const std::string header = "Message-ID: " + std::string(id) + "\r\n\r\n";
        said += "* " + std::to_string(i) + " FETCH (UID " + std::to_string(3 * i) +
                " BODY[HEADER.FIELDS (MESSAGE-ID)] {" + std::to_string(header.size()) + "}\r\n" +
                header + ")\r\n";
    }
    said += "a001 OK Success\r\n";
    return said;
}

std::size_t fetched(std::string_view said) {
    CannedConnector connector(said);
    Imap imap(connector, "imap.example.org", 993);
    if (imap.connect()) return 0;
    const auto ids = imap.fetchMessageIDs();
    return ids ? ids->size() : 0;
}

std::size_t lineFeeds(std::string_view said) {
    std::size_t count = 0;
    for (auto at = said.find('\n'); at != said.npos; at = said.find('\n', at + 1)) ++count;
    return count;
}

bool speed(std::size_t messages) {
    const std::string said = conversation(messages);
    std::size_t ids = 0;
    std::size_t lines = 0;
    const bool good = compare({{"fetch of Message-IDs", [&] { lines += lineFeeds(said); },
                                [&] { ids = fetched(said); }, 12, 8}},
                              9, std::to_string(messages));
    if (ids == messages && lines > 0) return good;
    std::printf("%zu of %zu messages were fetched\n", ids, messages);
    return false;
}

/// A message of many must cost what one of few does; that ids are looked up in a table that no
/// longer fits the processor's caches may show, a growth with the mailbox may not.
bool growth(std::size_t few, std::size_t many) {
    constexpr double most = 3;
    const Strictness strict = strictness();
    const auto each = [&](std::size_t messages) {
        const std::string said = conversation(messages);
        const std::size_t turns = many / messages;
        std::vector<double> rounds;
        for (int i = 0; i < 5; ++i)
            rounds.push_back(wallMilliseconds([&] {
                for (std::size_t turn = 0; turn < turns; ++turn) fetched(said);
            }));
        return 1e6 * *std::min_element(rounds.begin(), rounds.end()) /
               static_cast<double>(turns * messages);
    };
    const double before = each(few);
    const double after = each(many);
    const bool kept = after <= most * before * strict.slack;
    std::printf("a message of %zu: %.0f ns; of %zu: %.0f ns; %.2f times, at most %.1f%s\n", few,
                before, many, after, after / before, most, kept ? "" : "  TOO SLOW");
    return kept;
}

std::size_t peakBytes() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return static_cast<std::size_t>(usage.ru_maxrss) * 1024;
}

bool memory(std::size_t messages) {
    constexpr double most = 4;
    const std::string said = conversation(messages);
    const std::size_t before = peakBytes();
    fetched(said);
    const double times =
        static_cast<double>(peakBytes() - before) / static_cast<double>(said.size());
    std::printf(
        "%zu messages: %.2f times the %zu MB of the answer are held at the peak, at most "
        "%.0f%s\n",
        messages, times, said.size() / 1'000'000, most, times <= most ? "" : "  TOO MUCH");
    return times <= most;
}

int main() {
    const bool quick = strictness().quick;
    const std::size_t many = quick ? 50'000 : 500'000;
    bool good = memory(many);  // first, as the peak never falls
    for (const std::size_t messages : {5'000u, 50'000u, 500'000u})
        if (messages <= many) good = speed(messages) && good;
    good = growth(5'000, many) && good;
    return good ? 0 : 1;
}

}  // namespace
}  // namespace brindlet::bench

int main() {
    return brindlet::bench::main();
}
