#include "app/Application.h"

#include <QFont>
#include <QGuiApplication>
#include <QIcon>
#include <QQuickWindow>
#include <cstdio>
#include <cstdlib>

#include "app/Appearance.h"
#include "app/QtMainQueue.h"
#include "app/Shell.h"
#include "app/SingleInstance.h"

namespace brindlet {
namespace {

QIcon ownIcon() {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128})
        icon.addFile(QStringLiteral(":/icon/brindlet-%1.png").arg(size), {size, size});
    return icon;
}

}  // namespace

void prepareToolkit() {
    QGuiApplication::setApplicationName(QStringLiteral("Brindlet"));
    QGuiApplication::setApplicationVersion(QStringLiteral(BRINDLET_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("brindlet"));
    QGuiApplication::setWindowIcon(ownIcon());
    QGuiApplication::setFont(QFont(QStringLiteral("Inter")));
}

std::optional<int> giveWay(SingleInstance& instance) {
    switch (instance.claim()) {
        case SingleInstance::Found::another:
            std::puts("Brindlet is running already; its window comes to the front.");
            return EXIT_SUCCESS;
        case SingleInstance::Found::silent:
            std::fputs("Brindlet is running already, but does not answer.\n", stderr);
            return EXIT_FAILURE;
        case SingleInstance::Found::nobody:
            break;
    }
    return std::nullopt;
}

void runApplication(const ApplicationParts& parts, const std::function<void()>& firstFrame) {
    prepareToolkit();
    const Appearance appearance;
    Shell shell(parts.state, parts.updates, parts.instance);
    auto& main = shell.main();
    main.follow(appearance);
    if (!shell.start(parts.watch)) std::_Exit(EXIT_FAILURE);
    if (firstFrame)
        QObject::connect(main.window(), &QQuickWindow::frameSwapped, &main.model(), firstFrame,
                         Qt::SingleShotConnection);
    const int code = QCoreApplication::exec();
    parts.instance.end();
    parts.queue.end();
    std::_Exit(code);
}

}  // namespace brindlet
