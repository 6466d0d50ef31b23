#pragma once

#include <string>
#include <vector>

#include "classify/Verdict.h"
#include "mover/MoveOutcome.h"
#include "stores/ScanRecord.h"

namespace brindlet {

/// Whether the outcome tells that this message has left its folder.
bool landed(const Verdict& verdict, const MoveOutcome& outcome);

/// What the stores keep of messages that were moved; each must have its Message-ID.
std::vector<std::string> messageIDs(const std::vector<const Verdict*>& verdicts);
std::vector<ScanRecord::Moved> movedOf(const std::vector<const Verdict*>& verdicts);

}  // namespace brindlet
