#include "platform/linux/SystemClock.h"

#include <chrono>

namespace brindlet {

Date SystemClock::now() const {
    using namespace std::chrono;
    constexpr sys_days reference = year{2001} / January / 1;
    // Whole microseconds: finer ones would only be digits without meaning in every file.
    const auto elapsed = floor<microseconds>(system_clock::now() - reference);
    return {static_cast<double>(elapsed.count()) / 1e6};
}

bool SystemClock::sleep(double seconds, const CancelToken& token) {
    return token.sleep(seconds);
}

}  // namespace brindlet
