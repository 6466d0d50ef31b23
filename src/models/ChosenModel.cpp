#include "models/ChosenModel.h"

#include "models/embedded/EmbeddedModel.h"
#include "models/server/ChatUrl.h"
#include "models/server/ServerModel.h"

namespace brindlet {

ChosenModel chosenModel(const UserDefaults& defaults) {
    const std::string server = defaults.string("model.server").value_or("");
    if (const auto url = chatUrl(server))
        return {
            std::make_unique<ServerModel>(*url, defaults.string("model.server.name").value_or("")),
            ""};
    ChosenModel inside{std::make_unique<EmbeddedModel>(), ""};
    if (!server.empty())
        inside.problem = "The model server \"" + server +
                         "\" is not asked, and the model inside answers: a server is named as in "
                         "http://127.0.0.1:8080, and only this machine counts.";
    return inside;
}

}  // namespace brindlet
