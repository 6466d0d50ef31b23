#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "mail/Reach.h"
#include "session/SortingPort.h"
#include "stores/Calibration.h"
#include "stores/Rule.h"
#include "stores/Seen.h"

namespace brindlet {

/// All that a scan wants of the session. Called on the scan's thread; each call, but for
/// `publish` and `pausesOnBattery`, is carried out on the main thread before it returns, all in the
/// order of the calls. An operation that answers none or false says that the session is gone; the
/// scan then unwinds.
class ScanPort : public SortingPort {
  public:
    struct Bounds {
        std::int64_t limit = 0;
        Reach reach = Reach::month;
    };
    virtual std::optional<Bounds> bounds() = 0;

    /// What was decided before: `keys` for what was seen and what was filed as junk.
    struct Decided {
        bool skipSeen = true;
        std::shared_ptr<const Seen::Keys> keys;
    };
    virtual std::optional<Decided> decided() = 0;

    struct Learned {
        std::vector<Rule> rules;
        std::map<Category, Rule::Verdict> overrides;
    };
    virtual std::optional<Learned> learned() = 0;
    virtual bool setCorrespondentCount(std::int64_t count) = 0;

    virtual bool located(std::int64_t rows) = 0;
    virtual bool reading(std::int64_t handled, std::int64_t rows) = 0;
    /// The safety stop; nothing of the scan is recorded.
    virtual bool failUnreadable(std::int64_t readable, std::int64_t total) = 0;
    virtual bool willSort(std::int64_t skipped, std::int64_t kept) = 0;
    /// The end of a scan that has nothing to sort, or was cancelled before it began to.
    virtual bool endWithoutSorting() = 0;
};

}  // namespace brindlet
