#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/Cancel.h"
#include "classify/Classifier.h"
#include "mail/MailAccount.h"
#include "mail/MailStore.h"
#include "platform/Services.h"
#include "session/ScanPort.h"

namespace brindlet {

/// One scan of one mailbox, from rows to verdicts: blocking code that runs straight down, on a
/// thread of its own. It owns all its working data, which ends with it.
///
/// Cancelling is looked at only where a person's stop must show: before each run of reading, before
/// sorting, before each cluster and the second pass, after each result, and while paused. A
/// cancelled scan keeps what it has found.
class Scan {
  public:
    struct Tools {
        Clock& clock;
        Power& power;
        std::shared_ptr<const MailStore> mail;
        std::shared_ptr<const Classifier> classifier;
        /// How many message files are read side by side.
        int readers = 8;
    };
    struct Target {
        MailAccount account;
        MailFolder folder;
        /// Lower-cased, non-empty addresses of all accounts.
        std::vector<std::string> ownAddresses;
    };

    /// The port must outlive the scan.
    Scan(Tools tools, Target target, ScanPort& port);
    ~Scan();

    void run(const CancelToken& token);

  private:
    struct Work;
    std::unique_ptr<Work> work_;
};

}  // namespace brindlet
