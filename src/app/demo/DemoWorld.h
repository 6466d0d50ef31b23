#pragma once

#include <atomic>
#include <memory>
#include <string>
#include <utility>

#include "app/demo/DemoGmail.h"
#include "platform/Desktop.h"
#include "platform/Directories.h"
#include "platform/LanguageModel.h"
#include "platform/Power.h"
#include "platform/linux/FileUserDefaults.h"
#include "platform/linux/LinuxDiagnostics.h"
#include "platform/linux/SystemClock.h"
#include "platform/linux/SystemLocale.h"
#include "platform/posix/PosixProcessRunner.h"
#include "sample/SimulatedApps.h"

namespace brindlet::demo {

/// A home, a temporary folder and a store below one folder of the demo's own.
class DemoDirectories : public Directories {
  public:
    /// Makes the folders.
    explicit DemoDirectories(std::string root);

    std::string home() const override { return root_ + "/home"; }
    std::string temporary() const override { return root_ + "/temporary"; }
    std::string store() const override { return root_ + "/store"; }

  private:
    std::string root_;
};

/// Opens nothing of the person's; says on standard error what it would have opened.
class SayingDesktop : public Desktop {
  public:
    explicit SayingDesktop(std::string home) : home_(std::move(home)) {}

    /// Of Google's page for app passwords it also says what would be made there.
    void openLink(const std::string& url) override;
    void openDiskAccessSettings() override;
    void openSettings() override;
    /// Launches the simulated one.
    void openMail() override;

  private:
    std::string home_;
};

/// A machine whose plug the tour can pull.
class PluggedPower : public Power {
  public:
    bool onBattery() const override { return battery_; }
    std::unique_ptr<Activity> keepAwake(const std::string& reason) override;
    void setOnBattery(bool battery) { battery_ = battery; }

  private:
    std::atomic<bool> battery_ = false;
};

/// A model that takes its time: by itself the one inside would have the sample sorted before
/// anybody saw the ring fill.
class PacedModel : public LanguageModel {
  public:
    explicit PacedModel(std::unique_ptr<LanguageModel> model) : model_(std::move(model)) {}

    ModelAvailability availability() const override { return model_->availability(); }
    std::optional<Answer> respond(const std::string& instructions, const ModelSchema& schema,
                                  const std::string& prompt, const ModelOptions& options) override;

  private:
    const std::unique_ptr<LanguageModel> model_;
};

/// The adapters of the demo: all that a person could miss is of its own, the rest is real.
struct DemoWorld {
    /// Made before any thread: it tells the processes that this one starts which home is their
    /// mail's, by the environment. A model server that is named but does not count is told of on
    /// standard error.
    explicit DemoWorld(const std::string& root, const std::string& modelServer = {},
                       const std::string& modelServerName = {});

    DemoDirectories directories;
    SystemClock clock;
    SystemLocale locale;
    /// In memory, and with the mail program's menu allowed, so that a move on Gmail can be seen.
    FileUserDefaults defaults;
    PacedModel model;
    PluggedPower power;
    SayingDesktop desktop;
    PosixProcessRunner processes;
    LinuxDiagnostics diagnostics{processes, clock};
    sample::SimulatedApps runningApps;
    MemoryKeyStore keys;
    /// The stand-in that came with this program; no script ever reaches the person's own mail
    /// program.
    std::string scriptHost;
};

}  // namespace brindlet::demo
