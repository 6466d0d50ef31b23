#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/Date.h"
#include "session/VerdictList.h"

namespace brindlet {

/// What the sorting of messages tells, and the one thing it asks. Called on the sorting's thread.
/// An operation that answers false says that nobody is left to be told; the sorting then unwinds.
class SortingPort {
  public:
    virtual ~SortingPort() = default;

    virtual bool setStage(const std::string& stage) = 0;
    struct Progress {
        std::int64_t done = 0;
        double rate = 0;
        std::optional<double> eta;
        VerdictList verdicts;
    };
    /// Returns before it is carried out, but not before the one before it was.
    virtual bool publish(const Progress& progress) = 0;
    /// The switch as it stands now.
    virtual bool pausesOnBattery() = 0;
    virtual bool finish(const VerdictList& verdicts, Date started) = 0;
};

}  // namespace brindlet
