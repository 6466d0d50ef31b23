#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Value.h"

namespace brindlet::osascript {

/// What a `tell application` talks to. The interpreter calls `event` once for each request that a
/// script makes, however many objects the request goes through, and then the operations that
/// answer it. Words for classes are singular ("mailbox"); those of properties stand as in the
/// script.
class Application {
  public:
    virtual ~Application() = default;

    /// What error texts call it.
    virtual std::string name() const = 0;
    /// How an object reads in an error's text: `mailbox "Junk" of account "Work"`.
    virtual std::string describe(const Object& object) const = 0;

    /// One request arrives; an error when it is refused, or nobody is there any more.
    virtual std::optional<ScriptError> event() = 0;

    virtual Answer<std::vector<Object>> elements(const Object& container,
                                                 std::string_view kind) = 0;
    /// Those elements whose property equals the text, letter case aside.
    virtual Answer<std::vector<Object>> matching(const Object& container, std::string_view kind,
                                                 std::string_view property,
                                                 const std::string& text) = 0;
    /// The elements count from 1.
    virtual std::optional<Object> numbered(const Object& container, std::string_view kind,
                                           std::int64_t number) = 0;
    virtual std::optional<Object> named(const Object& container, std::string_view kind,
                                        const std::string& name) = 0;
    virtual std::optional<Object> withId(const Object& container, std::string_view kind,
                                         std::int64_t id) = 0;

    virtual Answer<Value> property(const Object& object, std::string_view property) = 0;
    virtual std::optional<ScriptError> setProperty(const Object& object, std::string_view property,
                                                   const Value& value) = 0;

    virtual std::optional<ScriptError> activate() = 0;
    virtual std::optional<ScriptError> click(const Object& object) = 0;
    virtual std::optional<ScriptError> move(const Object& object, const Object& destination) = 0;
    /// The name is that of the record after `with properties`; `at` is where, if the script says.
    virtual Answer<Value> make(std::string_view kind, const std::optional<std::string>& name,
                               const std::optional<Object>& at) = 0;
};

/// An application's error as scripts get it, with its name in front.
inline ScriptError errorOf(const Application& application, const std::string& text, int number) {
    return {application.name() + " got an error: " + text, number};
}

/// What surrounds a running script.
class Surroundings {
  public:
    virtual ~Surroundings() = default;
    /// The application of that name; null when there is none on this machine.
    virtual Application* application(std::string_view name) = 0;
    virtual void delay(std::int64_t seconds) = 0;
};

}  // namespace brindlet::osascript
