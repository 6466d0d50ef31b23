#pragma once

#include "platform/Desktop.h"

namespace brindlet {

/// Opens links by the desktop's own opener. There is neither a mail program nor a settings pane for
/// its files here, so opening those does nothing.
class XdgDesktop : public Desktop {
  public:
    /// `opener` is looked for along PATH and gets the link as its one argument.
    explicit XdgDesktop(std::string opener = "xdg-open") : opener_(std::move(opener)) {}

    void openLink(const std::string& url) override;
    void openDiskAccessSettings() override {}
    void openMail() override {}

  private:
    std::string opener_;
};

}  // namespace brindlet
