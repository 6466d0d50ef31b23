#pragma once

#include <string>

namespace brindlet {

/// Asks the login manager over the system bus to keep the machine from idle sleep. Gives a file
/// descriptor, the caller's to close, which ends the request; -1 where no login manager answers.
/// Blocks for as long as the bus takes, and up to five seconds for the answer: not for the main
/// thread.
int inhibitSleep(const std::string& reason);

}  // namespace brindlet
