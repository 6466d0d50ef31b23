#include "stores/Schedule.h"
