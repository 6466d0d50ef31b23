#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brindlet {

/// The person's settings: a persistent map from key to a typed value. Each set is written at once;
/// a failed write is not noticed. A get of another type than was stored answers none, but that
/// `number` also takes an integer. Main thread.
class UserDefaults {
  public:
    using Strings = std::vector<std::string>;
    using Dictionary = std::map<std::string, std::string>;

    virtual ~UserDefaults() = default;

    virtual std::optional<bool> boolean(std::string_view key) const = 0;
    virtual std::optional<std::int64_t> integer(std::string_view key) const = 0;
    virtual std::optional<double> number(std::string_view key) const = 0;
    virtual std::optional<std::string> string(std::string_view key) const = 0;
    /// Bytes.
    virtual std::optional<std::string> data(std::string_view key) const = 0;
    virtual std::optional<Strings> strings(std::string_view key) const = 0;
    /// None as a whole when one entry is no string.
    virtual std::optional<Dictionary> dictionary(std::string_view key) const = 0;

    virtual void setBoolean(std::string_view key, bool value) = 0;
    virtual void setInteger(std::string_view key, std::int64_t value) = 0;
    virtual void setNumber(std::string_view key, double value) = 0;
    virtual void setString(std::string_view key, const std::string& value) = 0;
    virtual void setData(std::string_view key, const std::string& bytes) = 0;
    virtual void setStrings(std::string_view key, const Strings& value) = 0;
    virtual void setDictionary(std::string_view key, const Dictionary& value) = 0;
    virtual void remove(std::string_view key) = 0;
};

}  // namespace brindlet
