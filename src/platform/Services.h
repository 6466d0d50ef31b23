#pragma once

namespace brindlet {

class Clock;
class Desktop;
class Directories;
class LanguageModel;
class Locale;
class MainQueue;
class Power;
class UserDefaults;

/// All seams together. A program's own main makes the adapters, which outlive everything built over
/// them.
struct Services {
    Clock& clock;
    Directories& directories;
    MainQueue& mainQueue;
    UserDefaults& defaults;
    LanguageModel& model;
    Power& power;
    Desktop& desktop;
    Locale& locale;
};

}  // namespace brindlet
