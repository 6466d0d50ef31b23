#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "classify/Category.h"

namespace brindlet::tools {

/// A message whose category people have agreed on.
struct LabelledMail {
    std::string sender;
    std::string subject;
    std::string body;
    Category category = Category::cannotTell;
    /// Two categories would do.
    bool ambiguous = false;
};

/// Reads a JSON object a line with the keys "from", "subject", "body", "category" and "ambiguous";
/// others are passed over. None, with a finished sentence in `problem`, for any damaged line.
std::optional<std::vector<LabelledMail>> parseLabelledMail(std::string_view lines,
                                                           std::string& problem);

/// Right answers against given ones.
class Evaluation {
  public:
    void add(Category right, Category given);

    int rows() const;
    /// The share of rows answered rightly; 0 without rows.
    double accuracy() const;
    /// Over the given answers, and over the rows, of a category; 0 where there are none.
    double precision(Category category) const;
    double recall(Category category) const;
    /// The mean over all categories of the harmonic mean of the two above.
    double macroF1() const;
    /// All of it and who was taken for whom, as one object.
    std::string json() const;

  private:
    static constexpr std::size_t count = allCases<Category>().size();

    int of(Category right, Category given) const;
    std::array<std::array<int, count>, count> counts_{};
};

}  // namespace brindlet::tools
