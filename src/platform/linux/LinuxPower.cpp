#include "platform/linux/LinuxPower.h"

#include <unistd.h>

#include "base/Files.h"
#include "base/Task.h"
#include "base/Text.h"
#include "base/ThreadSafety.h"
#include "platform/linux/LogindInhibitor.h"

namespace brindlet {
namespace {

std::string attribute(const std::string& supply, const char* name) {
    return std::string(trimBlanksAndNewlines(files::read(supply + '/' + name).value_or("")));
}

/// One request, shared by its token and the thread that carries it out: whichever of answer and end
/// comes second closes the descriptor.
class Request {
  public:
    void answer(int descriptor) {
        Lock lock(mutex_);
        descriptor_ = descriptor;
        if (ended_) close();
    }
    void end() {
        Lock lock(mutex_);
        ended_ = true;
        close();
    }

  private:
    void close() BRINDLET_REQUIRES(mutex_) {
        if (descriptor_ >= 0) ::close(descriptor_);
        descriptor_ = -1;
    }

    Mutex mutex_;
    int descriptor_ BRINDLET_GUARDED_BY(mutex_) = -1;
    bool ended_ BRINDLET_GUARDED_BY(mutex_) = false;
};

class Awake : public Power::Activity {
  public:
    explicit Awake(std::shared_ptr<Request> request) : request_(std::move(request)) {}
    ~Awake() override { request_->end(); }
    Awake(const Awake&) = delete;
    Awake& operator=(const Awake&) = delete;

  private:
    std::shared_ptr<Request> request_;
};

}  // namespace

LinuxPower::LinuxPower() : LinuxPower("/sys/class/power_supply", inhibitSleep) {}

LinuxPower::LinuxPower(std::string supplies, Inhibit inhibit)
    : supplies_(std::move(supplies)), inhibit_(std::move(inhibit)) {}

bool LinuxPower::onBattery() const {
    bool discharging = false;
    for (const auto& name : files::list(supplies_).value_or(std::vector<std::string>())) {
        const auto supply = supplies_ + '/' + name;
        if (attribute(supply, "type") != "Battery") {
            // Mains, or USB, which feeds many a machine.
            if (attribute(supply, "online") == "1") return false;
        } else if (attribute(supply, "scope") != "Device") {  // that of a mouse does not matter
            discharging = discharging || attribute(supply, "status") == "Discharging";
        }
    }
    return discharging;
}

std::unique_ptr<Power::Activity> LinuxPower::keepAwake(const std::string& reason) {
    auto request = std::make_shared<Request>();
    runDetached(TaskPriority::userInitiated,
                [request, reason, inhibit = inhibit_] { request->answer(inhibit(reason)); });
    return std::make_unique<Awake>(std::move(request));
}

}  // namespace brindlet
