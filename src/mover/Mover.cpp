#include "mover/Mover.h"

#include <utility>

#include "base/Utf8.h"
#include "mover/ScriptError.h"
#include "platform/ProcessRunner.h"

namespace brindlet {
namespace {

Mover::ScriptOutput outputOf(ChildProcess& host, std::string_view script) {
    if (!host.launch()) return {"", "Couldn't start AppleScript."};
    host.writeInput(script);
    std::string output = repairedUtf8(host.readOutput());
    const std::string errorText = repairedUtf8(host.readError());
    host.wait();
    if (lacksMenuPermission(errorText))
        return {std::move(output),
                "Moving Gmail mail needs one permission: switch Brindlet on under Privacy & "
                "Security > Accessibility, then try again."};
    if (output.empty() && !errorText.empty())
        return {"", lastErrorLine(errorText, "Mail refused.")};
    return {std::move(output), std::nullopt};
}

}  // namespace

Mover::Mover(Services services) : services_(std::move(services)) {}

Mover::ScriptOutput Mover::runScript(std::string_view script,
                                     const std::vector<std::string>& arguments) {
    const auto host = makeHost(arguments);
    setRunningProcess(host);
    auto output = outputOf(*host, script);
    setRunningProcess(nullptr);
    return output;
}

void Mover::stopMove() {
    Lock lock(mutex_);
    stopRequested_ = true;
    if (runningProcess_) runningProcess_->terminate();
}

/// The script comes by standard input, which is what "-" stands for.
std::shared_ptr<ChildProcess> Mover::makeHost(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), {services_.scriptHost, "-"});
    return services_.processes.make(std::move(arguments));
}

void Mover::setRunningProcess(std::shared_ptr<ChildProcess> process) {
    Lock lock(mutex_);
    runningProcess_ = std::move(process);
}

bool Mover::stopRequested() {
    Lock lock(mutex_);
    return stopRequested_;
}

}  // namespace brindlet
