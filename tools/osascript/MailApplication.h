#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Application.h"
#include "sample/SimulatedMail.h"

namespace brindlet::osascript {

/// The scripting face of the simulated mail program, with what belongs to its windows: viewers and
/// what is selected in them. One run's; the mail must outlive it.
class MailApplication : public Application {
  public:
    MailApplication(sample::SimulatedMail& mail, std::string home);

    std::string name() const override { return "Mail"; }
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
    std::optional<ScriptError> activate() override { return std::nullopt; }
    std::optional<ScriptError> click(const Object& object) override;
    std::optional<ScriptError> move(const Object& object, const Object& destination) override;
    Answer<Value> make(std::string_view kind, const std::optional<std::string>& name,
                       const std::optional<Object>& at) override;

    sample::SimulatedMail& mail() { return mail_; }
    bool hasQuit() const { return quit_; }
    /// What a click on a mailbox in the Move to menu does.
    void moveSelectionTo(std::int64_t mailbox);

  private:
    const sample::MailSettings::Behaviour& behaviour() const { return mail_.settings().behaviour; }
    Object accountObject(std::size_t number);
    Object mailboxObject(const sample::SimulatedMail::Mailbox& mailbox);
    Object messageObject(std::int64_t row, std::int64_t mailbox);
    bool isImmovable(std::int64_t message);
    ScriptError failed() const;
    void quit();
    void select(const std::vector<Value>& messages);

    sample::SimulatedMail& mail_;
    const std::string home_;
    std::int64_t events_ = 0;
    std::int64_t moves_ = 0;
    bool quit_ = false;
    std::int64_t viewers_;
    std::vector<std::int64_t> shownMailboxes_;
    std::vector<Object> selection_;
    bool dropped_ = false;
};

}  // namespace brindlet::osascript
