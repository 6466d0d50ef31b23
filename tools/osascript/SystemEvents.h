#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Application.h"
#include "MailApplication.h"

namespace brindlet::osascript {

/// What works the menus of other programs; here just the mail program's "Move to" menu, with a
/// section for each account: its name, its mailboxes' names, and a line that has none.
class SystemEvents : public Application {
  public:
    explicit SystemEvents(MailApplication& mail) : mail_(mail) {}

    std::string name() const override { return "System Events"; }
    std::string describe(const Object& object) const override;
    std::optional<ScriptError> event() override;
    Answer<std::vector<Object>> elements(const Object& container, std::string_view kind) override;
    Answer<std::vector<Object>> matching(const Object& container, std::string_view kind,
                                         std::string_view property,
                                         const std::string& text) override;
    std::optional<Object> numbered(const Object& container, std::string_view kind,
                                   std::int64_t number) override;
    std::optional<Object> named(const Object& container, std::string_view kind,
                                const std::string& name) override;
    std::optional<Object> withId(const Object& container, std::string_view kind,
                                 std::int64_t id) override;
    Answer<Value> property(const Object& object, std::string_view property) override;
    std::optional<ScriptError> setProperty(const Object& object, std::string_view property,
                                           const Value& value) override;
    std::optional<ScriptError> activate() override;
    std::optional<ScriptError> click(const Object& object) override;
    std::optional<ScriptError> move(const Object& object, const Object& destination) override;
    Answer<Value> make(std::string_view kind, const std::optional<std::string>& name,
                       const std::optional<Object>& at) override;

  private:
    struct Entry {
        /// None of a line between sections.
        std::optional<std::string> name;
        /// 0 when a click does nothing.
        std::int64_t mailbox = 0;
    };
    void readMenu();
    ScriptError notUnderstood(std::string_view command) const;

    MailApplication& mail_;
    std::vector<Entry> menu_;
};

}  // namespace brindlet::osascript
