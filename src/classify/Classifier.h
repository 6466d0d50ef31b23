#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/Cancel.h"
#include "classify/Category.h"
#include "platform/LanguageModel.h"

namespace brindlet {

/// What the language model is asked, and the subject templates that need no model. Any thread; the
/// operations that ask the model block.
class Classifier {
  public:
    /// The model outlives it.
    explicit Classifier(LanguageModel& model);

    /// Why the model cannot be used, as a finished sentence; empty when it can.
    std::string availabilityProblem() const;

    /// Never fails: whatever goes wrong gives `cannotTell`, and so does being abandoned.
    Category classify(std::string_view sender, std::string_view subject, std::string_view body,
                      const CancelToken& abandoned = {}) const;

    /// The instructions, the answer's schema and the prompt, as a model gets them.
    static std::string_view instructions();
    static const ModelSchema& labelSchema();
    static std::string prompt(std::string_view sender, std::string_view subject,
                              std::string_view body);

    /// True when the subject speaks of something that must never leave the inbox: sign-in and
    /// security notices, receipts, bills, shipping, bookings. Deliberately wider than any category.
    static bool isVetoed(std::string_view subject);
    /// The expression behind it, word for word.
    static std::string_view vetoRegex();

    using Words = std::vector<std::string>;

    /// Words that tell nothing about what a message is.
    static constexpr std::array<std::string_view, 32> stopWords{
        "a",   "an",  "the",  "to",  "of",  "on",  "in",   "for",  "from", "your", "you",
        "and", "or",  "is",   "are", "was", "new", "this", "that", "it",   "with", "at",
        "by",  "has", "have", "we",  "our", "my",  "me",   "us",   "be",   "been"};

    /// The lower-cased words of a subject; the straight apostrophe belongs to a word.
    static Words subjectWords(std::string_view subject);
    /// For each subject of one sender's family the recurring phrase that it contains, or nothing.
    static std::vector<Words> mineTemplates(const std::vector<std::string>& subjects);
    /// True when the template is empty or its words stand in the subject as one unbroken run.
    static bool templateOccurs(const Words& templateWords, std::string_view subject);
    /// The same for a subject already split, for callers that try many templates on one.
    static bool templateOccurs(const Words& templateWords, const Words& subjectWords);
    /// Other shapes of a subject, for the model to compare; at most `limit` of `others`.
    static std::vector<Words> siblingSubjects(const Words& words, const std::vector<Words>& others,
                                              std::size_t limit);

    /// What a subject says happened. Stems are the first 5 characters of a lower-cased word.
    struct Event {
        std::string action;
        std::set<std::string> objects;

        friend bool operator==(const Event&, const Event&) = default;
    };
    static std::string_view eventInstructions();
    static const ModelSchema& eventSchema();
    /// One model call; none when the model fails, or is abandoned.
    std::optional<Event> event(std::string_view subject, const CancelToken& abandoned = {}) const;
    static bool sameEvent(const Event& a, const Event& b);
    /// The indices of the candidates that tell of the same event. One model call a subject, one
    /// after another, so it belongs on a task of utility priority; on cancellation, what has been
    /// found so far.
    std::set<std::size_t> kinIndices(std::string_view reference,
                                     const std::vector<std::string>& candidates,
                                     const CancelToken& token) const;

  private:
    LanguageModel& model_;
};

}  // namespace brindlet
