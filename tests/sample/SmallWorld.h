#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "doubles/Doubles.h"
#include "sample/HandmadeHome.h"
#include "sample/SimulatedMail.h"

namespace brindlet::sample {

/// A home with one account of ordinary folders and one of Gmail's labels, and questions about what
/// stands in it, asked afresh each time.
struct SmallWorld {
    SmallWorld();

    void finish();
    /// Ids of what a mailbox lists, newest first.
    std::vector<std::string> idsIn(std::int64_t mailbox) const;
    /// All message files below the data root, by their paths there.
    std::vector<std::string> files() const;
    /// The number in one column of one row.
    std::int64_t number(const std::string& query) const;

    doubles::TemporaryDirectories directories;
    HandmadeHome home;
    std::int64_t inbox, junk, other;
    std::int64_t all, label, receipts, spam;
    /// Messages a@h, b@h and c@h of the inbox; g@h of All Mail with the label INBOX.
    std::int64_t a, b, c, g;
};

}  // namespace brindlet::sample
