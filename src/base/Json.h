#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/Files.h"

/// JSON as the store files hold it (RFC 8259): read forward and strictly, written compactly.
namespace brindlet {

/// A forward reader over one JSON text, with typed gets. Any misstep - a value of another type, a
/// damaged text, invalid UTF-8, something after the end - makes the whole reading fail, and from
/// then on every call does nothing; so a caller reads straight on and asks `finish` once at the
/// end.
///
/// Use: construct, then one of the value calls; inside `object` and `array` the callback takes the
/// value it stands at by one value call. A value that it leaves is skipped, and checked all the
/// same.
///
/// A number counts as an integer when its value is whole, however it is written (2, 2.0, 2e0), and
/// fits 64 bits; integers never pass through a double. Containers may nest 512 deep.
class JsonReader {
  public:
    explicit JsonReader(std::string text);
    ~JsonReader();
    JsonReader(const JsonReader&) = delete;
    JsonReader& operator=(const JsonReader&) = delete;

    bool ok() const;
    void fail();

    /// True, taking the value, when it is null.
    bool takeNull();
    bool boolean();
    std::int64_t integer();
    double number();
    /// Unescaped UTF-8. The view is valid as long as the reader.
    std::string_view stringView();
    std::string string() { return std::string(stringView()); }
    void skip();
    /// Calls `member` with each key, standing at its value. Keys are valid as long as the reader.
    template <class F>
    void object(F&& member) {
        if (!enterObject()) return;
        std::string_view key;
        while (nextMember(key)) member(key);
    }
    /// Calls `element` once an element, standing at it.
    template <class F>
    void array(F&& element) {
        if (!enterArray()) return;
        while (nextElement()) element();
    }

    /// Call after the top value: true when all went well and nothing but white space follows.
    bool finish();

  private:
    bool enterObject();
    bool nextMember(std::string_view& key);
    bool enterArray();
    bool nextElement();
    struct State;
    std::unique_ptr<State> state_;
};

/// Writes compact JSON to a string or straight into a file. "/" is written as "\/", other text as
/// raw UTF-8 (the caller's must be valid), doubles with the shortest digits that read back equal.
/// The caller keeps the order of key and value; an optional member that is empty is left out.
class JsonWriter {
  public:
    /// Collects the text; take it with `text`.
    JsonWriter() = default;
    /// Streams into the writer, which must outlive this. What is still buffered at the end goes out
    /// with `flush` or with the destructor.
    explicit JsonWriter(files::Writer& file) : file_(&file) {}
    ~JsonWriter() { flush(); }
    JsonWriter(const JsonWriter&) = delete;
    JsonWriter& operator=(const JsonWriter&) = delete;

    void beginObject() { open('{'); }
    void endObject() { close('}'); }
    void beginArray() { open('['); }
    void endArray() { close(']'); }
    void key(std::string_view key);
    void value(std::string_view text);
    void value(const std::string& text) { value(std::string_view(text)); }
    void value(const char* text) { value(std::string_view(text)); }
    void value(bool flag);
    void value(std::int64_t number);
    void value(int number) { value(static_cast<std::int64_t>(number)); }
    /// JSON knows no infinity and no NaN: they are written as null.
    void value(double number);
    void null();
    /// A value that is JSON already, as `text` gives it.
    void json(std::string_view value) { literal(value); }
    template <class T>
    void member(std::string_view name, const T& content) {
        key(name);
        value(content);
    }
    template <class T>
    void member(std::string_view name, const std::optional<T>& content) {
        if (content) member(name, *content);
    }
    /// Hands what is buffered to the file, if there is one.
    void flush();
    std::string text() &&;

  private:
    /// Where at least `size` bytes can be written, after the comma if one is due.
    char* reserve(std::size_t size);
    void commit(const char* end) { used_ = static_cast<std::size_t>(end - buffer_.data()); }
    void grow(std::size_t size);
    void open(char bracket);
    void close(char bracket);
    void literal(std::string_view text);

    files::Writer* file_ = nullptr;
    /// Sized ahead of what is used, so that the hot path writes through a plain pointer.
    std::string buffer_;
    std::size_t used_ = 0;
    bool comma_ = false;
};

}  // namespace brindlet
