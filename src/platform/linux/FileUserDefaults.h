#pragma once

#include <optional>
#include <variant>

#include "platform/UserDefaults.h"

namespace brindlet {

/// Settings in one JSON file, or in memory alone. The file is an object from each key to an object
/// with one member, whose name is the value's type:
///
///     {"scan.limit":{"integer":500},"auto.watched":{"data":"5b5d"},"skipSeen":{"boolean":false}}
///
/// Data stands in hexadecimal. A file that is missing or damaged counts as empty. Each change
/// writes a new file beside it, which then takes its place, so that no crash leaves half a file.
class FileUserDefaults : public UserDefaults {
  public:
    /// In memory alone.
    FileUserDefaults() = default;
    /// In this file, whose directory stands already.
    explicit FileUserDefaults(std::string path);

    std::optional<bool> boolean(std::string_view key) const override;
    std::optional<std::int64_t> integer(std::string_view key) const override;
    std::optional<double> number(std::string_view key) const override;
    std::optional<std::string> string(std::string_view key) const override;
    std::optional<std::string> data(std::string_view key) const override;
    std::optional<Strings> strings(std::string_view key) const override;
    std::optional<Dictionary> dictionary(std::string_view key) const override;

    void setBoolean(std::string_view key, bool value) override;
    void setInteger(std::string_view key, std::int64_t value) override;
    /// A number that JSON cannot say, infinite or none, removes the key.
    void setNumber(std::string_view key, double value) override;
    void setString(std::string_view key, const std::string& value) override;
    void setData(std::string_view key, const std::string& bytes) override;
    void setStrings(std::string_view key, const Strings& value) override;
    void setDictionary(std::string_view key, const Dictionary& value) override;
    void remove(std::string_view key) override;

    struct Data {
        std::string bytes;
    };
    using Value = std::variant<bool, std::int64_t, double, std::string, Data, Strings, Dictionary>;
    using Values = std::map<std::string, Value, std::less<>>;

  private:
    template <class T>
    const T* find(std::string_view key) const;
    void set(std::string_view key, Value value);
    void save() const;

    std::optional<std::string> path_;
    Values values_;
};

}  // namespace brindlet
