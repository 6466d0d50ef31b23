#include "models/server/ServerModel.h"

#include <utility>

#include "models/server/ChatAnswer.h"
#include "models/server/ChatRequest.h"
#include "models/server/LoopbackPost.h"

namespace brindlet {

ServerModel::ServerModel(std::string url, std::string name, ServerLimits limits)
    : url_(std::move(url)), name_(std::move(name)), limits_(limits), patience_(limits.rest) {}

std::optional<LanguageModel::Answer> ServerModel::respond(const std::string& instructions,
                                                          const ModelSchema& schema,
                                                          const std::string& prompt,
                                                          const ModelOptions& options) {
    if (!patience_.mayAsk()) return std::nullopt;
    auto reply = postOnLoopback(url_, chatRequest(name_, instructions, schema, prompt, options),
                                limits_.answer, options.abandoned);
    switch (reply.outcome) {
        case LoopbackReply::Outcome::answered:
            patience_.heard();
            return chatAnswer(std::move(reply.body), schema);
        case LoopbackReply::Outcome::failed:
            patience_.heard();
            return std::nullopt;
        case LoopbackReply::Outcome::unheard:
            patience_.unheard();
            return std::nullopt;
        case LoopbackReply::Outcome::abandoned:
            return std::nullopt;
    }
    return std::nullopt;
}

}  // namespace brindlet
