#include "models/embedded/EmbeddedModel.h"
