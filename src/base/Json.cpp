#include "base/Json.h"
