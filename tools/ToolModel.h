#pragma once

#include <memory>
#include <string_view>

#include "Arguments.h"
#include "platform/LanguageModel.h"
#include "platform/UserDefaults.h"

namespace brindlet::tools {

/// The options by which a tool is told of a model server.
inline constexpr std::string_view serverOption = "--model-server";
inline constexpr std::string_view serverNameOption = "--model-server-name";

/// What answers as the language model, chosen as the application chooses it, by the settings: the
/// options become settings first. Where a server is named that does not count, says so on standard
/// error.
std::unique_ptr<LanguageModel> toolModel(const Arguments& arguments, UserDefaults& defaults);

}  // namespace brindlet::tools
