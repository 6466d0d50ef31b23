#include "platform/linux/FileUserDefaults.h"

#include <cmath>

#include "base/Files.h"
#include "base/Json.h"
#include "base/Utf8.h"

namespace brindlet {
namespace {

using Value = FileUserDefaults::Value;
using Values = FileUserDefaults::Values;

std::string hexadecimal(std::string_view bytes) {
    constexpr char digits[] = "0123456789abcdef";
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += digits[byte >> 4];
        text += digits[byte & 15];
    }
    return text;
}

std::optional<std::string> bytesOf(std::string_view text) {
    const auto digit = [](char c) {
        if (c >= '0' && c <= '9') return c - '0';
        return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
    };
    if (text.size() % 2 != 0) return std::nullopt;
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); i += 2) {
        const int high = digit(text[i]), low = digit(text[i + 1]);
        if (high < 0 || low < 0) return std::nullopt;
        bytes += static_cast<char>(high * 16 + low);
    }
    return bytes;
}

std::optional<Value> readTyped(JsonReader& in, std::string_view type) {
    if (type == "boolean") return in.boolean();
    if (type == "integer") return in.integer();
    if (type == "number") return in.number();
    if (type == "string") return in.string();
    if (type == "data") {
        auto bytes = bytesOf(in.stringView());
        if (!bytes) in.fail();
        return FileUserDefaults::Data{std::move(bytes).value_or("")};
    }
    if (type == "strings") {
        UserDefaults::Strings strings;
        in.array([&] { strings.push_back(in.string()); });
        return strings;
    }
    if (type == "dictionary") {
        UserDefaults::Dictionary dictionary;
        in.object([&](std::string_view key) { dictionary[std::string(key)] = in.string(); });
        return dictionary;
    }
    return std::nullopt;  // a type that a later version may know
}

Values read(std::string text) {
    Values values;
    JsonReader in(std::move(text));
    in.object([&](std::string_view key) {
        in.object([&](std::string_view type) {
            if (auto value = readTyped(in, type)) values[std::string(key)] = std::move(*value);
        });
    });
    return in.finish() ? values : Values();
}

struct TypedWriter {
    JsonWriter& out;

    void operator()(bool value) const { out.member("boolean", value); }
    void operator()(std::int64_t value) const { out.member("integer", value); }
    void operator()(double value) const { out.member("number", value); }
    void operator()(const std::string& value) const { out.member("string", value); }
    void operator()(const FileUserDefaults::Data& value) const {
        out.member("data", hexadecimal(value.bytes));
    }
    void operator()(const UserDefaults::Strings& value) const {
        out.key("strings");
        out.beginArray();
        for (const auto& text : value) out.value(text);
        out.endArray();
    }
    void operator()(const UserDefaults::Dictionary& value) const {
        out.key("dictionary");
        out.beginObject();
        for (const auto& [key, text] : value) out.member(key, text);
        out.endObject();
    }
};

}  // namespace

FileUserDefaults::FileUserDefaults(std::string path) : path_(std::move(path)) {
    if (auto text = files::read(*path_)) values_ = read(std::move(*text));
}

template <class T>
const T* FileUserDefaults::find(std::string_view key) const {
    const auto found = values_.find(key);
    return found == values_.end() ? nullptr : std::get_if<T>(&found->second);
}

std::optional<bool> FileUserDefaults::boolean(std::string_view key) const {
    const auto* value = find<bool>(key);
    return value ? std::optional(*value) : std::nullopt;
}

std::optional<std::int64_t> FileUserDefaults::integer(std::string_view key) const {
    const auto* value = find<std::int64_t>(key);
    return value ? std::optional(*value) : std::nullopt;
}

std::optional<double> FileUserDefaults::number(std::string_view key) const {
    if (const auto whole = integer(key)) return static_cast<double>(*whole);
    const auto* value = find<double>(key);
    return value ? std::optional(*value) : std::nullopt;
}

std::optional<std::string> FileUserDefaults::string(std::string_view key) const {
    const auto* value = find<std::string>(key);
    return value ? std::optional(*value) : std::nullopt;
}

std::optional<std::string> FileUserDefaults::data(std::string_view key) const {
    const auto* value = find<Data>(key);
    return value ? std::optional(value->bytes) : std::nullopt;
}

std::optional<UserDefaults::Strings> FileUserDefaults::strings(std::string_view key) const {
    const auto* value = find<Strings>(key);
    return value ? std::optional(*value) : std::nullopt;
}

std::optional<UserDefaults::Dictionary> FileUserDefaults::dictionary(std::string_view key) const {
    const auto* value = find<Dictionary>(key);
    return value ? std::optional(*value) : std::nullopt;
}

void FileUserDefaults::setBoolean(std::string_view key, bool value) {
    set(key, value);
}
void FileUserDefaults::setInteger(std::string_view key, std::int64_t value) {
    set(key, value);
}

void FileUserDefaults::setNumber(std::string_view key, double value) {
    if (std::isfinite(value))
        set(key, value);
    else
        remove(key);
}

// Text that is no UTF-8 would make the whole file unreadable, so it is mended on its way in.
void FileUserDefaults::setString(std::string_view key, const std::string& value) {
    set(key, repairedUtf8(value));
}

void FileUserDefaults::setData(std::string_view key, const std::string& bytes) {
    set(key, Data{bytes});
}

void FileUserDefaults::setStrings(std::string_view key, const Strings& value) {
    Strings strings;
    for (const auto& text : value) strings.push_back(repairedUtf8(text));
    set(key, std::move(strings));
}

void FileUserDefaults::setDictionary(std::string_view key, const Dictionary& value) {
    Dictionary dictionary;
    for (const auto& [name, text] : value) dictionary[repairedUtf8(name)] = repairedUtf8(text);
    set(key, std::move(dictionary));
}

void FileUserDefaults::remove(std::string_view key) {
    const auto found = values_.find(key);
    if (found == values_.end()) return;
    values_.erase(found);
    save();
}

void FileUserDefaults::set(std::string_view key, Value value) {
    values_.insert_or_assign(repairedUtf8(key), std::move(value));
    save();
}

void FileUserDefaults::save() const {
    if (!path_) return;
    JsonWriter out;
    out.beginObject();
    for (const auto& [key, value] : values_) {
        out.key(key);
        out.beginObject();
        std::visit(TypedWriter{out}, value);
        out.endObject();
    }
    out.endObject();
    files::replace(*path_, std::move(out).text());
}

}  // namespace brindlet
