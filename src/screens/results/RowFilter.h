#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "session/VerdictList.h"

namespace brindlet::screens {

/// Finds a text in the senders and subjects of a list, whatever the case of its letters. Keeps all
/// texts in their folded form, made at the first use, and what each letter typed so far has left,
/// so that a key costs a search over that alone, and taking one back costs nothing.
class RowFilter {
  public:
    RowFilter();

    /// The list to filter: `positions` in `verdicts`.
    void reset(VerdictList verdicts, std::vector<std::uint32_t> positions);
    /// Indexes into the positions, ascending; all of them for an empty text. Valid until the next
    /// call.
    const std::vector<std::uint32_t>& matches(std::string_view text);

  private:
    struct Step {
        std::string needle;
        std::vector<std::uint32_t> matches;
    };
    void foldTexts();
    std::string_view foldedText(std::uint32_t index) const;

    VerdictList verdicts_;
    std::vector<std::uint32_t> positions_;
    std::string folded_;
    /// Where each text ends in `folded_`; empty until the first use.
    std::vector<std::size_t> ends_;
    /// Each holds the needle of the one before; the first has the empty needle and all rows.
    std::vector<Step> steps_;
};

}  // namespace brindlet::screens
