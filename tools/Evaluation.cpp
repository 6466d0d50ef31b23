#include "Evaluation.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/Json.h"

namespace brindlet::tools {
namespace {

constexpr auto categories = allCases<Category>();

/// Rows by right and given category.
using Confusion = std::array<std::array<std::int64_t, categories.size()>, categories.size()>;

double macroF1Of(const Confusion& confusion) {
    double sum = 0;
    int present = 0;
    for (std::size_t category = 0; category < categories.size(); ++category) {
        std::int64_t rows = 0;
        std::int64_t given = 0;
        for (std::size_t other = 0; other < categories.size(); ++other) {
            rows += confusion[category][other];
            given += confusion[other][category];
        }
        if (rows == 0) continue;
        ++present;
        const auto right = static_cast<double>(confusion[category][category]);
        sum += 2 * right / static_cast<double>(rows + given);
    }
    return present == 0 ? 0 : sum / present;
}

std::size_t index(Category category) {
    return static_cast<std::size_t>(category);
}

}  // namespace

bool mustStay(Category category) {
    return category == Category::receiptOrOrderOrShipping || category == Category::billOrPayment ||
           category == Category::securityCodeOrSignInAlert ||
           category == Category::personalMessageOrReminder;
}

Evaluation::Evaluation(const std::vector<LabelledMail>& mails, const std::vector<Answer>& answers) {
    for (std::size_t i = 0; i < mails.size(); ++i)
        if (!mails[i].ambiguous) scored_.push_back({mails[i].category, answers[i]});
}

template <class Whole, class Part>
Share Evaluation::share(Whole whole, Part part) const {
    Share share;
    for (const auto& each : scored_) {
        if (!whole(each)) continue;
        ++share.whole;
        share.part += part(each);
    }
    return share;
}

Share Evaluation::lost() const {
    return share([](const Scored& row) { return mustStay(row.right); },
                 [](const Scored& row) { return row.answer.junk; });
}

Share Evaluation::lost(Category category) const {
    return share([&](const Scored& row) { return row.right == category; },
                 [](const Scored& row) { return row.answer.junk; });
}

Share Evaluation::junkPrecision() const {
    return share([](const Scored& row) { return row.answer.junk; },
                 [](const Scored& row) { return isDefaultJunk(row.right); });
}

Share Evaluation::junkRecall() const {
    return share([](const Scored& row) { return isDefaultJunk(row.right); },
                 [](const Scored& row) { return row.answer.junk; });
}

Share Evaluation::undecided() const {
    return share([](const Scored& row) { return row.right != Category::cannotTell; },
                 [](const Scored& row) { return row.answer.category == Category::cannotTell; });
}

Share Evaluation::accuracy() const {
    return share([](const Scored&) { return true; },
                 [](const Scored& row) { return row.answer.category == row.right; });
}

Share Evaluation::precision(Category category) const {
    return share([&](const Scored& row) { return row.answer.category == category; },
                 [&](const Scored& row) { return row.right == category; });
}

Share Evaluation::recall(Category category) const {
    return share([&](const Scored& row) { return row.right == category; },
                 [&](const Scored& row) { return row.answer.category == category; });
}

std::int64_t Evaluation::count(Category right, Category given) const {
    return std::count_if(scored_.begin(), scored_.end(), [&](const Scored& row) {
        return row.right == right && row.answer.category == given;
    });
}

double Evaluation::macroF1() const {
    Confusion confusion{};
    for (const auto& row : scored_) ++confusion[index(row.right)][index(row.answer.category)];
    return macroF1Of(confusion);
}

Interval Evaluation::macroF1Interval() const {
    if (scored_.empty()) return {};
    return bootstrap(scored_.size(), [&](const std::vector<std::size_t>& drawn) {
        Confusion confusion{};
        for (const auto i : drawn)
            ++confusion[index(scored_[i].right)][index(scored_[i].answer.category)];
        return macroF1Of(confusion);
    });
}

std::string answerLines(const std::vector<LabelledMail>& mails,
                        const std::vector<Answer>& answers) {
    std::string lines;
    for (std::size_t i = 0; i < mails.size(); ++i) {
        JsonWriter line;
        line.beginObject();
        line.member("id", mails[i].id);
        line.member("category", rawValue(answers[i].category));
        line.member("junk", answers[i].junk);
        line.member("vetoed", answers[i].vetoed);
        line.endObject();
        lines += std::move(line).text() + '\n';
    }
    return lines;
}

}  // namespace brindlet::tools
