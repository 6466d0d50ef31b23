#pragma once

#include <memory>
#include <string_view>

#include "platform/LanguageModel.h"

namespace brindlet {

/// The mail sorter that ships inside the program: a small linear model over a prompt's sender,
/// subject and body. It knows two schemas: the category's - "Label" with the one property
/// "category", any of the ten words - and the event's, "Event" with "action" and "object", which it
/// reads out of the subject by rules and fails where they know nothing. It fails any other.
/// Instructions and options change nothing: what they ask for is what it was trained on. Never
/// blocks and takes some tens of microseconds a call, whatever the prompt. Any thread, any number
/// of calls at once: it is constant once made.
class EmbeddedModel : public LanguageModel {
  public:
    /// Junk is thrown away, so that something is junk is said only when all kinds of junk together
    /// are so probable; below it the answer is that nothing can be told. Chosen on the messages of
    /// tests/models/validation.jsonl, which lie near the border and which no training text knows.
    static constexpr float leastJunkProbability = 0.8F;

    /// With the weights that the program carries. With 0 it says all that it guesses.
    explicit EmbeddedModel(float leastJunk = leastJunkProbability);
    /// With other weights, which are not copied and outlive the model. Damaged ones make a model
    /// that is unavailable and fails every call.
    explicit EmbeddedModel(std::string_view weights);
    ~EmbeddedModel() override;

    ModelAvailability availability() const override;
    std::optional<Answer> respond(const std::string& instructions, const ModelSchema& schema,
                                  const std::string& prompt, const ModelOptions& options) override;

  private:
    struct Parts;
    std::unique_ptr<const Parts> parts_;
    float leastJunk_ = leastJunkProbability;
};

}  // namespace brindlet
