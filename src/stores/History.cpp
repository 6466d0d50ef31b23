#include "stores/History.h"
