#pragma once

#include <string>

#include "models/training/Grammar.h"

namespace brindlet::training {

/// Reads "words.txt" and for every learned label its files, "<label>.txt" and
/// "<label>-<topic>.txt", in the order of their names, from a folder. Gives an empty text, or what
/// is wrong as a finished sentence.
std::string readTrainingTexts(const std::string& folder, Grammar& grammar);

}  // namespace brindlet::training
