#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace brindlet {

/// From a message's row id to the full path of its file. Directories are kept once each, so that a
/// hundred thousand paths stay small.
class MessagePaths {
  public:
    /// The directory's number, for `add`.
    std::uint32_t addDirectory(std::string path);
    /// A later file of the same id replaces the earlier one.
    void add(std::int64_t id, std::uint32_t directory, std::string_view fileName);

    std::size_t size() const;
    std::optional<std::string> find(std::int64_t id) const;
    /// The same into a buffer that is reused; false when the id has no file.
    bool find(std::int64_t id, std::string& path) const;

  private:
    struct Place {
        std::uint32_t directory;
        std::uint32_t nameAt;
        std::uint32_t nameLength;
    };
    std::vector<std::string> directories_;
    std::string names_;
    std::unordered_map<std::int64_t, Place> places_;
};

}  // namespace brindlet
