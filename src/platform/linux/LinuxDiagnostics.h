#pragma once

#include <string>
#include <utility>

#include "platform/Diagnostics.h"

namespace brindlet {

class Clock;
class ProcessRunner;

/// Stacks by elfutils' eu-stack, three of them a second apart; where it is not installed there is
/// never a file. The log is syslog's.
class LinuxDiagnostics : public Diagnostics {
  public:
    /// `program` is another eu-stack than the system's. What is passed in outlives this.
    LinuxDiagnostics(ProcessRunner& processes, Clock& clock,
                     std::string program = "/usr/bin/eu-stack")
        : processes_(processes), clock_(clock), program_(std::move(program)) {}

    void sample(const std::string& path, const CancelToken& token) override;
    void log(const std::string& line) override;

  private:
    std::string stacksNow();

    ProcessRunner& processes_;
    Clock& clock_;
    std::string program_;
};

}  // namespace brindlet
