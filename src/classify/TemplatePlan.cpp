#include "classify/TemplatePlan.h"
