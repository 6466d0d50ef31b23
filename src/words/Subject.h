#pragma once

#include <string>

#include "base/Text.h"

namespace brindlet {

/// A message's subject as every list shows it.
inline std::string shownSubject(const std::string& subject) {
    return trimBlanksAndNewlines(subject).empty() ? "(no subject)" : subject;
}

}  // namespace brindlet
