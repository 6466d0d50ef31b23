#include "RandomSubjects.h"

#include <array>
#include <string_view>

namespace brindlet {
namespace {

constexpr std::array<std::string_view, 44> atoms{
    "a",          "B",      "z",      "Q",      "7",      "0",      "'",      " ",
    " ",          "-",      "_",      ".",      "\r\n",   "\n",     "\t",     "\u2019",
    "\u00e9",     "\u00c9", "\u00df", "\u0130", "\u0131", "\u03a3", "\u03c3", "\u0416",
    "\u05d0",     "\u0663", "\u0967", "\u00bd", "\u00b2", "\u6ce8", "\u30ab", "\uc8fc",
    "\u1112",     "\u1161", "\u0301", "\u0903", "\u200d", "\u200b", "\ufe0f", "\U0001F600",
    "\U0001F1E6", "\u24c2", "\u0600", "\u212a"};

}  // namespace

std::string RandomSubjects::text() {
    std::string text;
    const bool ascii = below(3) == 0;
    for (auto left = below(below(4) == 0 ? 90 : 12); left > 0; --left)
        text += atoms[below(ascii ? 15 : atoms.size())];
    return text;
}

std::string RandomSubjects::sentence(std::size_t stock) {
    std::string text;
    for (auto left = below(below(5) == 0 ? 30 : 7); left > 0; --left)
        text += "w" + std::to_string(below(stock)) + (below(6) == 0 ? "! " : " ");
    return text;
}

std::vector<std::string> RandomSubjects::family(std::size_t count) {
    const auto stock = 3 + below(30);
    std::vector<std::string> frames;
    for (auto left = 1 + below(4); left > 0; --left) frames.push_back(sentence(stock));
    std::vector<std::string> subjects;
    for (std::size_t i = 0; i < count; ++i) {
        const auto& frame = frames[below(frames.size())];
        const auto name = "n" + std::to_string(below(12)) + " ";
        switch (below(6)) {
            case 0:
                subjects.push_back(frame);
                break;
            case 1:
                subjects.push_back(frame + name);
                break;
            case 2:
                subjects.push_back(sentence(stock) + frame);
                break;
            case 3:
                subjects.push_back(sentence(stock));
                break;
            default:
                subjects.push_back(name + frame);
        }
    }
    return subjects;
}

}  // namespace brindlet
