#include "words/ScanningWords.h"
