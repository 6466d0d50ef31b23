#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "LabelledMail.h"
#include "SortLabelled.h"
#include "Statistics.h"

namespace brindlet::tools {

/// What a person may wait for: receipts, bills, security notices and personal mail.
bool mustStay(Category category);

/// Right answers against given ones. Mail with two right answers is left out of every number.
class Evaluation {
  public:
    /// One answer for each mail.
    Evaluation(const std::vector<LabelledMail>& mails, const std::vector<Answer>& answers);

    std::int64_t rows() const { return static_cast<std::int64_t>(scored_.size()); }

    /// Of the mail that must stay, what was proposed as junk; of all such categories, or of one.
    Share lost() const;
    Share lost(Category category) const;
    /// Of what was proposed as junk, what is in a category of junk; and the other way about.
    Share junkPrecision() const;
    Share junkRecall() const;
    /// Of what has a category, what the model left as unclear.
    Share undecided() const;
    /// The categories that were answered rightly.
    Share accuracy() const;
    Share precision(Category category) const;
    Share recall(Category category) const;
    /// The mean, over the categories that any row has, of the harmonic mean of the two above.
    double macroF1() const;
    Interval macroF1Interval() const;
    std::int64_t count(Category right, Category given) const;

  private:
    struct Scored {
        Category right = Category::cannotTell;
        Answer answer;
    };
    template <class Whole, class Part>
    Share share(Whole whole, Part part) const;

    std::vector<Scored> scored_;
};

/// The rows' answers, one JSON object a line: id, category, junk, vetoed.
std::string answerLines(const std::vector<LabelledMail>& mails, const std::vector<Answer>& answers);

/// All numbers of an evaluation for people to read, as two tables of Markdown.
std::string markdown(const Evaluation& evaluation);

}  // namespace brindlet::tools
