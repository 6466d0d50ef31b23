#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
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

    Mailbox(std::size_t size, std::size_t senders) : Mailbox(makeLetters(size, senders, 1)) {}
    explicit Mailbox(std::vector<Letter> given) : letters(std::move(given)) {
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

/// One sender's family: short subjects with a name, a number or a title in them, or long ones.
enum class Family { usual, longSubjects };

constexpr std::size_t familySize = 50'000;

std::shared_ptr<const Mailbox> family(Family kind, std::size_t size) {
    if (kind == Family::usual) return std::make_shared<Mailbox>(size, 1);
    return std::make_shared<Mailbox>(makeLongLetters(size, 1));
}

std::string named(Family kind) {
    return kind == Family::usual ? "templates" : "long templates";
}

Comparison mining(Family kind) {
    const auto all = family(kind, familySize);
    return {named(kind), [=] { keep(splitAtNonLetters(all->messages)); },
            [=] { keep(Classifier::mineTemplates(all->subjects)); }, 20, 10};
}

Comparison growth(Family kind) {
    const auto tenth = family(kind, familySize / 10);
    const auto all = family(kind, familySize);
    return {named(kind) + ", over a tenth",
            [=] { keep(Classifier::mineTemplates(tenth->subjects)); },
            [=] { keep(Classifier::mineTemplates(all->subjects)); }, 16, 11};
}

long peakKilobytes() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

/// What mining holds at its peak beside the subjects. In a process of its own, whose peak nothing
/// else has raised.
bool memory(Family kind) {
    constexpr long most = 80;
    std::fflush(stdout);
    const auto child = ::fork();
    if (child == 0) {
        const auto all = family(kind, familySize);
        const long before = peakKilobytes();
        keep(Classifier::mineTemplates(all->subjects));
        const long used = (peakKilobytes() - before) / 1024;
        std::printf("%-28s %-10zu %10ld MB  at most %ld%s\n", named(kind).c_str(), familySize, used,
                    most, used < most ? "" : "  TOO MUCH");
        std::fflush(stdout);
        ::_exit(used < most ? 0 : 1);
    }
    int status = 1;
    return child > 0 && ::waitpid(child, &status, 0) == child && status == 0;
}

/// Mining at its full size whatever the size of the rest: it is what a correction waits for.
bool templates(int rounds) {
    const bool small = memory(Family::usual) & memory(Family::longSubjects);
    const bool fast = compare({mining(Family::usual), growth(Family::usual),
                               mining(Family::longSubjects), growth(Family::longSubjects)},
                              rounds, std::to_string(familySize));
    return small && fast;
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
    const bool mined = templates(rounds);
    const bool good = compare({plan(size, 1), plan(size, 100), plan(size, 5'000), veto(size)},
                              rounds, std::to_string(size));
    return mined && good ? 0 : 1;
}

}  // namespace
}  // namespace brindlet::bench

int main(int count, char** values) {
    return brindlet::bench::main(std::vector<std::string>(values + 1, values + count));
}
