#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/Cancel.h"

namespace brindlet {

/// What an answer must look like: an object of string properties, each free or one of a few words.
struct ModelSchema {
    struct Property {
        std::string name;
        std::string description;
        /// The name and description of the property's own type; both empty for plain text.
        std::string typeName;
        std::string typeDescription;
        /// The words allowed; empty for any text.
        std::vector<std::string> anyOf;
    };
    std::string name;
    std::string description;
    std::vector<Property> properties;
};

struct ModelOptions {
    bool greedy = true;
    bool includeSchemaInPrompt = true;
    /// Cancelled once nobody waits for the answer any more. A model whose work costs something ends
    /// it then, and answers none; others need not look.
    CancelToken abandoned;
};

enum class ModelAvailability {
    available,
    deviceNotEligible,
    notEnabled,
    notReady,
    unavailable,
};

/// A language model on this device. Each call stands alone: nothing carries over to the next. Any
/// thread; at least four calls may be in flight at once. A call may block for long, or for ever, so
/// callers abandon it rather than wait when they are cancelled.
class LanguageModel {
  public:
    /// The answer's properties by name.
    using Answer = std::map<std::string, std::string>;

    virtual ~LanguageModel() = default;
    virtual ModelAvailability availability() const = 0;
    /// None when the model failed or refused.
    virtual std::optional<Answer> respond(const std::string& instructions,
                                          const ModelSchema& schema, const std::string& prompt,
                                          const ModelOptions& options) = 0;
};

}  // namespace brindlet
