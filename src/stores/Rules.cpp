#include "stores/Rules.h"
