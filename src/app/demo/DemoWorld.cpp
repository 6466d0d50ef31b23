#include "app/demo/DemoWorld.h"

#include <cstdio>
#include <utility>

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

}  // namespace brindlet::demo
