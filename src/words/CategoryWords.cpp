#include "words/CategoryWords.h"
