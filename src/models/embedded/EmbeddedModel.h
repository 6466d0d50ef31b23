#pragma once

#include <memory>

#include "platform/LanguageModel.h"

namespace brindlet {

/// The mail sorter that ships inside the program: a small linear model over a prompt's sender,
/// subject and body. It knows one schema, the category's; any other it fails. Any thread, any number
/// of calls at once.
class EmbeddedModel : public LanguageModel {
  public:
    EmbeddedModel();
    ~EmbeddedModel() override;

    ModelAvailability availability() const override;
    std::optional<Answer> respond(const std::string& instructions, const ModelSchema& schema,
                                  const std::string& prompt, const ModelOptions& options) override;

  private:
    struct Weights;
    std::unique_ptr<const Weights> weights_;
};

}  // namespace brindlet
