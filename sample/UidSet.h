#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "sample/ImapAccount.h"

namespace brindlet::sample {

/// A set of UIDs as a client writes it: "1,4:7,9:*", where "*" is the highest that there is.
class UidSet {
  public:
    /// None when it is not written by the rules; there is no UID 0.
    static std::optional<UidSet> parse(std::string_view text);

    /// Where those of the mailbox stand in its list, ascending and each once. A range with "*" in
    /// it always holds the last message, wherever it begins.
    std::vector<std::size_t> in(const ImapMailbox& mailbox) const;

  private:
    /// Both ends, in either order.
    std::vector<std::pair<std::uint32_t, std::uint32_t>> ranges_;
};

}  // namespace brindlet::sample
