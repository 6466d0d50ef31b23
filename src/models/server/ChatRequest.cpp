#include "models/server/ChatRequest.h"

#include "base/Json.h"
#include "base/Utf8.h"

namespace brindlet {
namespace {

void writeProperty(JsonWriter& out, const ModelSchema::Property& property) {
    out.key(property.name);
    out.beginObject();
    out.member("type", "string");
    if (!property.typeName.empty()) out.member("title", property.typeName);
    out.member("description", property.typeDescription.empty()
                                  ? property.description
                                  : property.description + ": " + property.typeDescription);
    if (!property.anyOf.empty()) {
        out.key("enum");
        out.beginArray();
        for (const auto& word : property.anyOf) out.value(word);
        out.endArray();
    }
    out.endObject();
}

/// As JSON Schema puts it: an object with these properties, all of them and no others.
void writeSchema(JsonWriter& out, const ModelSchema& schema) {
    out.beginObject();
    out.member("type", "object");
    out.member("description", schema.description);
    out.key("properties");
    out.beginObject();
    for (const auto& property : schema.properties) writeProperty(out, property);
    out.endObject();
    out.key("required");
    out.beginArray();
    for (const auto& property : schema.properties) out.value(property.name);
    out.endArray();
    out.member("additionalProperties", false);
    out.endObject();
}

void writeResponseFormat(JsonWriter& out, const ModelSchema& schema) {
    out.beginObject();
    out.member("type", "json_schema");
    out.key("json_schema");
    out.beginObject();
    out.member("name", schema.name);
    out.member("description", schema.description);
    out.member("strict", true);
    out.key("schema");
    writeSchema(out, schema);
    out.endObject();
    out.endObject();
}

void writeMessage(JsonWriter& out, const char* role, const std::string& content) {
    out.beginObject();
    out.member("role", role);
    // Mail may hold any bytes, JSON only characters.
    out.member("content", repairedUtf8(content));
    out.endObject();
}

}  // namespace

std::string chatRequest(const std::string& model, const std::string& instructions,
                        const ModelSchema& schema, const std::string& prompt,
                        const ModelOptions& options) {
    JsonWriter out;
    out.beginObject();
    if (!model.empty()) out.member("model", repairedUtf8(model));
    // Greedy has no word of its own in this interface; at temperature 0 servers take the likeliest
    // token each time. The same mail then gets the same category in every scan, and probes of like
    // mail do not disagree by chance.
    if (options.greedy) out.member("temperature", 0);
    out.member("stream", false);
    // The schema goes here alone, whatever the options say: it binds the answer, and whether the
    // model also reads it is up to the server. The system's message stays what it is.
    out.key("response_format");
    writeResponseFormat(out, schema);
    out.key("messages");
    out.beginArray();
    writeMessage(out, "system", instructions);
    writeMessage(out, "user", prompt);
    out.endArray();
    out.endObject();
    return std::move(out).text();
}

}  // namespace brindlet
