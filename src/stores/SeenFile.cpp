#include "stores/SeenFile.h"

#include <charconv>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

#include "base/Files.h"
#include "base/Json.h"

namespace brindlet {
namespace {

/// The entries as JSON, put together from parts: a million entries share a few places, and those of
/// one scan their date too.
class EntryTexts {
  public:
    explicit EntryTexts(const SeenTable& table) {
        for (const auto& place : table.places()) tails_.push_back(tail(place));
    }

    /// Valid until the next call.
    std::string_view of(const SeenTable::Row& row) {
        if (when_ != row.when) {
            when_ = row.when;
            char digits[32];  // the shortest form of a double has at most 24 characters
            whenText_.assign(digits,
                             std::to_chars(digits, std::end(digits), row.when.sinceReference).ptr);
        }
        text_ = row.junk ? R"({"junk":true,"when":)" : R"({"junk":false,"when":)";
        text_ += whenText_;
        text_ += tails_[row.place];
        return text_;
    }

  private:
    /// What follows the date, to the end of the entry.
    static std::string tail(const SeenTable::PlaceInfo& place) {
        JsonWriter out;
        out.beginObject();
        out.member("account", place.account);
        out.member("folder", place.folder);
        out.endObject();
        auto object = std::move(out).text();
        if (object == "{}") return "}";
        object.front() = ',';
        return object;
    }

    std::vector<std::string> tails_;
    std::optional<Date> when_;
    std::string whenText_;
    std::string text_;
};

}  // namespace

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
    EntryTexts texts(table);
    out.beginObject();
    for (const SeenTable::Row& row : table.rows()) {
        out.key(row.key);
        out.json(texts.of(row));
    }
    out.endObject();
    out.flush();
    file.finish();
}

}  // namespace brindlet
