#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/Secret.h"

namespace brindlet {

/// The system's safe for passwords. A secret is known by its service and account, both exact. A
/// safe that is not there, is locked or refuses behaves as one that holds nothing. Any thread but,
/// as `read`, `save` and `forget` may wait for the person, for at most a minute, not the main one.
class KeyStore {
  public:
    virtual ~KeyStore() = default;
    /// Only looks; never asks the person for anything.
    virtual bool has(const std::string& service, const std::string& account) = 0;
    virtual std::optional<Secret> read(const std::string& service, const std::string& account) = 0;
    /// In place of an earlier one.
    virtual void save(const std::string& service, const std::string& account,
                      const Secret& secret) = 0;
    virtual void forget(const std::string& service, const std::string& account) = 0;
};

}  // namespace brindlet
