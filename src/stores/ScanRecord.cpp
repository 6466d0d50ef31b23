#include "stores/ScanRecord.h"
