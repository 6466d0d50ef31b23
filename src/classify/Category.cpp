#include "classify/Category.h"
