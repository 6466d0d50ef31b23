#pragma once

#include <string>

#include "models/training/Grammar.h"

namespace brindlet::training {

/// Reads "words.txt" and one file for every learned label, "<label>.txt", from a folder. Gives an
/// empty text, or what is wrong as a finished sentence.
std::string readTrainingTexts(const std::string& folder, Grammar& grammar);

}  // namespace brindlet::training
