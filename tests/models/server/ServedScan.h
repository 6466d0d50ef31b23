#pragma once

#include <memory>
#include <string>

#include "doubles/Doubles.h"
#include "doubles/MailHome.h"
#include "session/AppState.h"

namespace brindlet {

/// Scans of a mailbox made by hand, through the session, with a model of the caller's. Every
/// message is from a sender of its own, so that each one is asked about.
class ServedScan {
  public:
    /// The model lasts as long as what the scan leaves behind may ask it.
    ServedScan(LanguageModel& model, int messages);
    ~ServedScan();
    ServedScan(const ServedScan&) = delete;
    ServedScan& operator=(const ServedScan&) = delete;

    void start();
    /// Pumps until the scan's task has returned.
    void finish();

    doubles::World& world;
    std::shared_ptr<AppState> state;

  private:
    doubles::MailHome home_;
    MailAccount account_;
    MailFolder inbox_;
};

}  // namespace brindlet
