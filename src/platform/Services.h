#pragma once

#include <string>

namespace brindlet {

class Clock;
class Desktop;
class Directories;
class KeyStore;
class LanguageModel;
class Locale;
class MainQueue;
class Power;
class ProcessRunner;
class RunningApps;
class TlsConnector;
class UserDefaults;

/// All seams together, and the one setting that goes with them. A program's own main makes the
/// adapters, which outlive everything built over them.
struct Services {
    Clock& clock;
    Directories& directories;
    MainQueue& mainQueue;
    UserDefaults& defaults;
    LanguageModel& model;
    Power& power;
    Desktop& desktop;
    Locale& locale;
    ProcessRunner& processes;
    RunningApps& runningApps;
    KeyStore& keys;
    TlsConnector& tls;
    /// The program that runs the scripts for the mail program.
    std::string scriptHost;
};

}  // namespace brindlet
