#pragma once

#include <memory>
#include <vector>

#include "LabelledMail.h"
#include "classify/Classifier.h"
#include "session/Decide.h"

namespace brindlet::tools {

/// What became of a message.
struct Answer {
    Category category = Category::cannotTell;
    bool junk = false;
    bool vetoed = false;
};

/// Sorts the messages as a scan of one folder that holds them, newest first, would: the scan's own
/// code, over these messages instead of files. One answer for each.
std::vector<Answer> sortLabelled(const std::vector<LabelledMail>& mails,
                                 std::shared_ptr<const Classifier> classifier,
                                 DecisionGround ground);

/// Asks about each message by itself and takes the category's default for what becomes of it: the
/// model alone, with nothing that protects.
std::vector<Answer> askEach(const std::vector<LabelledMail>& mails, const Classifier& classifier);

}  // namespace brindlet::tools
