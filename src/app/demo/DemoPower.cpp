#include "app/demo/DemoPower.h"

#include <utility>

#include "base/Files.h"

namespace brindlet::demo {
namespace {

constexpr const char* battery = "battery";
constexpr const char* plugged = "plugged in";

}  // namespace

DemoPower::DemoPower(std::string file, bool onBattery) : file_(std::move(file)) {
    if (onBattery || !files::exists(file_)) setOnBattery(onBattery);
}

bool DemoPower::onBattery() const {
    const auto says = files::read(file_);
    return says && says->starts_with(battery);
}

std::unique_ptr<Power::Activity> DemoPower::keepAwake(const std::string&) {
    return std::make_unique<Activity>();
}

void DemoPower::setOnBattery(bool onBattery) {
    files::write(file_, std::string(onBattery ? battery : plugged) + '\n');
}

}  // namespace brindlet::demo
