#pragma once

#include "models/training/Grammar.h"

namespace brindlet::training {

/// Makes a sample look as messages do by the time the model sees them: subjects in capitals or
/// none, pictures before them, bodies in parts and encodings, cut at 700 characters, or missing.
void dressUp(SampleMail& mail, Grammar::Dress dress, Random& random);

}  // namespace brindlet::training
