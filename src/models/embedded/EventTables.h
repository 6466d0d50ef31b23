#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace brindlet {

/// A deed that subjects tell of.
struct EventAction {
    enum class Scope {
        after,   ///< what was done to stands behind the word; before it stands who did it
        goods,   ///< done to goods: a word for them counts and nothing else, whatever was bought
        around,  ///< what was done to stands anywhere
    };
    std::string_view name;
    Scope scope = Scope::around;
};

/// The deeds, those that say most first: of several in a subject the first counts.
std::span<const EventAction> eventActions();
/// Their words, a table for `Concepts` in the same order. "1" stands for any number.
std::span<const std::string_view> eventActionWords();

/// Words for goods and for what is sold by the month, one table entry.
std::span<const std::string_view> eventGoods();
/// Words that say nothing of what happened to what, one table entry.
std::span<const std::string_view> eventFilling();

}  // namespace brindlet
