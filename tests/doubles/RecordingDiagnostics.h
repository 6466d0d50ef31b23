#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/ThreadSafety.h"
#include "platform/Diagnostics.h"

namespace brindlet::doubles {

/// Takes no sample; tells which were wanted, and what was logged.
class RecordingDiagnostics : public Diagnostics {
  public:
    void sample(const std::string& path, const CancelToken& token) override {
        sampled.with([&](auto& paths) { paths.push_back(path); });
        if (whileSampling) whileSampling(token);
    }
    void log(const std::string& line) override {
        logged.with([&](auto& lines) { lines.push_back(line); });
    }

    Locked<std::vector<std::string>> sampled;
    Locked<std::vector<std::string>> logged;
    /// What happens meanwhile, on the sampling thread.
    std::function<void(const CancelToken&)> whileSampling;
};

}  // namespace brindlet::doubles
