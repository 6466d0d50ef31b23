#pragma once

#include <cstdlib>
#include <string>

#include "platform/Directories.h"
#include "platform/linux/Environment.h"

namespace brindlet {

/// The user's directories by the XDG Base Directory Specification: variables that are empty or hold
/// a relative path count as not set. What the program makes for itself is for its owner alone.
class XdgDirectories : public Directories {
  public:
    explicit XdgDirectories(const Environment& environment = ::getenv);

    /// $HOME, or what the password database says.
    std::string home() const override { return home_; }
    /// "brindlet" in the cache folder. Created at each asking, and taken back from others if it
    /// stood open to them.
    std::string temporary() const override;
    /// BRINDLET_STORE as it stands if it is set, be it empty; else "Brindlet" in the data folder.
    std::string store() const override;
    /// "brindlet" in the configuration folder, where the settings lie. Created at each asking.
    std::string configuration() const;

  private:
    std::string home_;
    std::string temporary_;
    std::string store_;
    std::string configuration_;
    bool storeGiven_ = false;
};

}  // namespace brindlet
