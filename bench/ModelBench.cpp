#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "Rounds.h"
#include "classify/Classifier.h"
#include "models/embedded/EmbeddedModel.h"

namespace brindlet::bench {
namespace {

constexpr double mostMicrosecondsAMessage = 50;
constexpr double mostMillisecondsToLoad = 2;
constexpr double mostMegabytes = 4;

struct Message {
    std::string sender, subject, body;
};

/// Bodies as long as the program ever sends, bare and in parts.
std::vector<Message> makeMessages() {
    std::string text;
    for (int i = 0; text.size() < 560; ++i)
        text += "We shipped item " + std::to_string(i * 37) + " of your order on Monday. ";
    const std::string part =
        "--b1_0c9a81d2e377 Content-Type: text/plain; charset=utf-8 "
        "Content-Transfer-Encoding: quoted-printable ";
    return {{"Bookbarn <orders@bookbarn.test>", "Your order #48213 has shipped", text},
            {"Bookbarn <orders@bookbarn.test>", "Your order #48213 has shipped", part + text},
            {"Ines Costa <ines@icloud.com>", "Dinner on Friday?", "Are you free? Love, Ines"}};
}

int main() {
    const auto messages = makeMessages();
    std::vector<double> loading, answering;
    for (int round = 0; round < 9; ++round) {
        loading.push_back(cpuMilliseconds([] { EmbeddedModel model; }));
        EmbeddedModel model;
        const Classifier classifier(model);
        constexpr int times = 300;
        const double all = cpuMilliseconds([&] {
            for (int i = 0; i < times; ++i)
                for (const auto& [sender, subject, body] : messages)
                    classifier.classify(sender, subject, body);
        });
        answering.push_back(all * 1000 / (times * static_cast<double>(messages.size())));
    }
    const auto [quick, slack] = strictness();
    const auto measure = [quick = quick](const std::vector<double>& values) {
        return quick ? *std::ranges::min_element(values) : median(values);
    };
    const double load = measure(loading);
    const double answer = measure(answering);
    std::printf("model: load %.2f ms (at most %.0f), a message %.1f us (at most %.0f)\n", load,
                mostMillisecondsToLoad, answer, mostMicrosecondsAMessage);
    return load <= mostMillisecondsToLoad * slack && answer <= mostMicrosecondsAMessage * slack ? 0
                                                                                                : 1;
}

}  // namespace
}  // namespace brindlet::bench

int main() {
    return brindlet::bench::main();
}
