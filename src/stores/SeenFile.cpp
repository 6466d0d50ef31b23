#include "stores/SeenFile.h"

#include <optional>
#include <utility>

#include "base/Files.h"
#include "base/Json.h"

namespace brindlet {

std::shared_ptr<SeenTable> decodedSeen(std::string text) {
    constexpr std::size_t usualEntryLength = 128;
    auto table = std::make_shared<SeenTable>();
    table->reserve(text.size() / usualEntryLength);
    JsonReader in(std::move(text));
    const auto optionalText = [&]() -> std::optional<std::string_view> {
        if (in.takeNull()) return std::nullopt;
        return in.stringView();
    };
    in.object([&](std::string_view messageID) {
        std::optional<bool> junk;
        std::optional<double> when;
        std::optional<std::string_view> account, folder;
        in.object([&](std::string_view key) {
            if (key == "junk")
                junk = in.boolean();
            else if (key == "when")
                when = in.number();
            else if (key == "account")
                account = optionalText();
            else if (key == "folder")
                folder = optionalText();
        });
        if (!junk || !when)
            in.fail();
        else if (!messageID.empty())
            table->set(messageID, *junk, {*when}, table->place(account, folder));
    });
    if (!in.finish()) return nullptr;
    return table;
}

void writeSeen(const SeenTable& table, const std::string& path) {
    files::Writer file(path);
    JsonWriter out(file);
    out.beginObject();
    for (const SeenTable::Row& row : table.rows()) {
        const auto& place = table.places()[row.place];
        out.key(row.key);
        out.beginObject();
        out.member("junk", row.junk);
        out.member("when", row.when.sinceReference);
        out.member("account", place.account);
        out.member("folder", place.folder);
        out.endObject();
    }
    out.endObject();
    out.flush();
    file.finish();
}

}  // namespace brindlet
