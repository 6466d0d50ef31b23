#include "mail/MessagePaths.h"

#include "base/Text.h"

namespace brindlet {
namespace {

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
        put({id, directory, whole});
    } else if (ending.size() < fileName.size() && ending == partialEnding) {
        put({id, directory, partial});
    } else if (const auto unusual = idOfFileName(fileName)) {
        put({*unusual, directory, static_cast<std::uint32_t>(names_.size())});
        names_.append(fileName).push_back('\0');
    }
}

/// Neighbouring ids lie in one folder and come one after another, so they get neighbouring slots;
/// only the blocks of 65,536 are scattered.
std::size_t MessagePaths::slotOf(const std::vector<Entry>& table, std::int64_t id) {
    const auto bits = static_cast<std::uint64_t>(id);
    const std::size_t mask = table.size() - 1;
    std::size_t slot = (bits + (bits >> 16) * 0x9E3779B97F4A7C15u) & mask;
    while (table[slot].name != none && table[slot].id != id) slot = (slot + 1) & mask;
    return slot;
}

void MessagePaths::grow() {
    std::vector<Entry> larger(table_.empty() ? 1024 : table_.size() * 2);
    for (const Entry& entry : table_)
        if (entry.name != none) larger[slotOf(larger, entry.id)] = entry;
    table_ = std::move(larger);
}

void MessagePaths::put(Entry entry) {
    if (size_ * 4 >= table_.size() * 3) grow();
    Entry& slot = table_[slotOf(table_, entry.id)];
    if (slot.name == none) ++size_;
    slot = entry;
}

bool MessagePaths::find(std::int64_t id, std::string& path) const {
    if (table_.empty()) return false;
    const Entry& entry = table_[slotOf(table_, id)];
    if (entry.name == none) return false;
    path = directories_[entry.directory];
    path += '/';
    if (entry.name == whole)
        path.append(std::to_string(id)).append(wholeEnding);
    else if (entry.name == partial)
        path.append(std::to_string(id)).append(partialEnding);
    else
        path += names_.c_str() + entry.name;
    return true;
}

std::optional<std::string> MessagePaths::find(std::int64_t id) const {
    std::string path;
    if (!find(id, path)) return std::nullopt;
    return path;
}

}  // namespace brindlet
