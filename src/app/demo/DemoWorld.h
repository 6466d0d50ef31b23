#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "app/demo/DemoGmail.h"
#include "app/demo/DemoPower.h"
#include "platform/Desktop.h"
#include "platform/Directories.h"
#include "platform/LanguageModel.h"
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

/// Opens nothing of the person's; says what it would have opened, on standard error and to whoever
/// listens.
class SayingDesktop : public Desktop {
  public:
    explicit SayingDesktop(std::string home) : home_(std::move(home)) {}

    using Listener = std::function<void(const std::string& sentence)>;
    /// An empty one ends it.
    void setListener(Listener listener) { listener_ = std::move(listener); }

    /// Of Google's page for app passwords it also says what would be made there.
    void openLink(const std::string& url) override;
    void openDiskAccessSettings() override;
    void openSettings() override;
    /// Launches the simulated one.
    void openMail() override;

  private:
    void say(const std::string& sentence) const;

    std::string home_;
    Listener listener_;
};

/// A model that takes its time: by itself the one inside would have the sample sorted before
/// anybody saw the ring fill. Without a model it is one that the machine does not have.
class PacedModel : public LanguageModel {
  public:
    explicit PacedModel(std::unique_ptr<LanguageModel> model) : model_(std::move(model)) {}

    ModelAvailability availability() const override;
    std::optional<Answer> respond(const std::string& instructions, const ModelSchema& schema,
                                  const std::string& prompt, const ModelOptions& options) override;

  private:
    const std::unique_ptr<LanguageModel> model_;
};

/// What of a demo's world is up to whoever starts it.
struct WorldSettings {
    /// A model server on this machine; the model inside when empty.
    std::string modelServer;
    std::string modelServerName;
    bool withoutModel = false;
    bool onBattery = false;
};

/// The adapters of the demo: all that a person could miss is of its own, the rest is real.
struct DemoWorld {
    /// Made before any thread: it tells the processes that this one starts which home is their
    /// mail's, by the environment. A model server that is named but does not count is told of on
    /// standard error.
    explicit DemoWorld(const std::string& root, const WorldSettings& settings = {});

    DemoDirectories directories;
    SystemClock clock;
    SystemLocale locale;
    /// In memory, and with the mail program's menu allowed, so that a move on Gmail can be seen.
    FileUserDefaults defaults;
    PacedModel model;
    DemoPower power;
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
