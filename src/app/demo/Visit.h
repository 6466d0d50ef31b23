#pragma once

#include <array>
#include <string_view>
#include <utility>

#include "base/EnumInfo.h"

namespace brindlet::demo {

/// The parts of the tour. What one world does not show, another does.
enum class Visit {
    /// A first start, and all that a scan and a move lead to.
    first,
    /// A start after weeks of use.
    again,
    /// A scan whose results are corrected in all ways.
    corrections,
    /// A mail program without accounts, whose files cannot be read either.
    empty,
    /// A machine that has no language model.
    withoutModel,
};

}  // namespace brindlet::demo

namespace brindlet {

template <>
struct EnumInfo<demo::Visit> {
    using Visit = demo::Visit;
    static constexpr std::array<std::pair<Visit, std::string_view>, 5> all{{
        {Visit::first, "first"},
        {Visit::again, "again"},
        {Visit::corrections, "corrections"},
        {Visit::empty, "empty"},
        {Visit::withoutModel, "without-model"},
    }};
};

}  // namespace brindlet
