#pragma once

#include <memory>
#include <string>

#include "stores/SeenTable.h"

/// "seen.json": one object from Message-ID to entry.
namespace brindlet {

/// None when anything in the text is wrong. An empty key, which no message has, is left out.
std::shared_ptr<SeenTable> decodedSeen(std::string text);

/// Overwrites the file; a failure is not noticed.
void writeSeen(const SeenTable& table, const std::string& path);

}  // namespace brindlet
