#include "stores/PendingMove.h"

#include <optional>
#include <utility>

#include "base/Json.h"

namespace brindlet {
namespace {

PendingMove::Item readItem(JsonReader& in) {
    std::optional<std::int64_t> id;
    std::optional<std::string> messageID;
    in.object([&](std::string_view key) {
        if (key == "id")
            id = in.integer();
        else if (key == "messageID")
            messageID = in.string();
    });
    if (id && messageID) return {*id, *std::move(messageID)};
    in.fail();
    return {};
}

}  // namespace

void PendingMove::write(JsonWriter& out) const {
    out.beginObject();
    out.member("account", account);
    out.member("source", source);
    out.member("destination", destination);
    out.member("folderLabel", folderLabel);
    out.key("remaining");
    out.beginArray();
    for (const Item& item : remaining) {
        out.beginObject();
        out.member("id", item.id);
        out.member("messageID", item.messageID);
        out.endObject();
    }
    out.endArray();
    out.member("done", done);
    out.member("started", started.sinceReference);
    out.endObject();
}

PendingMove PendingMove::read(JsonReader& in) {
    std::optional<std::string> account, source, destination, folderLabel;
    std::optional<std::vector<Item>> remaining;
    std::optional<std::int64_t> done;
    std::optional<double> started;
    in.object([&](std::string_view key) {
        if (key == "account") {
            account = in.string();
        } else if (key == "source") {
            source = in.string();
        } else if (key == "destination") {
            destination = in.string();
        } else if (key == "folderLabel") {
            folderLabel = in.string();
        } else if (key == "remaining") {
            remaining.emplace();
            in.array([&] { remaining->push_back(readItem(in)); });
        } else if (key == "done") {
            done = in.integer();
        } else if (key == "started") {
            started = in.number();
        }
    });
    if (!account || !source || !destination || !folderLabel || !remaining || !done || !started) {
        in.fail();
        return {};
    }
    return {*std::move(account),     *std::move(source),    *std::move(destination),
            *std::move(folderLabel), *std::move(remaining), *done,
            Date{*started}};
}

}  // namespace brindlet
