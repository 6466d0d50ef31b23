#include <QApplication>

#include "app/Application.h"
#include "app/QtMainQueue.h"
#include "app/SingleInstance.h"
#include "models/ChosenModel.h"
#include "platform/linux/FileUserDefaults.h"
#include "platform/linux/LinuxDiagnostics.h"
#include "platform/linux/LinuxPower.h"
#include "platform/linux/Memory.h"
#include "platform/linux/NoRunningApps.h"
#include "platform/linux/NoUpdates.h"
#include "platform/linux/OpenSslStream.h"
#include "platform/linux/SecretServiceKeyStore.h"
#include "platform/linux/SystemClock.h"
#include "platform/linux/SystemLocale.h"
#include "platform/linux/XdgDesktop.h"
#include "platform/linux/XdgDirectories.h"
#include "platform/posix/PosixProcessRunner.h"
#include "session/AppState.h"

int main(int argc, char** argv) {
    using namespace brindlet;
    shareHeaps();
    // The adapters first: they read the environment, which no other thread may do by then.
    SystemClock clock;
    XdgDirectories directories;
    SingleInstance instance(directories);
    if (const auto code = giveWay(instance)) return *code;
    SystemLocale locale;
    LinuxPower power;
    XdgDesktop desktop;
    FileUserDefaults defaults(directories.configuration() + "/defaults.json");
    const auto chosen = chosenModel(defaults);
    PosixProcessRunner processes;
    NoRunningApps runningApps;
    SecretServiceKeyStore keys;
    OpenSslConnector tls(TlsAuthorities::ofSystem());

    const QApplication application(argc, argv);
    QtMainQueue queue;
    const auto state =
        AppState::make({clock, directories, queue, defaults, *chosen.model, power, desktop, locale,
                        processes, runningApps, keys, tls, "/usr/bin/osascript"});
    LinuxDiagnostics diagnostics(processes, clock);
    NoUpdates updates;
    runApplication({*state, queue, updates, instance, {clock, directories, diagnostics}});
}
