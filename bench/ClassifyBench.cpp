#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Rounds.h"
#include "Subjects.h"
#include "base/Pattern.h"
#include "classify/Classifier.h"
#include "classify/TemplatePlan.h"

namespace brindlet::bench {
namespace {

using Messages = std::vector<TemplatePlan::Message>;

/// Keeps the compiler from dropping work whose result nobody reads.
template <class T>
void keep(const T& value) {
    asm volatile("" : : "r"(&value) : "memory");
}

/// The least that planning must do with its bytes: look at each and find the words.
std::size_t splitAtNonLetters(const Messages& messages) {
    std::vector<std::string_view> words;
    std::size_t count = 0;
    for (const auto& [sender, subject] : messages) {
        words.clear();
        std::size_t start = 0;
        for (std::size_t i = 0; i <= subject.size(); ++i) {
            if (i < subject.size() && std::isalpha(static_cast<unsigned char>(subject[i])))
                continue;
            if (i > start) words.push_back(subject.substr(start, i - start));
            start = i + 1;
        }
        count += words.size();
    }
    return count;
}

/// Letters and the messages that look into them.
struct Mailbox {
    std::vector<Letter> letters;
    Messages messages;
    std::vector<std::string> subjects;

    Mailbox(std::size_t size, std::size_t senders) : letters(makeLetters(size, senders, 1)) {
        for (const auto& letter : letters) {
            messages.push_back({letter.sender, letter.subject});
            subjects.push_back(letter.subject);
        }
    }
};

Comparison plan(std::size_t size, std::size_t senders) {
    const auto mailbox = std::make_shared<Mailbox>(size, senders);
    return {"plan, " + std::to_string(senders) + " senders",
            [=] { keep(splitAtNonLetters(mailbox->messages)); },
            [=] { keep(TemplatePlan::make(mailbox->messages)); }, 5, 3};
}

Comparison veto(std::size_t size) {
    const auto mailbox = std::make_shared<Mailbox>(size, 5'000);
    const auto bare = std::make_shared<Pattern>(Classifier::vetoRegex());
    return {"veto over the bare pattern",
            [=] {
                for (const auto& subject : mailbox->subjects) keep(bare->occursIn(subject));
            },
            [=] {
                for (const auto& subject : mailbox->subjects) keep(Classifier::isVetoed(subject));
            },
            1.3, 0.3};
}

Comparison mining(std::size_t size) {
    const auto mailbox = std::make_shared<Mailbox>(size, 1);
    return {"templates of one sender", [=] { keep(splitAtNonLetters(mailbox->messages)); },
            [=] { keep(Classifier::mineTemplates(mailbox->subjects)); }, 60, 20};
}

constexpr const char* help =
    "usage: classify_bench [--rounds N] [--size N]   plans, veto and templates beside their "
    "floors\n";

int main(const std::vector<std::string>& arguments) {
    int rounds = 9;
    std::size_t size = 100'000;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const auto& argument = arguments[i];
        if (argument == "--help") {
            std::fputs(help, stdout);
            return 0;
        }
        const long number = i + 1 < arguments.size() ? std::atol(arguments[i + 1].c_str()) : 0;
        if (number < 1 || (argument != "--rounds" && argument != "--size")) {
            std::fputs(help, stderr);
            return 2;
        }
        ++i;
        if (argument == "--rounds")
            rounds = static_cast<int>(number);
        else
            size = static_cast<std::size_t>(number);
    }
    const bool good = compare({plan(size, 1), plan(size, 100), plan(size, 5'000), veto(size)},
                              rounds, std::to_string(size));
    const std::size_t family = std::min<std::size_t>(size, 5'000);
    return compare({mining(family)}, rounds, std::to_string(family)) && good ? 0 : 1;
}

}  // namespace
}  // namespace brindlet::bench

int main(int count, char** values) {
    return brindlet::bench::main(std::vector<std::string>(values + 1, values + count));
}
