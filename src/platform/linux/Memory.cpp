#include "platform/linux/Memory.h"

#include <malloc.h>

namespace brindlet {

void shareHeaps() {
#if defined(M_ARENA_MAX)
    mallopt(M_ARENA_MAX, 2);
#endif
}

}  // namespace brindlet
