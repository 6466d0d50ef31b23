#include "platform/linux/SystemClock.h"

#include <chrono>

namespace brindlet {

Date SystemClock::now() const {
    using namespace std::chrono;
    constexpr sys_days reference = year{2001} / January / 1;
    return {duration<double>(system_clock::now() - reference).count()};
}

bool SystemClock::sleep(double seconds, const CancelToken& token) {
    return token.sleep(seconds);
}

}  // namespace brindlet
