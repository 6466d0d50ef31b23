#include "app/demo/DemoWorld.h"

#include <cstdio>
#include <utility>

#include "base/Cancel.h"
#include "base/Files.h"

namespace brindlet::demo {

DemoDirectories::DemoDirectories(std::string root) : root_(std::move(root)) {
    for (const auto& folder : {home(), temporary(), store()}) files::createDirectories(folder);
}

void SayingDesktop::openLink(const std::string& url) {
    std::fprintf(stderr, "would open %s\n", url.c_str());
}

void SayingDesktop::openDiskAccessSettings() {
    std::fprintf(stderr, "would open the system's settings for access to the disk\n");
}

void SayingDesktop::openMail() {
    std::fprintf(stderr, "would open the mail program\n");
}

std::unique_ptr<Power::Activity> PluggedPower::keepAwake(const std::string&) {
    return std::make_unique<Activity>();
}

std::optional<LanguageModel::Answer> PacedModel::respond(const std::string& instructions,
                                                         const ModelSchema& schema,
                                                         const std::string& prompt,
                                                         const ModelOptions& options) {
    constexpr double secondsACall = 0.015;
    (void)CancelToken().sleep(secondsACall);
    return model_.respond(instructions, schema, prompt, options);
}

}  // namespace brindlet::demo
