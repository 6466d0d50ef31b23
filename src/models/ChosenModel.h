#pragma once

#include <memory>
#include <string>

#include "platform/LanguageModel.h"
#include "platform/UserDefaults.h"

namespace brindlet {

/// What answers as the language model, by the person's settings: the model that ships inside,
/// unless "model.server" names a server on this machine; "model.server.name" is then the name by
/// which the server knows its model. Settings are looked at once, when a program starts.
struct ChosenModel {
    std::unique_ptr<LanguageModel> model;
    /// Why a server that is named is not asked, as a finished sentence for those who tell;
    /// otherwise empty.
    std::string problem;
};

ChosenModel chosenModel(const UserDefaults& defaults);

}  // namespace brindlet
