#include <cstdio>
#include <string_view>

#include "Evaluation.h"

namespace brindlet::tools {
namespace {

constexpr auto categories = allCases<Category>();

std::string percent(double value) {
    char text[16];
    std::snprintf(text, sizeof text, "%.1f", value * 100);
    return text;
}

std::string between(const Interval& interval) {
    return percent(interval.low) + " to " + percent(interval.high) + " %";
}

std::string words(const Share& share) {
    return share.whole == 0 ? "-" : percent(share.value()) + " %";
}

std::string row(std::string_view name, const Share& share, const char* mark = "") {
    return "| " + (mark + std::string(name)) + mark + " | " + mark + words(share) + mark + " | " +
           (share.whole == 0 ? "-" : between(share.interval())) + " | " +
           std::to_string(share.part) + " of " + std::to_string(share.whole) + " |\n";
}

std::string shares(const Evaluation& evaluation) {
    std::string table = "| | Share | 95 % interval | Messages |\n|---|---|---|---|\n";
    table += row("Mail that must stay, proposed as junk", evaluation.lost(), "**");
    for (const auto category : categories)
        if (mustStay(category))
            table +=
                row("of these " + std::string(displayName(category)), evaluation.lost(category));
    table += row("Proposed as junk and junk (precision)", evaluation.junkPrecision());
    table += row("Junk and proposed as junk (recall)", evaluation.junkRecall());
    table += row("Left as unclear, though it has a category", evaluation.undecided());
    table += row("Right category (accuracy)", evaluation.accuracy());
    table += "| Right category, all categories alike (macro F1) | " +
             percent(evaluation.macroF1()) + " % | " + between(evaluation.macroF1Interval()) +
             " | " + std::to_string(evaluation.rows()) + " |\n";
    return table;
}

/// Who was taken for whom: the right category by row, the answers by column.
std::string confusion(const Evaluation& evaluation) {
    std::string table = "| Taken for: |";
    for (const auto given : categories) table += " " + std::string(displayName(given)) + " |";
    table += " Recall | Precision |\n|---|";
    for (std::size_t i = 0; i < categories.size() + 2; ++i) table += "---|";
    table += "\n";
    for (const auto right : categories) {
        table += "| " + std::string(displayName(right)) + " |";
        for (const auto given : categories) {
            const auto count = evaluation.count(right, given);
            const auto number = count == 0 ? std::string() : std::to_string(count);
            table += right == given ? " **" + std::to_string(count) + "** |" : " " + number + " |";
        }
        table += " " + words(evaluation.recall(right)) + " | " +
                 words(evaluation.precision(right)) + " |\n";
    }
    return table;
}

}  // namespace

std::string markdown(const Evaluation& evaluation) {
    return shares(evaluation) + "\n" + confusion(evaluation);
}

}  // namespace brindlet::tools
