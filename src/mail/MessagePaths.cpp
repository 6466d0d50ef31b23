#include "mail/MessagePaths.h"
