#pragma once

#include <string>

#include "platform/LanguageModel.h"

namespace brindlet {

/// A question in the form of the OpenAI-compatible chat interface, one JSON object: the
/// instructions are the system's message, the prompt is the user's, and the answer must follow the
/// schema. All that does not change from message to message comes first and is the same to the
/// byte, so that a server which keeps what it has read of a beginning reads the instructions once.
/// A model's name that is empty is left out.
std::string chatRequest(const std::string& model, const std::string& instructions,
                        const ModelSchema& schema, const std::string& prompt,
                        const ModelOptions& options);

}  // namespace brindlet
