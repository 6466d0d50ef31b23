#include "words/PickWords.h"
