#include "MailApplication.h"

#include <algorithm>
#include <limits>

#include "Gate.h"
#include "base/Text.h"
#include "sample/MailPresence.h"

namespace brindlet::osascript {
namespace {

constexpr std::string_view account = "account";
constexpr std::string_view mailbox = "mailbox";
constexpr std::string_view message = "message";
constexpr std::string_view viewer = "message viewer";

std::size_t accountNumber(const Object& object) {
    return static_cast<std::size_t>(object.id);
}

template <class T>
bool holds(const std::vector<T>& all, const T& one) {
    return std::find(all.begin(), all.end(), one) != all.end();
}

}  // namespace

MailApplication::MailApplication(sample::SimulatedMail& mail, std::string home)
    : mail_(mail), home_(std::move(home)), viewers_(mail.settings().behaviour.viewers) {}

Object MailApplication::accountObject(std::size_t number) {
    return {this, account, static_cast<std::int64_t>(number), 0};
}

Object MailApplication::mailboxObject(const sample::SimulatedMail::Mailbox& box) {
    return {this, mailbox, box.row, static_cast<std::int64_t>(box.account)};
}

Object MailApplication::messageObject(std::int64_t row, std::int64_t box) {
    return {this, message, row, box};
}

std::string MailApplication::describe(const Object& object) const {
    if (object.kind == account)
        return "account \"" + mail_.account(accountNumber(object)).name + '"';
    if (object.kind == mailbox) {
        const auto box = mail_.mailbox(object.id);
        const std::string path = box ? box->path : std::to_string(object.id);
        return "mailbox \"" + path + "\" of account \"" +
               mail_.account(static_cast<std::size_t>(object.container)).name + '"';
    }
    if (object.kind == message) return "message id " + std::to_string(object.id);
    if (object.kind == viewer) return "message viewer " + std::to_string(object.id);
    return "application \"Mail\"";
}

std::optional<ScriptError> MailApplication::event() {
    if (behaviour().refusesAutomation)
        return ScriptError{"Not authorized to send Apple events to Mail.", errors::notAuthorized};
    const auto& most = behaviour().quitsAfterEvents;
    if (events_ == 0) sample::launchMail(home_);
    if (most == 0) quit();
    if (quit_) return errorOf(*this, "Connection is invalid.", errors::connectionInvalid);
    ++events_;
    const auto& gate = behaviour().gate;
    if (gate.beforeEvent == events_) waitAtGate(gate.fifo);
    mail_.advance(behaviour().secondsPerEvent);
    if (most == events_) quit();
    return std::nullopt;
}

void MailApplication::quit() {
    quit_ = true;
    sample::quitMail(home_);
}

ScriptError MailApplication::failed() const {
    return errorOf(*this, "AppleEvent handler failed.", errors::handlerFailed);
}

Answer<std::vector<Object>> MailApplication::elements(const Object& container,
                                                      std::string_view kind) {
    std::vector<Object> all;
    if (kind == account && container.kind.empty()) {
        for (std::size_t i = 0; i < mail_.settings().accounts.size(); ++i)
            all.push_back(accountObject(i));
    } else if (kind == viewer && container.kind.empty()) {
        for (std::int64_t i = 1; i <= viewers_; ++i) all.push_back({this, viewer, i, 0});
    } else if (kind == mailbox && container.kind == account) {
        for (const auto& box : mail_.mailboxes(accountNumber(container)))
            all.push_back(mailboxObject(box));
    } else if (kind == message && container.kind == mailbox) {
        for (const std::int64_t row : mail_.index().messages(container.id))
            all.push_back(messageObject(row, container.id));
    } else {
        return errorOf(*this, cannotGet("every " + std::string(kind)).text, errors::cannotGet);
    }
    return all;
}

Answer<std::vector<Object>> MailApplication::matching(const Object& container,
                                                      std::string_view kind,
                                                      std::string_view property,
                                                      const std::string& text) {
    if (kind != message || container.kind != mailbox || property != "message id")
        return errorOf(*this,
                       cannotGet("every " + std::string(kind) + " whose " + std::string(property) +
                                 " is " + described(Value::text(text)))
                           .text,
                       errors::cannotGet);
    std::vector<Object> found;
    for (const std::int64_t row : mail_.index().messagesWithId(container.id, text))
        found.push_back(messageObject(row, container.id));
    return found;
}

std::optional<Object> MailApplication::numbered(const Object& container, std::string_view kind,
                                                std::int64_t number) {
    const auto position = static_cast<std::size_t>(number - 1);
    if (kind == message && container.kind == mailbox) {
        const auto& rows = mail_.index().messages(container.id);
        if (number < 1 || position >= rows.size()) return std::nullopt;
        return messageObject(rows[position], container.id);
    }
    const auto answer = elements(container, kind);
    const auto* const all = std::get_if<std::vector<Object>>(&answer);
    if (!all || number < 1 || position >= all->size()) return std::nullopt;
    return (*all)[position];
}

std::optional<Object> MailApplication::named(const Object& container, std::string_view kind,
                                             const std::string& name) {
    if (kind == mailbox && container.kind == account) {
        const auto box = mail_.mailboxAt(accountNumber(container), name);
        return box ? std::optional(mailboxObject(*box)) : std::nullopt;
    }
    if (kind != account || !container.kind.empty()) return std::nullopt;
    const auto& accounts = mail_.settings().accounts;
    const auto found = std::find_if(accounts.begin(), accounts.end(), [&](const auto& each) {
        return lowercased(each.name) == lowercased(name);
    });
    if (found == accounts.end()) return std::nullopt;
    return accountObject(static_cast<std::size_t>(found - accounts.begin()));
}

std::optional<Object> MailApplication::withId(const Object& container, std::string_view kind,
                                              std::int64_t id) {
    if (kind != message || container.kind != mailbox || !mail_.index().lists(container.id, id))
        return std::nullopt;
    return messageObject(id, container.id);
}

Answer<Value> MailApplication::property(const Object& object, std::string_view property) {
    if (object.kind == account) {
        const auto& owner = mail_.account(accountNumber(object));
        if (property == "name") return Value::text(owner.name);
        if (property == "enabled") return Value(owner.enabled);
        if (property == "email addresses") {
            std::vector<Value> addresses;
            for (const std::string& address : owner.addresses)
                addresses.push_back(Value::text(address));
            return Value::list(std::move(addresses));
        }
    } else if (object.kind == mailbox && property == "name") {
        const auto box = mail_.mailbox(object.id);
        if (!box || holds(behaviour().nameless, box->path)) return failed();
        return Value::text(sample::leafName(box->path));
    } else if (object.kind == message && property == "message id") {
        if (mail_.index().filedIn(object.id) != 0) {
            auto id = mail_.index().messageId(object.id);
            return id ? Value::text(std::move(*id)) : Value();
        }
    } else if (object.kind == viewer && property == "selected messages") {
        return Value::list({selection_.begin(), selection_.end()});
    }
    return errorOf(*this, cannotGet(std::string(property) + " of " + describe(object)).text,
                   errors::cannotGet);
}

std::optional<ScriptError> MailApplication::setProperty(const Object& object,
                                                        std::string_view property,
                                                        const Value& value) {
    const auto* const list = value.as<List>();
    if (object.kind == viewer && property == "selected messages" && list) {
        select(**list);
        return std::nullopt;
    }
    if (object.kind == viewer && property == "selected mailboxes" && list) {
        shownMailboxes_.clear();
        selection_.clear();
        for (const Value& item : **list)
            if (const auto* box = item.as<Object>(); box && box->kind == mailbox)
                shownMailboxes_.push_back(box->id);
        return std::nullopt;
    }
    return errorOf(*this, "Can’t set " + std::string(property) + " of " + describe(object) + '.',
                   errors::cannotSet);
}

void MailApplication::select(const std::vector<Value>& messages) {
    selection_.clear();
    const auto drops = behaviour().selection;
    const bool drop = drops == sample::SelectionDrops::always ||
                      (drops == sample::SelectionDrops::once && !dropped_);
    dropped_ = true;
    if (drop) return;
    // A viewer selects only what it shows.
    for (const Value& value : messages)
        if (const auto* each = value.as<Object>();
            each && each->kind == message && holds(shownMailboxes_, each->container))
            selection_.push_back(*each);
}

void MailApplication::moveSelectionTo(std::int64_t box) {
    std::int64_t left =
        behaviour().menuMovesAtMost.value_or(std::numeric_limits<std::int64_t>::max());
    for (const Object& each : selection_) {
        if (left == 0) break;
        if (isImmovable(each.id)) continue;
        if (mail_.move(each.id, each.container, box, sample::SimulatedMail::MovedBy::person))
            --left;
    }
    selection_.clear();
}

bool MailApplication::isImmovable(std::int64_t row) {
    const auto id = mail_.index().messageId(row);
    return id && holds(behaviour().immovable, *id);
}

std::optional<ScriptError> MailApplication::click(const Object& object) {
    return errorOf(*this, describe(object) + " doesn’t understand the “click” message.",
                   errors::notUnderstood);
}

std::optional<ScriptError> MailApplication::move(const Object& object, const Object& destination) {
    if (object.kind != message || destination.kind != mailbox) return failed();
    ++moves_;
    const auto& gate = behaviour().gate;
    if (gate.beforeMove == moves_) waitAtGate(gate.fifo);
    const bool moved =
        !isImmovable(object.id) && mail_.move(object.id, object.container, destination.id,
                                              sample::SimulatedMail::MovedBy::script);
    return moved ? std::nullopt : std::optional(failed());
}

Answer<Value> MailApplication::make(std::string_view kind, const std::optional<std::string>& name,
                                    const std::optional<Object>& at) {
    if (kind == viewer) return Value(Object{this, viewer, ++viewers_, 0});
    if (kind != mailbox || !name || !at || at->kind != account) return failed();
    const auto made = mail_.makeMailbox(accountNumber(*at), *name);
    if (!made) return failed();
    return Value(mailboxObject(*made));
}

}  // namespace brindlet::osascript
