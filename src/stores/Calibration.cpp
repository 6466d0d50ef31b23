#include "stores/Calibration.h"
