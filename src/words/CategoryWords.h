#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "classify/Category.h"
#include "classify/Verdict.h"
#include "session/VerdictList.h"
#include "words/Mark.h"

namespace brindlet {

class AppState;

/// Which verdicts a category shows, as indexes into the list. Those that protection kept come last,
/// from `firstProtected` on; both parts keep the order of the scan.
struct CategoryRows {
    Category category = Category::cannotTell;
    std::vector<std::uint32_t> rows;
    std::size_t firstProtected = 0;

    friend bool operator==(const CategoryRows&, const CategoryRows&) = default;
};

/// The categories that have messages, in their fixed order. Walks all verdicts: for a new revision
/// of the list, not for every refresh.
std::vector<CategoryRows> categoryRows(const VerdictList& verdicts);

/// The header of one category and the lines around its messages.
struct CategoryWords {
    Category category = Category::cannotTell;
    std::string label;
    std::string count;
    Mark badge;
    bool expanded = false;
    std::string chevron;
    /// The heading over the rows from `firstProtected` on; empty when none is needed.
    std::string stayPut;
    /// Stands at the foot of a list that is longer than its frame.
    std::string scroll;

    friend bool operator==(const CategoryWords&, const CategoryWords&) = default;
};

/// One for each of `categories`. Main thread; looks at no single verdict.
std::vector<CategoryWords> categoryWords(const AppState& state,
                                         const std::vector<CategoryRows>& categories);

/// One message of a list.
struct MessageWords {
    std::string subject;
    std::string sender;
    std::string tickSymbol;
    /// Why there is no tick; empty where there can be one.
    std::string tickHelp;
    bool canTick = false;
    Mark mark;

    friend bool operator==(const MessageWords&, const MessageWords&) = default;
};

/// Main thread; for the rows on show.
MessageWords messageWords(const AppState& state, const Verdict& verdict);

}  // namespace brindlet
