#pragma once

#include "platform/ProcessRunner.h"

namespace brindlet {

/// Starts programs by posix_spawn. They start with no signal blocked, and hold no pipe that another
/// one reads or writes.
class PosixProcessRunner : public ProcessRunner {
  public:
    std::shared_ptr<ChildProcess> make(std::vector<std::string> arguments) override;
};

}  // namespace brindlet
