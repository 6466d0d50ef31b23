#include "session/Updater.h"

namespace brindlet {

Updater::Updater(Updates& updates) : updates_(updates) {
    updates_.start({[this](bool can) { canCheck.set(can); },
                    [this](const std::string& version) { waiting.set(version); },
                    [this] { waiting.set(std::nullopt); }, [this] { waiting.set(std::nullopt); }});
}

void Updater::check() {
    if (*canCheck) updates_.check();
}

}  // namespace brindlet
