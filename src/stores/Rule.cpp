#include "stores/Rule.h"
