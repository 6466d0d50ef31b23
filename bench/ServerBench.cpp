#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <thread>

#include "Rounds.h"
#include "classify/Classifier.h"
#include "doubles/HttpServer.h"
#include "models/server/ChatUrl.h"
#include "models/server/ServedScan.h"
#include "models/server/ServerModel.h"

// A scan whose mail a server sorts that takes 50 ms for an answer, beside the same questions asked
// one at a time: four are to be in flight, and the scan is to add next to nothing of its own.

namespace brindlet::bench {
namespace {

constexpr auto answerTime = std::chrono::milliseconds(50);
constexpr double leastGain = 3.8;
/// Among the tests, where a few seconds beside other work must tell.
constexpr double leastQuickGain = 3.5;

int main(int messages) {
    const auto answer =
        doubles::HttpServer::answer(doubles::chatCompletion(R"({"category":"billOrPayment"})"));
    doubles::HttpServer server([&](const auto&) {
        std::this_thread::sleep_for(answerTime);
        return answer;
    });
    ServerModel model(chatUrl(server.url()).value(), "");
    ServedScan scan(model, messages);

    const Classifier classifier(model);
    const double alone = wallMilliseconds([&] {
        for (int i = 0; i < messages; ++i)
            classifier.classify("s" + std::to_string(i) + "@many.example",
                                "Subject " + std::to_string(i), "Body " + std::to_string(i));
    });
    const double scanned = wallMilliseconds([&] {
        scan.start();
        scan.finish();
    });
    const auto right = static_cast<std::size_t>(messages);
    if (server.requests().size() != 2 * right || scan.state->verdicts->size() != right) {
        std::fprintf(stderr, "Not every message was asked about.\n");
        return 1;
    }
    const double least = strictness().quick ? leastQuickGain : leastGain;
    const double gain = alone / scanned;
    std::printf(
        "server: %d messages, %.2f ms each one at a time, %.2f ms each in a scan, %d in flight: "
        "%.2f times faster (at least %.1f)\n",
        messages, alone / messages, scanned / messages, server.mostInFlight(), gain, least);
    return gain >= least ? 0 : 1;
}

}  // namespace
}  // namespace brindlet::bench

int main(int count, char** values) {
    const bool sized = count == 3 && std::string_view(values[1]) == "--size";
    const int messages = sized ? std::atoi(values[2]) : 0;
    if (messages <= 0) {
        std::fprintf(stderr, "server_bench --size MESSAGES\n");
        return 2;
    }
    return brindlet::bench::main(messages);
}
