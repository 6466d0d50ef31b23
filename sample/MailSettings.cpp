#include "sample/MailSettings.h"

#include "base/Files.h"
#include "base/Json.h"

namespace brindlet::sample {
namespace {

std::vector<std::string> strings(JsonReader& json) {
    std::vector<std::string> all;
    json.array([&] { all.push_back(json.string()); });
    return all;
}

void write(JsonWriter& json, std::string_view key, const std::vector<std::string>& all) {
    json.key(key);
    json.beginArray();
    for (const std::string& one : all) json.value(one);
    json.endArray();
}

template <class E>
E choice(JsonReader& json) {
    const auto value = fromRaw<E>(json.stringView());
    if (!value) json.fail();
    return value.value_or(E{});
}

MailSettings::Account readAccount(JsonReader& json) {
    MailSettings::Account account;
    json.object([&](std::string_view key) {
        if (key == "id")
            account.id = json.string();
        else if (key == "name")
            account.name = json.string();
        else if (key == "scheme")
            account.scheme = json.string();
        else if (key == "addresses")
            account.addresses = strings(json);
        else if (key == "enabled")
            account.enabled = json.boolean();
        else if (key == "gmail")
            account.gmail = json.boolean();
        else
            json.fail();
    });
    return account;
}

MailSettings::Gate readGate(JsonReader& json) {
    MailSettings::Gate gate;
    json.object([&](std::string_view key) {
        if (key == "fifo")
            gate.fifo = json.string();
        else if (key == "beforeEvent")
            gate.beforeEvent = json.integer();
        else if (key == "beforeMove")
            gate.beforeMove = json.integer();
        else
            json.fail();
    });
    return gate;
}

/// An unknown key fails the file: a switch that is misspelt would otherwise do nothing, in silence.
MailSettings::Behaviour readBehaviour(JsonReader& json) {
    MailSettings::Behaviour behaviour;
    json.object([&](std::string_view key) {
        if (key == "secondsPerEvent")
            behaviour.secondsPerEvent = json.number();
        else if (key == "pace")
            behaviour.pace = json.number();
        else if (key == "slowServer")
            behaviour.slowServer = json.number();
        else if (key == "undoesFreshFolder")
            behaviour.undoesFreshFolder = json.number();
        else if (key == "quitsAfterEvents")
            behaviour.quitsAfterEvents = json.integer();
        else if (key == "refusesAutomation")
            behaviour.refusesAutomation = json.boolean();
        else if (key == "refusesInterfaceScripting")
            behaviour.refusesInterfaceScripting = json.boolean();
        else if (key == "immovable")
            behaviour.immovable = strings(json);
        else if (key == "nameless")
            behaviour.nameless = strings(json);
        else if (key == "selection")
            behaviour.selection = choice<SelectionDrops>(json);
        else if (key == "moveMenu")
            behaviour.moveMenu = choice<MoveMenu>(json);
        else if (key == "menuMovesAtMost")
            behaviour.menuMovesAtMost = json.integer();
        else if (key == "viewers")
            behaviour.viewers = json.integer();
        else if (key == "gate")
            behaviour.gate = readGate(json);
        else
            json.fail();
    });
    return behaviour;
}

void write(JsonWriter& json, const MailSettings::Account& account) {
    json.beginObject();
    json.member("id", account.id);
    json.member("name", account.name);
    json.member("scheme", account.scheme);
    write(json, "addresses", account.addresses);
    json.member("enabled", account.enabled);
    json.member("gmail", account.gmail);
    json.endObject();
}

void write(JsonWriter& json, const MailSettings::Behaviour& behaviour) {
    json.beginObject();
    json.member("secondsPerEvent", behaviour.secondsPerEvent);
    json.member("pace", behaviour.pace);
    json.member("slowServer", behaviour.slowServer);
    json.member("undoesFreshFolder", behaviour.undoesFreshFolder);
    json.member("quitsAfterEvents", behaviour.quitsAfterEvents);
    json.member("refusesAutomation", behaviour.refusesAutomation);
    json.member("refusesInterfaceScripting", behaviour.refusesInterfaceScripting);
    write(json, "immovable", behaviour.immovable);
    write(json, "nameless", behaviour.nameless);
    json.member("selection", rawValue(behaviour.selection));
    json.member("moveMenu", rawValue(behaviour.moveMenu));
    json.member("menuMovesAtMost", behaviour.menuMovesAtMost);
    json.member("viewers", behaviour.viewers);
    json.key("gate");
    json.beginObject();
    json.member("fifo", behaviour.gate.fifo);
    json.member("beforeEvent", behaviour.gate.beforeEvent);
    json.member("beforeMove", behaviour.gate.beforeMove);
    json.endObject();
    json.endObject();
}

}  // namespace

std::string mailSettingsPath(const std::string& home) {
    return home + "/mail-program.json";
}

std::optional<MailSettings> readMailSettings(const std::string& home) {
    auto text = files::read(mailSettingsPath(home));
    if (!text) return std::nullopt;
    MailSettings settings;
    JsonReader json(std::move(*text));
    json.object([&](std::string_view key) {
        if (key == "accounts")
            json.array([&] { settings.accounts.push_back(readAccount(json)); });
        else if (key == "behaviour")
            settings.behaviour = readBehaviour(json);
        else
            json.fail();
    });
    if (!json.finish()) return std::nullopt;
    return settings;
}

bool writeMailSettings(const std::string& home, const MailSettings& settings) {
    JsonWriter json;
    json.beginObject();
    json.key("accounts");
    json.beginArray();
    for (const auto& account : settings.accounts) write(json, account);
    json.endArray();
    json.key("behaviour");
    write(json, settings.behaviour);
    json.endObject();
    return files::replace(mailSettingsPath(home), std::move(json).text());
}

}  // namespace brindlet::sample
