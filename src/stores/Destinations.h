#pragma once

#include <map>
#include <string>

#include "base/Observable.h"
#include "platform/Services.h"

namespace brindlet {

/// Where each account's junk goes, in the user default "junkDestinations". Main thread.
class Destinations : public Observable {
  public:
    explicit Destinations(Services services);

    /// From account id to a destination's name.
    Published<std::map<std::string, std::string>> byAccount{*this};

    void set(const std::string& account, const std::string& destination);

  private:
    Services services_;
};

}  // namespace brindlet
