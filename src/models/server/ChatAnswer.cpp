#include "models/server/ChatAnswer.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

#include "base/Json.h"
#include "base/Text.h"

namespace brindlet {
namespace {

/// Far more than the few words that any schema asks for.
constexpr std::size_t mostPropertyBytes = 1024;

struct Choice {
    std::optional<std::string> content;
    bool refused = false;
};

void readMessage(JsonReader& json, Choice& choice) {
    json.object([&](std::string_view key) {
        if (key == "content") {
            if (!json.takeNull()) choice.content = json.string();
        } else if (key == "refusal") {
            if (!json.takeNull() && !json.stringView().empty()) choice.refused = true;
        }
    });
}

void readChoice(JsonReader& json, Choice& choice) {
    json.object([&](std::string_view key) {
        if (key == "message") {
            readMessage(json, choice);
        } else if (key == "finish_reason" && !json.takeNull()) {
            // Servers have many words for a good end, but these two for a bad one.
            const auto reason = json.stringView();
            if (reason == "length" || reason == "content_filter") choice.refused = true;
        }
    });
}

/// The text of the first choice.
std::optional<std::string> answeredText(std::string body) {
    JsonReader json(std::move(body));
    Choice choice;
    json.object([&](std::string_view key) {
        if (key != "choices") return;
        bool first = true;
        json.array([&] {
            if (std::exchange(first, false)) readChoice(json, choice);
        });
    });
    if (!json.finish() || choice.refused) return std::nullopt;
    return std::move(choice.content);
}

bool allows(const ModelSchema::Property& property, std::string_view value) {
    if (value.size() > mostPropertyBytes) return false;
    return property.anyOf.empty() ||
           std::ranges::find(property.anyOf, trimBlanksAndNewlines(value)) != property.anyOf.end();
}

}  // namespace

std::optional<LanguageModel::Answer> chatAnswer(std::string body, const ModelSchema& schema) {
    auto text = answeredText(std::move(body));
    if (!text) return std::nullopt;
    JsonReader json(std::move(*text));
    LanguageModel::Answer answer;
    json.object([&](std::string_view key) {
        const auto property =
            std::ranges::find(schema.properties, key, &ModelSchema::Property::name);
        if (property == schema.properties.end()) return json.fail();
        const auto value = json.stringView();
        if (!allows(*property, value) || !answer.emplace(key, value).second) json.fail();
    });
    if (!json.finish() || answer.size() != schema.properties.size()) return std::nullopt;
    return answer;
}

}  // namespace brindlet
