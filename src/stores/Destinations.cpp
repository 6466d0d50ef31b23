#include "stores/Destinations.h"
