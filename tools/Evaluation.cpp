#include "Evaluation.h"

#include <numeric>
#include <utility>

#include "base/Json.h"

namespace brindlet::tools {
namespace {

constexpr auto categories = allCases<Category>();

std::optional<LabelledMail> parseLine(std::string line) {
    LabelledMail mail;
    std::optional<Category> category;
    JsonReader reader(std::move(line));
    reader.object([&](std::string_view key) {
        if (key == "from") mail.sender = reader.string();
        if (key == "subject") mail.subject = reader.string();
        if (key == "body") mail.body = reader.string();
        if (key == "category") category = fromRaw<Category>(reader.stringView());
        if (key == "ambiguous") mail.ambiguous = reader.boolean();
    });
    if (!reader.finish() || !category) return std::nullopt;
    mail.category = *category;
    return mail;
}

double share(int part, int whole) {
    return whole == 0 ? 0 : static_cast<double>(part) / static_cast<double>(whole);
}

}  // namespace

std::optional<std::vector<LabelledMail>> parseLabelledMail(std::string_view lines,
                                                           std::string& problem) {
    std::vector<LabelledMail> mails;
    for (int number = 1; !lines.empty(); ++number) {
        const std::string_view line = lines.substr(0, lines.find('\n'));
        lines.remove_prefix(line.size() == lines.size() ? line.size() : line.size() + 1);
        if (line.empty()) continue;
        auto mail = parseLine(std::string(line));
        if (!mail) {
            problem = "Line " + std::to_string(number) + " is no labelled message.";
            return std::nullopt;
        }
        mails.push_back(std::move(*mail));
    }
    return mails;
}

void Evaluation::add(Category right, Category given) {
    ++counts_[static_cast<std::size_t>(right)][static_cast<std::size_t>(given)];
}

int Evaluation::of(Category right, Category given) const {
    return counts_[static_cast<std::size_t>(right)][static_cast<std::size_t>(given)];
}

int Evaluation::rows() const {
    int sum = 0;
    for (const auto& row : counts_) sum = std::accumulate(row.begin(), row.end(), sum);
    return sum;
}

double Evaluation::accuracy() const {
    int right = 0;
    for (const auto category : categories) right += of(category, category);
    return share(right, rows());
}

double Evaluation::precision(Category category) const {
    int given = 0;
    for (const auto right : categories) given += of(right, category);
    return share(of(category, category), given);
}

double Evaluation::recall(Category category) const {
    const auto& row = counts_[static_cast<std::size_t>(category)];
    return share(of(category, category), std::accumulate(row.begin(), row.end(), 0));
}

double Evaluation::macroF1() const {
    double sum = 0;
    for (const auto category : categories) {
        const double both = precision(category) + recall(category);
        if (both > 0) sum += 2 * precision(category) * recall(category) / both;
    }
    return sum / static_cast<double>(count);
}

std::string Evaluation::json() const {
    JsonWriter writer;
    writer.beginObject();
    writer.member("rows", rows());
    writer.member("accuracy", accuracy());
    writer.member("macroF1", macroF1());
    writer.key("categories");
    writer.beginObject();
    for (const auto right : categories) {
        writer.key(rawValue(right));
        writer.beginObject();
        writer.member("precision", precision(right));
        writer.member("recall", recall(right));
        writer.key("answers");
        writer.beginObject();
        for (const auto given : categories)
            if (of(right, given) > 0) writer.member(rawValue(given), of(right, given));
        writer.endObject();
        writer.endObject();
    }
    writer.endObject();
    writer.endObject();
    return std::move(writer).text();
}

}  // namespace brindlet::tools
