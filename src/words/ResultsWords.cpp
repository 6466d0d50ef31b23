#include "words/ResultsWords.h"
