#include "mail/MessagePaths.h"

#include "base/Text.h"

namespace brindlet {
namespace {

constexpr int pageBits = 4;
constexpr std::size_t pageSize = std::size_t{1} << pageBits;

constexpr std::string_view wholeEnding = ".emlx";
constexpr std::string_view partialEnding = ".partial.emlx";

std::string without(std::string_view text, std::string_view piece) {
    std::string left;
    while (true) {
        const auto at = text.find(piece);
        left += text.substr(0, at);
        if (at == std::string_view::npos) return left;
        text.remove_prefix(at + piece.size());
    }
}

/// The digits at the front, when they are written just as the number is printed and cannot
/// overflow; 0 characters otherwise.
std::size_t plainNumber(std::string_view name, std::int64_t& number) {
    std::size_t length = 0;
    std::int64_t value = 0;
    while (length < name.size() && name[length] >= '0' && name[length] <= '9') {
        value = value * 10 + (name[length] - '0');
        if (++length == 18) return 0;
    }
    if (length == 0 || (name[0] == '0' && length > 1)) return 0;
    number = value;
    return length;
}

}  // namespace

std::optional<std::int64_t> MessagePaths::idOfFileName(std::string_view fileName) {
    if (!fileName.ends_with(wholeEnding)) return std::nullopt;
    return parseInt64(without(without(fileName, ".emlx"), ".partial"));
}

std::uint32_t MessagePaths::addDirectory(std::string path) {
    directories_.push_back(std::move(path));
    return static_cast<std::uint32_t>(directories_.size() - 1);
}

void MessagePaths::add(std::uint32_t directory, std::string_view fileName) {
    std::int64_t id = 0;
    const std::string_view ending = fileName.substr(plainNumber(fileName, id));
    if (ending.size() < fileName.size() && ending == wholeEnding) {
        put(id, {directory, whole});
    } else if (ending.size() < fileName.size() && ending == partialEnding) {
        put(id, {directory, partial});
    } else if (const auto unusual = idOfFileName(fileName)) {
        put(*unusual, {directory, static_cast<std::uint32_t>(names_.size())});
        names_.append(fileName).push_back('\0');
    }
}

std::size_t MessagePaths::slotOf(const std::vector<Page>& table, std::int64_t number) {
    const std::size_t mask = table.size() - 1;
    auto slot = static_cast<std::uint64_t>(number) * 0x9E3779B97F4A7C15u >> 32 & mask;
    while (table[slot].start != none && table[slot].number != number) slot = (slot + 1) & mask;
    return slot;
}

void MessagePaths::grow() {
    // Room that stays untouched takes no memory, while growing would touch it twice.
    if (pages_.empty()) places_.reserve(std::size_t{1} << 17);
    std::vector<Page> larger(pages_.empty() ? 64 : pages_.size() * 2);
    for (const Page& page : pages_)
        if (page.start != none) larger[slotOf(larger, page.number)] = page;
    pages_ = std::move(larger);
}

void MessagePaths::put(std::int64_t id, Place place) {
    if (pageCount_ * 2 >= pages_.size()) grow();
    Page& page = pages_[slotOf(pages_, id >> pageBits)];
    if (page.start == none) {
        page = {id >> pageBits, static_cast<std::uint32_t>(places_.size())};
        places_.resize(places_.size() + pageSize);
        ++pageCount_;
    }
    Place& present = places_[page.start + (static_cast<std::uint64_t>(id) & (pageSize - 1))];
    if (present.name == none) ++size_;
    present = place;
}

const MessagePaths::Place* MessagePaths::placeOf(std::int64_t id) const {
    if (pages_.empty()) return nullptr;
    const Page& page = pages_[slotOf(pages_, id >> pageBits)];
    if (page.start == none) return nullptr;
    const Place& place = places_[page.start + (static_cast<std::uint64_t>(id) & (pageSize - 1))];
    return place.name == none ? nullptr : &place;
}

bool MessagePaths::find(std::int64_t id, std::string& path) const {
    const Place* const place = placeOf(id);
    if (!place) return false;
    path = directories_[place->directory];
    path += '/';
    if (place->name == whole)
        path.append(std::to_string(id)).append(wholeEnding);
    else if (place->name == partial)
        path.append(std::to_string(id)).append(partialEnding);
    else
        path += names_.c_str() + place->name;
    return true;
}

std::optional<std::string> MessagePaths::find(std::int64_t id) const {
    std::string path;
    if (!find(id, path)) return std::nullopt;
    return path;
}

}  // namespace brindlet
