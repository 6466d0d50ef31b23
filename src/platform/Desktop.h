#pragma once

#include <string>

namespace brindlet {

/// What the desktop opens for us. Main thread; returns at once, failures ignored.
class Desktop {
  public:
    virtual ~Desktop() = default;
    /// A link of any scheme, the mail program's message scheme included.
    virtual void openLink(const std::string& url) = 0;
    /// The system's settings at the pane that grants access to the mail program's files.
    virtual void openDiskAccessSettings() = 0;
    /// The system's settings as a whole.
    virtual void openSettings() = 0;
    virtual void openMail() = 0;
};

}  // namespace brindlet
