#include "sample/GmailSettings.h"

#include <algorithm>
#include <random>

#include "base/Files.h"
#include "base/Json.h"
#include "base/Text.h"

namespace brindlet::sample {
namespace {

/// An unknown key fails the file: a switch that is misspelt would otherwise do nothing, in silence.
GmailSettings::Faults readFaults(JsonReader& json) {
    GmailSettings::Faults faults;
    json.object([&](std::string_view key) {
        if (key == "delay") {
            faults.delay = json.number();
        } else if (key == "splitsEveryByte") {
            faults.splitsEveryByte = json.boolean();
        } else if (key == "closesAfterSent") {
            faults.closesAfterSent = json.integer();
        } else if (key == "closesAfterReceived") {
            faults.closesAfterReceived = json.integer();
        } else if (key == "closesAbruptly") {
            faults.closesAbruptly = json.boolean();
        } else if (key == "no") {
            faults.no = json.integer();
        } else if (key == "bad") {
            faults.bad = json.integer();
        } else if (key == "bye") {
            faults.bye = json.integer();
        } else if (key == "hugeLine") {
            faults.hugeLine = json.integer();
        } else if (key == "invalidUtf8") {
            faults.invalidUtf8 = json.boolean();
        } else if (key == "certificate") {
            const auto certificate = fromRaw<GmailCertificate>(json.stringView());
            if (!certificate) json.fail();
            faults.certificate = certificate.value_or(GmailCertificate::good);
        } else {
            json.fail();
        }
    });
    return faults;
}

void write(JsonWriter& json, const GmailSettings::Faults& faults) {
    json.beginObject();
    json.member("delay", faults.delay);
    json.member("splitsEveryByte", faults.splitsEveryByte);
    json.member("closesAfterSent", faults.closesAfterSent);
    json.member("closesAfterReceived", faults.closesAfterReceived);
    json.member("closesAbruptly", faults.closesAbruptly);
    json.member("no", faults.no);
    json.member("bad", faults.bad);
    json.member("bye", faults.bye);
    json.member("hugeLine", faults.hugeLine);
    json.member("invalidUtf8", faults.invalidUtf8);
    json.member("certificate", rawValue(faults.certificate));
    json.endObject();
}

}  // namespace

std::string gmailSettingsPath(const std::string& home) {
    return home + "/gmail-server.json";
}

std::optional<GmailSettings> readGmailSettings(const std::string& home) {
    auto text = files::read(gmailSettingsPath(home));
    if (!text) return std::nullopt;
    GmailSettings settings;
    JsonReader json(std::move(*text));
    json.object([&](std::string_view key) {
        if (key == "passwords")
            json.object([&](std::string_view address) {
                settings.passwords.insert_or_assign(std::string(address), json.string());
            });
        else if (key == "faults")
            settings.faults = readFaults(json);
        else
            json.fail();
    });
    if (!json.finish()) return std::nullopt;
    return settings;
}

bool writeGmailSettings(const std::string& home, const GmailSettings& settings) {
    JsonWriter json;
    json.beginObject();
    json.key("passwords");
    json.beginObject();
    for (const auto& [address, password] : settings.passwords) json.member(address, password);
    json.endObject();
    json.key("faults");
    write(json, settings.faults);
    json.endObject();
    return files::replace(gmailSettingsPath(home), std::move(json).text());
}

std::string makeAppPassword() {
    std::random_device chance;
    std::uniform_int_distribution<int> letter(0, 25);
    std::string password;
    for (int i = 0; i < 16; ++i) {
        if (i > 0 && i % 4 == 0) password += ' ';
        password += static_cast<char>('a' + letter(chance));
    }
    return password;
}

bool isAppPassword(const GmailSettings& settings, const std::string& address,
                   const std::string& password) {
    const std::string given = withoutParts(password, " ");
    return !given.empty() &&
           std::any_of(settings.passwords.begin(), settings.passwords.end(), [&](const auto& own) {
               return lowercased(own.first) == lowercased(address) &&
                      withoutParts(own.second, " ") == given;
           });
}

}  // namespace brindlet::sample
