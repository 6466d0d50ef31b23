#include "mail/Reach.h"
