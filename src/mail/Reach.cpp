#include "mail/Reach.h"

namespace brindlet {

std::int64_t reachCutoff(Reach reach, Date now) {
    constexpr std::int64_t day = 86'400;
    std::int64_t days = 0;
    switch (reach) {
        case Reach::week:
            days = 7;
            break;
        case Reach::month:
            days = 30;
            break;
        case Reach::threeMonths:
            days = 90;
            break;
        case Reach::year:
            days = 365;
            break;
        case Reach::everything:
            return 0;
    }
    return static_cast<std::int64_t>(now.unix() - static_cast<double>(days * day));
}

}  // namespace brindlet
