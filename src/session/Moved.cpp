#include "session/Moved.h"

namespace brindlet {

bool landed(const Verdict& verdict, const MoveOutcome& outcome) {
    return verdict.messageID && outcome.landed.count(*verdict.messageID) > 0;
}

std::vector<std::string> messageIDs(const std::vector<const Verdict*>& verdicts) {
    std::vector<std::string> ids;
    ids.reserve(verdicts.size());
    for (const auto* verdict : verdicts) ids.push_back(*verdict->messageID);
    return ids;
}

std::vector<ScanRecord::Moved> movedOf(const std::vector<const Verdict*>& verdicts) {
    std::vector<ScanRecord::Moved> moved;
    moved.reserve(verdicts.size());
    for (const auto* verdict : verdicts)
        moved.push_back({*verdict->messageID, verdict->sender, verdict->subject});
    return moved;
}

}  // namespace brindlet
