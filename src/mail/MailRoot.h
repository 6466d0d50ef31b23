#pragma once

#include <string>

namespace brindlet {

/// Where the live index lies below the mail program's data root.
inline std::string liveIndexPath(const std::string& root) {
    return root + "/MailData/Envelope Index";
}

}  // namespace brindlet
