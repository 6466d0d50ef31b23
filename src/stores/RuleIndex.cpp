#include "stores/RuleIndex.h"
