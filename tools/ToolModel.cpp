#include "ToolModel.h"

#include <cstdio>

#include "models/ChosenModel.h"

namespace brindlet::tools {

std::unique_ptr<LanguageModel> toolModel(const Arguments& arguments, UserDefaults& defaults) {
    if (const auto server = arguments.option(serverOption))
        defaults.setString("model.server", *server);
    if (const auto name = arguments.option(serverNameOption))
        defaults.setString("model.server.name", *name);
    auto chosen = chosenModel(defaults);
    if (!chosen.problem.empty()) std::fprintf(stderr, "%s\n", chosen.problem.c_str());
    return std::move(chosen.model);
}

}  // namespace brindlet::tools
