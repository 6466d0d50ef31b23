#include "stores/Seen.h"
