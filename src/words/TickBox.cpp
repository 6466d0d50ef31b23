#include "words/TickBox.h"

namespace brindlet {

std::string tickSymbol(const TickCount& count) {
    if (count.tickable < 1) return "minus.square.dashed";
    if (count.ticked < 1) return "square";
    return count.wouldTick() ? "minus.square.fill" : "checkmark.square.fill";
}

}  // namespace brindlet
