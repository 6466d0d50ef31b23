#include "app/demo/SightTables.h"

namespace brindlet::demo {

std::vector<Sight> scanningSights() {
    return {
        {"scanning", "the ring, and how much of it is done", {"#%", "# / #", "Stop"}},
        {"scanning.stage", "what goes on", {"Sorting with the on-device model"}},
        {"scanning.place", "the account and the folder", {"* \u00b7 *"}},
        {"scanning.speed", "how fast it goes", {"#/s", "speed"}},
        {"scanning.remaining", "how long it will take", {"remaining: *"}},
        {"scanning.skipped", "how many were skipped", {"skipped: #"}},
        {"scanning.protected", "how many are protected", {"protected: #"}},
        {"scanning.junk", "how many are junk so far", {"junk so far: #"}},
        {"scanning.paused",
         "the pause on battery power, and the switch against it",
         {"Paused - on battery. Plug in to continue, or allow battery scanning below.",
          "Keep scanning on battery power"}},
    };
}

}  // namespace brindlet::demo
