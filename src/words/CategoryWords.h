#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "base/IdSet.h"
#include "classify/Category.h"
#include "session/VerdictList.h"
#include "words/Mark.h"
#include "words/ReviewWords.h"
#include "words/TickBox.h"

namespace brindlet {

class AppState;

/// Which verdicts a category shows, as indexes into the list. Those that protection kept come last,
/// from `firstProtected` on; both parts keep the order of the scan.
struct CategoryRows {
    Category category = Category::cannotTell;
    std::vector<std::uint32_t> rows;
    std::size_t firstProtected = 0;
    /// The messages that can be ticked: those with an id.
    IdSet tickable;

    friend bool operator==(const CategoryRows&, const CategoryRows&) = default;
};

/// The categories that have messages among those at `positions`, in their fixed order. Walks them
/// all: for another list, not for every refresh.
std::vector<CategoryRows> categoryRows(const VerdictList& verdicts,
                                       const std::vector<std::uint32_t>& positions);

/// The header of one category.
struct CategoryWords {
    Category category = Category::cannotTell;
    std::string label;
    std::string count;
    Mark badge;
    bool expanded = false;
    std::string chevron;
    std::string tickSymbol;
    /// Empty where there is nothing to tick.
    std::string tickHelp;
    std::string generalHelp = "Approve or skip this whole category";
    ReviewWords reviewed;

    friend bool operator==(const CategoryWords&, const CategoryWords&) = default;
};

/// One for each of `categories`. Main thread; looks at no single verdict.
std::vector<CategoryWords> categoryWords(const AppState& state,
                                         const std::vector<CategoryRows>& categories);
TickCount tickCount(const AppState& state, const CategoryRows& category);

}  // namespace brindlet
