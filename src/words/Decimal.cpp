#include "words/Decimal.h"
