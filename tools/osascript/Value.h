#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// What a running script holds in its variables.
namespace brindlet::osascript {

class Application;
struct Value;

/// `missing value`.
struct Missing {
    friend bool operator==(Missing, Missing) = default;
};

/// A text, shared since scripts hand a whole file's content about.
struct Text {
    std::shared_ptr<const std::string> shared;

    const std::string& get() const { return *shared; }
};

/// Lists are shared: `set end of` changes what every variable sees that holds the same list.
using List = std::shared_ptr<std::vector<Value>>;

using Record = std::shared_ptr<std::map<std::string, Value, std::less<>>>;

/// What the variable of a `repeat with … in` holds: not the item but the place where it stands.
/// All operations look through it, except the comparison for equality.
struct ItemReference {
    List list;
    std::size_t index = 0;
};

/// The name of a class, as `class of` gives it.
struct ClassName {
    std::string name;
};

/// `POSIX file "…"`.
struct FileName {
    std::string path;
};

/// Something of an application's. Only the application knows what the two numbers mean; objects
/// are the same when all fields are.
struct Object {
    Application* application = nullptr;
    /// The word for its class; points to a literal. Empty for the application itself.
    std::string_view kind;
    std::int64_t id = 0;
    std::int64_t container = 0;

    friend bool operator==(const Object&, const Object&) = default;
};

struct Value {
    std::variant<Missing, bool, std::int64_t, Text, List, Record, ItemReference, ClassName,
                 FileName, Object>
        is;

    Value() = default;
    explicit Value(bool flag) : is(flag) {}
    explicit Value(std::int64_t number) : is(number) {}
    explicit Value(Object object) : is(object) {}
    explicit Value(ItemReference reference) : is(std::move(reference)) {}
    explicit Value(ClassName name) : is(std::move(name)) {}
    explicit Value(FileName name) : is(std::move(name)) {}
    static Value text(std::string text) {
        Value value;
        value.is = Text{std::make_shared<const std::string>(std::move(text))};
        return value;
    }
    static Value list(std::vector<Value> items) {
        Value value;
        value.is = std::make_shared<std::vector<Value>>(std::move(items));
        return value;
    }
    static Value record(std::map<std::string, Value, std::less<>> fields) {
        Value value;
        value.is = std::make_shared<std::map<std::string, Value, std::less<>>>(std::move(fields));
        return value;
    }

    /// The value of that kind, or null.
    template <class T>
    const T* as() const {
        return std::get_if<T>(&is);
    }
};

/// What stands where a reference points; any other value itself. A place that is gone from its list
/// holds `missing value`.
Value contents(const Value& value);

/// An error as scripts raise and catch it.
struct ScriptError {
    std::string text;
    int number = 0;
};

/// The numbers that the mail program's and the language's own errors carry.
namespace errors {
inline constexpr int endOfFile = -39;
inline constexpr int fileNotOpen = -38;
inline constexpr int fileNotFound = -43;
inline constexpr int openForWriting = -49;
inline constexpr int cannotOpen = -54;
inline constexpr int notRunning = -600;
inline constexpr int connectionInvalid = -609;
inline constexpr int cannotCoerce = -1700;
inline constexpr int notUnderstood = -1708;
inline constexpr int assistiveAccess = -1719;
inline constexpr int cannotGet = -1728;
inline constexpr int notAuthorized = -1743;
inline constexpr int raisedByScript = -2700;
inline constexpr int divisionByZero = -2701;
inline constexpr int numberTooLarge = -2702;
inline constexpr int syntax = -2741;
inline constexpr int notDefined = -2753;
inline constexpr int handlerFailed = -10000;
inline constexpr int cannotSet = -10006;
}  // namespace errors

/// A result, or why there is none.
template <class T>
using Answer = std::variant<T, ScriptError>;

/// How a value reads in an error's text: texts in quotes, objects by their names.
std::string described(const Value& value);
ScriptError cannotGet(const std::string& what);
ScriptError cannotMake(const Value& value, std::string_view type);

}  // namespace brindlet::osascript
