#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/Directories.h"
#include "platform/KeyStore.h"
#include "platform/Services.h"
#include "platform/TlsStream.h"
#include "platform/linux/FileUserDefaults.h"
#include "platform/linux/LinuxPower.h"
#include "platform/linux/NoRunningApps.h"
#include "platform/linux/SystemClock.h"
#include "platform/linux/SystemLocale.h"
#include "platform/linux/XdgDesktop.h"
#include "platform/posix/PosixProcessRunner.h"
#include "platform/posix/RunLoop.h"

namespace brindlet::tools {

/// A home that the caller names, a temporary folder of the tool's own, removed at the end, and a
/// store in it unless one is named: a tool never touches the person's own.
class ToolDirectories : public Directories {
  public:
    ToolDirectories(std::string home, std::optional<std::string> store);
    ~ToolDirectories() override;

    std::string home() const override { return home_; }
    std::string temporary() const override { return temporary_; }
    std::string store() const override;

  private:
    std::string home_;
    std::string temporary_;
    std::string store_;
};

/// No tool has any business with the person's passwords.
class NoKeys : public KeyStore {
  public:
    bool has(const std::string&, const std::string&) override { return false; }
    std::optional<Secret> read(const std::string&, const std::string&) override {
        return std::nullopt;
    }
    void save(const std::string&, const std::string&, const Secret&) override {}
    void forget(const std::string&, const std::string&) override {}
};

/// No tool talks to a server.
class NoConnections : public TlsConnector {
  public:
    std::shared_ptr<TlsStream> make(const std::string& host, std::uint16_t port) override;
};

/// What a tool runs over: the real adapters, but settings in memory.
struct ToolWorld {
    ToolWorld(std::string home, std::optional<std::string> store)
        : directories(std::move(home), std::move(store)) {}

    SystemClock clock;
    ToolDirectories directories;
    RunLoop loop;
    FileUserDefaults defaults;
    LinuxPower power;
    XdgDesktop desktop;
    SystemLocale locale;
    PosixProcessRunner processes;
    NoRunningApps runningApps;
    NoKeys keys;
    NoConnections tls;
    /// None unless one is named, so that no script ever reaches the person's own mail program.
    std::string scriptHost;

    /// Model and apps must outlive what is built over the services.
    Services services(LanguageModel& model, RunningApps& apps) {
        return {clock,  directories, loop, defaults, model, power,     desktop,
                locale, processes,   apps, keys,     tls,   scriptHost};
    }
    Services services(LanguageModel& model) { return services(model, runningApps); }
};

}  // namespace brindlet::tools
