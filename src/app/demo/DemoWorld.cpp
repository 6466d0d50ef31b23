#include "app/demo/DemoWorld.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "app/demo/ScriptHost.h"
#include "base/Files.h"
#include "models/ChosenModel.h"
#include "sample/MailPresence.h"
#include "sample/MailSettings.h"
#include "words/GooglePages.h"

namespace brindlet::demo {
namespace {

std::string ownFolder() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path().string();
}

std::unique_ptr<LanguageModel> modelBy(UserDefaults& defaults, const WorldSettings& settings) {
    if (settings.withoutModel) return nullptr;
    if (!settings.modelServer.empty()) defaults.setString("model.server", settings.modelServer);
    if (!settings.modelServerName.empty())
        defaults.setString("model.server.name", settings.modelServerName);
    auto chosen = chosenModel(defaults);
    if (!chosen.problem.empty()) std::fprintf(stderr, "%s\n", chosen.problem.c_str());
    return std::move(chosen.model);
}

}  // namespace

DemoDirectories::DemoDirectories(std::string root) : root_(std::move(root)) {
    for (const auto& folder : {home(), temporary(), store()}) files::createDirectories(folder);
}

void SayingDesktop::say(const std::string& sentence) const {
    std::fprintf(stderr, "%s\n", sentence.c_str());
    if (listener_) listener_(sentence);
}

void SayingDesktop::openLink(const std::string& url) {
    say("Would open " + url);
    if (url == googlePages::appPasswords) tellAppPasswords(home_);
}

void SayingDesktop::openDiskAccessSettings() {
    say("Would open the system's settings for access to the disk");
}

void SayingDesktop::openSettings() {
    std::fprintf(stderr, "would open the system's settings\n");
}

void SayingDesktop::openMail() {
    say("Opened the simulated mail program");
    sample::launchMail(home_);
}

ModelAvailability PacedModel::availability() const {
    return model_ ? model_->availability() : ModelAvailability::deviceNotEligible;
}

std::optional<LanguageModel::Answer> PacedModel::respond(const std::string& instructions,
                                                         const ModelSchema& schema,
                                                         const std::string& prompt,
                                                         const ModelOptions& options) {
    constexpr double leastSeconds = 0.015;
    if (!model_) return std::nullopt;
    const auto start = std::chrono::steady_clock::now();
    auto answer = model_->respond(instructions, schema, prompt, options);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    if (taken.count() < leastSeconds) (void)options.abandoned.sleep(leastSeconds - taken.count());
    return answer;
}

DemoWorld::DemoWorld(const std::string& root, const WorldSettings& settings)
    : directories(root),
      model(modelBy(defaults, settings)),
      power(root + "/power.txt", settings.onBattery),
      desktop(directories.home()),
      runningApps(directories.home()),
      scriptHost(scriptHostFor(ownFolder())) {
    ::setenv(sample::sampleHomeVariable, directories.home().c_str(), 1);
    defaults.setBoolean("allowUIMove", true);
}

}  // namespace brindlet::demo
