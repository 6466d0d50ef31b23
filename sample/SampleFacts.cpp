#include "sample/SampleFacts.h"

#include "base/Json.h"

namespace brindlet::sample {
namespace {

void writeFolder(JsonWriter& json, const SampleFacts::Folder& folder) {
    json.beginObject();
    json.member("id", folder.id);
    json.member("name", folder.name);
    json.member("url", folder.url);
    json.member("role", folder.role);
    json.member("count", folder.count);
    json.key("messages");
    json.beginArray();
    for (const std::int64_t message : folder.messages) json.value(message);
    json.endArray();
    json.endObject();
}

void writeAccount(JsonWriter& json, const SampleFacts::Account& account) {
    json.beginObject();
    json.member("id", account.id);
    json.member("name", account.name);
    json.member("address", account.address);
    json.key("folders");
    json.beginArray();
    for (const SampleFacts::Folder& folder : account.folders) writeFolder(json, folder);
    json.endArray();
    json.endObject();
}

void writeMessage(JsonWriter& json, const SampleFacts::Message& message) {
    json.beginObject();
    json.member("id", message.id);
    json.member("account", message.account);
    json.member("mailbox", message.mailbox);
    json.member("messageId", message.messageId);
    json.member("category", message.category);
    json.member("sender", message.sender);
    json.member("subject", message.subject);
    json.member("dateSent", message.dateSent);
    json.member("path", message.path);
    json.member("fileSize", message.fileSize);
    json.member("readable", message.readable);
    json.member("trouble", message.trouble);
    json.endObject();
}

void writeStrings(JsonWriter& json, std::string_view key, const auto& texts) {
    json.key(key);
    json.beginArray();
    for (const std::string& text : texts) json.value(text);
    json.endArray();
}

}  // namespace

bool writeFacts(const SampleFacts& facts, const std::string& path) {
    files::Writer file(path);
    JsonWriter json(file);
    json.beginObject();
    json.member("newest", facts.newest);
    json.key("accounts");
    json.beginArray();
    for (const SampleFacts::Account& account : facts.accounts) writeAccount(json, account);
    json.endArray();
    json.key("messages");
    json.beginArray();
    for (const SampleFacts::Message& message : facts.messages) writeMessage(json, message);
    json.endArray();
    writeStrings(json, "correspondents", facts.correspondents);
    writeStrings(json, "foreignMailboxes", facts.foreignMailboxes);
    json.endObject();
    json.flush();
    return file.finish();
}

}  // namespace brindlet::sample
