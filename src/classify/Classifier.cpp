#include "classify/Classifier.h"
