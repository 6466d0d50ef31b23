#pragma once

#include <string>
#include <string_view>

#include "sample/MailPlan.h"

namespace brindlet::sample {

/// What a message carries beside its text.
struct Attachment {
    /// Empty when there is none.
    std::string name;
    /// Its bytes, where they lie beside the message and not in it.
    std::string apart;
};

/// Turns plans into the bytes of message files. Constant after construction: many threads may use
/// one. The texts must outlive it.
class MessageComposer {
  public:
    explicit MessageComposer(const SampleTexts& texts);

    /// Puts the whole file into `file`, which is reused; a file that is meant to be damaged too.
    /// Nothing is put in for a message without a file.
    Attachment compose(const PlannedMessage& message, std::string& file) const;
    /// The first words of the text, as the index keeps them.
    std::string summary(const PlannedMessage& message) const;

  private:
    struct Build;

    const SampleTexts& texts_;
    /// Lines of base64 that attachments are cut from.
    std::string attachmentLines_;
};

}  // namespace brindlet::sample
