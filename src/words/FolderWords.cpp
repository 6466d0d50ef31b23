#include "words/FolderWords.h"
