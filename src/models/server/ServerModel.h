#pragma once

#include <chrono>
#include <string>

#include "models/server/Patience.h"
#include "platform/LanguageModel.h"

namespace brindlet {

struct ServerLimits {
    /// For one answer. A large model on a slow processor is read from the disk and then reads a
    /// thousand words of instructions, four times over if the server keeps nothing, before its
    /// first answer: a minute or two. Later ones take seconds.
    std::chrono::milliseconds answer = std::chrono::minutes(3);
    /// How long a server that does not answer is left alone.
    std::chrono::milliseconds rest = std::chrono::minutes(1);
};

/// A language model behind a server on this machine that speaks the OpenAI-compatible chat
/// interface, as docs/model-server.md tells. Each call is one request, never repeated; it blocks
/// until the server answers, at most for the time limit, and ends at once when abandoned. A server
/// that is down, slow or wrong fails the call. Any thread, any number of calls at once.
///
/// Always available: a server that is down now may be up when it is asked.
class ServerModel : public LanguageModel {
  public:
    /// The address as `chatUrl` gives it. The name is the model's, as the server knows it; empty
    /// for servers that have only one.
    ServerModel(std::string url, std::string name, ServerLimits limits = {});

    ModelAvailability availability() const override { return ModelAvailability::available; }
    std::optional<Answer> respond(const std::string& instructions, const ModelSchema& schema,
                                  const std::string& prompt, const ModelOptions& options) override;

  private:
    const std::string url_;
    const std::string name_;
    const ServerLimits limits_;
    Patience patience_;
};

}  // namespace brindlet
