#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

namespace brindlet {

/// The trio every enum of this house comes with: all values, to text, from text. An enum
/// specialises EnumInfo beside its declaration with `all`, a constexpr array of (value, raw text)
/// pairs in the enum's fixed order. The raw texts are what files, defaults and models say.
template <class E>
struct EnumInfo;

/// The raw text of a value; empty for a value outside the enum.
template <class E>
constexpr std::string_view rawValue(E value) {
    for (const auto& [candidate, text] : EnumInfo<E>::all)
        if (candidate == value) return text;
    return {};
}

/// The value of a raw text, exact and case-sensitive; none for any other text.
template <class E>
constexpr std::optional<E> fromRaw(std::string_view text) {
    for (const auto& [value, candidate] : EnumInfo<E>::all)
        if (candidate == text) return value;
    return std::nullopt;
}

/// All values in their fixed order.
template <class E>
constexpr auto allCases() {
    std::array<E, EnumInfo<E>::all.size()> cases{};
    for (std::size_t i = 0; i < cases.size(); ++i) cases[i] = EnumInfo<E>::all[i].first;
    return cases;
}

}  // namespace brindlet
