#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/IdSet.h"
#include "classify/Classifier.h"
#include "session/FamilyTemplates.h"
#include "session/Review.h"
#include "session/VerdictIndex.h"
#include "session/VerdictList.h"

/// The search for messages like one that was corrected, whose words differ: what the model is
/// asked, and what becomes of its answers. Pure; any thread.
namespace brindlet {

struct KinQuestions {
    struct Candidate {
        std::int64_t id = 0;
        std::string subject;

        friend bool operator==(const Candidate&, const Candidate&) = default;
    };
    struct Shape {
        Classifier::Words templateWords;
        /// The first that has it.
        std::string subject;

        friend bool operator==(const Shape&, const Shape&) = default;
    };
    /// The corrected message's subject.
    std::string reference;
    /// Others of its sender and category, each subject once; at most 12.
    std::vector<Candidate> candidates;
    /// Their other templates; at most 10.
    std::vector<Shape> shapes;
};

/// `family` holds the templates of the sender's messages.
KinQuestions kinQuestions(std::uint32_t position, const VerdictList& verdicts,
                          const VerdictIndex& index, const FamilyTemplates& family);

/// What the model took for the same kind.
struct KinAnswers {
    IdSet ids;
    std::vector<Classifier::Words> templates;
};

/// The offer with its kin: the offered messages and those of the answers that still stand where
/// they stood. None when that adds nothing; then the offer stays as it is.
std::optional<PendingRule> withKin(const PendingRule& offer, const KinAnswers& answers,
                                   const VerdictList& verdicts, const VerdictIndex& index,
                                   const FamilyTemplates& family, const IdSet& approved);

}  // namespace brindlet
