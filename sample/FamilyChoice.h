#pragma once

#include "sample/Random.h"
#include "sample/SampleAccounts.h"
#include "sample/SampleTexts.h"

namespace brindlet::sample {

/// True for folders of mail that the owner wrote.
bool writtenByOwner(Mix mix);

/// A family whose mail suits a folder, by the shares of the categories in it and the weights of the
/// families: one in twenty messages is in another tongue than English, swindle is mostly in Junk.
const Family& chooseFamily(const SampleTexts& texts, Mix mix, Random& random);

}  // namespace brindlet::sample
