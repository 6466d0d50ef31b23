#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace brindlet::screens {

/// Takes `fresh` over `rows`, both of one length, and tells which rows differ, in ascending order.
template <class T>
std::vector<int> adoptChanged(std::vector<T>& rows, std::vector<T> fresh) {
    std::vector<int> changed;
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (!(rows[i] == fresh[i])) changed.push_back(static_cast<int>(i));
    rows = std::move(fresh);
    return changed;
}

}  // namespace brindlet::screens
