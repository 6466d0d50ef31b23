#include "SystemEvents.h"

namespace brindlet::osascript {
namespace {

// From the outside in; the identifier of an entry is its number in the menu.
constexpr std::string_view process = "process";
constexpr std::string_view menuBar = "menu bar";
constexpr std::string_view menu = "menu";
constexpr std::string_view menuItem = "menu item";
constexpr std::int64_t messageMenu = 1;
constexpr std::int64_t moveToMenu = 2;
constexpr std::int64_t moveToItem = -1;

}  // namespace

std::string SystemEvents::describe(const Object& object) const {
    if (object.kind == process) return "process \"Mail\"";
    if (object.kind == menu) return object.id == messageMenu ? "menu \"Message\"" : "menu 1";
    if (object.kind == menuItem && object.id == moveToItem) return "menu item \"Move to\"";
    if (object.kind == menuBar || object.kind == menuItem)
        return std::string(object.kind) + ' ' + std::to_string(object.id);
    return "application \"System Events\"";
}

std::optional<ScriptError> SystemEvents::event() {
    const auto& behaviour = mail_.mail().settings().behaviour;
    if (behaviour.refusesInterfaceScripting)
        return errorOf(*this, "osascript is not allowed assistive access.",
                       errors::assistiveAccess);
    mail_.mail().advance(behaviour.secondsPerEvent);
    return std::nullopt;
}

void SystemEvents::readMenu() {
    menu_.clear();
    auto& mail = mail_.mail();
    const sample::MoveMenu shows = mail.settings().behaviour.moveMenu;
    for (std::size_t i = 0; i < mail.settings().accounts.size(); ++i) {
        if (!mail.account(i).enabled) continue;
        if (!menu_.empty()) menu_.push_back({});
        menu_.push_back({mail.account(i).name, 0});
        if (shows == sample::MoveMenu::entryMissing) continue;
        for (const auto& mailbox : mail.mailboxes(i))
            menu_.push_back({sample::leafName(mailbox.path), mailbox.row});
    }
}

Answer<std::vector<Object>> SystemEvents::elements(const Object& container, std::string_view kind) {
    if (container.kind != menu || container.id != moveToMenu || kind != menuItem)
        return errorOf(*this, cannotGet("every " + std::string(kind)).text, errors::cannotGet);
    readMenu();
    std::vector<Object> entries;
    for (std::size_t i = 0; i < menu_.size(); ++i)
        entries.push_back({this, menuItem, static_cast<std::int64_t>(i), 0});
    return entries;
}

Answer<std::vector<Object>> SystemEvents::matching(const Object&, std::string_view kind,
                                                   std::string_view property, const std::string&) {
    return errorOf(*this,
                   cannotGet("every " + std::string(kind) + " whose " + std::string(property)).text,
                   errors::cannotGet);
}

std::optional<Object> SystemEvents::numbered(const Object& container, std::string_view kind,
                                             std::int64_t number) {
    if (number != 1) return std::nullopt;
    if (container.kind == process && kind == menuBar) return Object{this, menuBar, 1, 0};
    if (container.kind == menuItem && container.id == moveToItem && kind == menu)
        return Object{this, menu, moveToMenu, 0};
    return std::nullopt;
}

std::optional<Object> SystemEvents::named(const Object& container, std::string_view kind,
                                          const std::string& name) {
    if (container.kind.empty() && kind == process && name == "Mail" && !mail_.hasQuit())
        return Object{this, process, 1, 0};
    if (container.kind == menuBar && kind == menu && name == "Message")
        return Object{this, menu, messageMenu, 0};
    if (container.kind == menu && container.id == messageMenu && kind == menuItem &&
        name == "Move to")
        return Object{this, menuItem, moveToItem, 0};
    return std::nullopt;
}

std::optional<Object> SystemEvents::withId(const Object&, std::string_view, std::int64_t) {
    return std::nullopt;
}

Answer<Value> SystemEvents::property(const Object& object, std::string_view property) {
    if (object.kind == menuItem && object.id >= 0) {
        const Entry& entry = menu_[static_cast<std::size_t>(object.id)];
        if (property == "name") return entry.name ? Value::text(*entry.name) : Value();
        if (property == "enabled")
            return Value(entry.mailbox != 0 &&
                         mail_.mail().settings().behaviour.moveMenu == sample::MoveMenu::open);
    }
    return errorOf(*this, cannotGet(std::string(property) + " of " + describe(object)).text,
                   errors::cannotGet);
}

std::optional<ScriptError> SystemEvents::setProperty(const Object& object,
                                                     std::string_view property, const Value&) {
    return errorOf(*this, "Can’t set " + std::string(property) + " of " + describe(object) + '.',
                   errors::cannotSet);
}

ScriptError SystemEvents::notUnderstood(std::string_view command) const {
    return errorOf(*this, "This doesn’t understand the “" + std::string(command) + "” message.",
                   errors::notUnderstood);
}

std::optional<ScriptError> SystemEvents::activate() {
    return notUnderstood("activate");
}

std::optional<ScriptError> SystemEvents::click(const Object& object) {
    if (object.kind != menuItem || object.id < 0) return notUnderstood("click");
    mail_.moveSelectionTo(menu_[static_cast<std::size_t>(object.id)].mailbox);
    return std::nullopt;
}

std::optional<ScriptError> SystemEvents::move(const Object&, const Object&) {
    return notUnderstood("move");
}

Answer<Value> SystemEvents::make(std::string_view, const std::optional<std::string>&,
                                 const std::optional<Object>&) {
    return notUnderstood("make");
}

}  // namespace brindlet::osascript
