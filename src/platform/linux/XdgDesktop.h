#pragma once

#include <cstdlib>
#include <string>

#include "platform/Desktop.h"
#include "platform/linux/Environment.h"

namespace brindlet {

/// Opens links by the desktop's own opener, and the settings by the program that the desktop in use
/// has for them; a desktop that we do not know opens none. There is neither a mail program nor a
/// settings pane for its files here, so opening those does nothing.
class XdgDesktop : public Desktop {
  public:
    /// `opener` is looked for along PATH, as all programs are, and gets the link as its one
    /// argument.
    explicit XdgDesktop(std::string opener = "xdg-open", const Environment& environment = ::getenv);

    void openLink(const std::string& url) override;
    void openDiskAccessSettings() override {}
    void openSettings() override;
    void openMail() override {}

  private:
    std::string opener_;
    /// Empty where none is known.
    std::string settings_;
};

}  // namespace brindlet
