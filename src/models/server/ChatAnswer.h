#pragma once

#include <optional>
#include <string>

#include "platform/LanguageModel.h"

namespace brindlet {

/// What a server answered to a `chatRequest`, held to the schema: servers do not all enforce it,
/// and the one that does may have been cut short. None unless the first choice's message is one
/// JSON object with exactly the schema's properties, each a string of at most 1024 bytes and, where
/// the schema offers words, one of these; white space around a word does not count, and stays. None
/// also for a refusal, and for an answer that says itself that it was cut off or filtered.
std::optional<LanguageModel::Answer> chatAnswer(std::string body, const ModelSchema& schema);

}  // namespace brindlet
