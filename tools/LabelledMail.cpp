#include "LabelledMail.h"

#include <array>
#include <utility>

#include "base/Json.h"

namespace brindlet::tools {
namespace {

/// One line's fields as they come; `fault` says what is wrong with the line, without its number.
struct Line {
    std::optional<std::string> id;
    std::optional<std::string> sender;
    std::optional<std::string> subject;
    std::optional<std::string> body;
    std::optional<std::string> category;
    bool ambiguous = false;
    std::string fault;

    explicit Line(std::string text) {
        JsonReader reader(std::move(text));
        reader.object([&](std::string_view key) { take(key, reader); });
        if (!reader.finish() && fault.empty()) fault = " is no JSON object.";
        for (const auto& [name, field] : fields())
            if (fault.empty() && !*field && name != "id") fault = " has no \"" + name + "\".";
        if (fault.empty() && !fromRaw<Category>(*category))
            fault = ": there is no category \"" + *category + "\".";
    }

  private:
    std::array<std::pair<std::string, std::optional<std::string>*>, 5> fields() {
        return {{{"id", &id},
                 {"from", &sender},
                 {"subject", &subject},
                 {"body", &body},
                 {"category", &category}}};
    }
    void take(std::string_view key, JsonReader& reader) {
        for (const auto& [name, field] : fields()) {
            if (key != name) continue;
            *field = reader.string();
            if (!reader.ok()) fault = ": \"" + name + "\" is no text.";
        }
        if (key != "ambiguous") return;
        ambiguous = reader.boolean();
        if (!reader.ok()) fault = ": \"ambiguous\" is neither true nor false.";
    }
};

}  // namespace

std::optional<std::vector<LabelledMail>> parseLabelledMail(std::string_view lines,
                                                           std::string& problem) {
    std::vector<LabelledMail> mails;
    for (int number = 1; !lines.empty(); ++number) {
        const std::string_view text = lines.substr(0, lines.find('\n'));
        lines.remove_prefix(text.size() == lines.size() ? text.size() : text.size() + 1);
        if (text.empty()) continue;
        Line line{std::string(text)};
        if (!line.fault.empty()) {
            problem = "Line " + std::to_string(number) + line.fault;
            return std::nullopt;
        }
        mails.push_back({std::move(line.id).value_or(std::to_string(number)),
                         std::move(*line.sender), std::move(*line.subject), std::move(*line.body),
                         *fromRaw<Category>(*line.category), line.ambiguous});
    }
    return mails;
}

}  // namespace brindlet::tools
