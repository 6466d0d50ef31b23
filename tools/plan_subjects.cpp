#include <cstdio>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>

#include "PlanSubjects.h"

namespace {

constexpr std::string_view usage =
    "plan_subjects < LINES\n"
    "\n"
    "Reads lines of a sender, a TAB and a subject from standard input and prints one JSON object:\n"
    "\n"
    "  probes      the lines that the model would read, counted from 0\n"
    "  clusters    like subjects of one sender: their probes, and the members that inherit\n"
    "  templates   for each line the words of the recurring phrase in its subject, all lines "
    "taken\n"
    "              as one sender's\n"
    "  words       for each line the words of its subject\n"
    "  senderKeys  for each line the key that rules for its sender would have\n"
    "  veto        for each line whether its subject protects it\n"
    "\n"
    "  --help      this text\n";

constexpr int wrongUse = 2;

}  // namespace

int main(int count, char** values) {
    if (count == 2 && std::string_view(values[1]) == "--help") {
        std::cout << usage;
        return 0;
    }
    if (count > 1) {
        std::cerr << usage.substr(0, usage.find('\n') + 1);
        return wrongUse;
    }
    std::ios::sync_with_stdio(false);
    const std::string lines{std::istreambuf_iterator<char>(std::cin), {}};
    std::cout << brindlet::tools::planSubjects(lines) << '\n';
    return std::cout.flush() ? 0 : 1;
}
