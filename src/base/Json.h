#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Files.h"

/// JSON as the store files hold it (RFC 8259): read forward and strictly, written compactly.
namespace brindlet {

/// A forward reader over one JSON text, with typed gets. Any misstep - a value of another type, a
/// damaged text, invalid UTF-8, something after the end - makes the whole reading fail, and from
/// then on every call does nothing; so a caller reads straight on and asks `ok` once at the end.
///
/// Use: construct, then one of the value calls; inside `object` and `array` the callback must take
/// exactly the value it stands at, by one value call, or `skip` it.
///
/// A number counts as an integer when it is written as one, or has a fraction of zeros (2.0), and
/// fits 64 bits; integers never pass through a double. Built on simdjson's on-demand parser.
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
    /// Unescaped UTF-8.
    std::string string();
    void skip();
    /// Calls `member` with each key, standing at its value. The key is valid during the call.
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
/// raw UTF-8, doubles with the shortest digits that read back equal. The caller keeps the order of
/// key and value; optional values that are empty are left out with `member(key, optional)`.
class JsonWriter {
  public:
    /// Collects the text; take it with `text`.
    JsonWriter();
    /// Streams into the writer, which must outlive this.
    explicit JsonWriter(files::Writer& file);
    ~JsonWriter();
    JsonWriter(const JsonWriter&) = delete;
    JsonWriter& operator=(const JsonWriter&) = delete;

    void beginObject();
    void endObject();
    void beginArray();
    void endArray();
    void key(std::string_view key);
    void value(std::string_view text);
    void value(const char* text) { value(std::string_view(text)); }
    void value(bool flag);
    void value(std::int64_t number);
    void value(int number) { value(static_cast<std::int64_t>(number)); }
    void value(double number);
    void null();
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
    void separate();
    void put(std::string_view bytes);
    files::Writer* file_ = nullptr;
    std::string buffer_;
    bool first_ = true;
};

}  // namespace brindlet
