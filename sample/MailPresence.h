#pragma once

#include <string>

/// Whether the simulated mail program of a sample home is running. It is one program for all
/// processes, whichever of them asks it for something; so the answer is the home's, and anybody may
/// ask at any time. It runs until it has quit, and again as soon as it is told something.
namespace brindlet::sample {

bool mailIsRunning(const std::string& home);
void launchMail(const std::string& home);
void quitMail(const std::string& home);

}  // namespace brindlet::sample
