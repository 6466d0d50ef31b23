#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brindlet {

/// From a message's row id to the full path of its file: a value, filled once and then only read.
///
/// A path is kept as its directory's number and what the file name adds to the id, which for nearly
/// every file is nothing; so a message takes about ten bytes, whatever the depth of the folders.
class MessagePaths {
  public:
    /// The number of a message file's name: without every ".emlx" and then every ".partial" in it,
    /// a decimal integer with an optional sign. None for other names, and for those that do not end
    /// in ".emlx".
    static std::optional<std::int64_t> idOfFileName(std::string_view fileName);

    /// The directory's number, for `add`.
    std::uint32_t addDirectory(std::string path);
    /// Adds a file by the id in its name; a name of another kind is passed over. A later file of
    /// the same id replaces the earlier one.
    void add(std::uint32_t directory, std::string_view fileName);

    std::size_t size() const { return size_; }
    std::optional<std::string> find(std::int64_t id) const;
    /// The same into a buffer that is reused; false when the id has no file.
    bool find(std::int64_t id, std::string& path) const;

  private:
    /// `name` is one of the two usual forms, or where in `names_` an unusual name starts.
    struct Place {
        std::uint32_t directory = 0;
        std::uint32_t name = none;
    };
    /// A page holds the places of neighbouring ids, which mostly are all there.
    struct Page {
        std::int64_t number = 0;
        std::uint32_t start = none;  // in `places_`
    };
    static constexpr std::uint32_t none = UINT32_MAX;
    static constexpr std::uint32_t whole = UINT32_MAX - 1;
    static constexpr std::uint32_t partial = UINT32_MAX - 2;

    static std::size_t slotOf(const std::vector<Page>& table, std::int64_t number);
    const Place* placeOf(std::int64_t id) const;
    void put(std::int64_t id, Place place);
    void grow();

    std::vector<std::string> directories_;
    std::string names_;  // unusual names, each with a NUL after it
    std::vector<Place> places_;
    std::vector<Page> pages_;  // by hash of the number; a power of two in size
    std::size_t pageCount_ = 0;
    std::size_t size_ = 0;
};

}  // namespace brindlet
