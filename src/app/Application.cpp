#include "app/Application.h"

#include <QFont>
#include <QGuiApplication>
#include <QIcon>
#include <QQuickWindow>
#include <cstdlib>

#include "app/Appearance.h"
#include "app/MainWindow.h"
#include "app/QtMainQueue.h"
#include "app/WatchedLoop.h"
#include "session/AppState.h"

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
    QGuiApplication::setDesktopFileName(QStringLiteral("brindlet"));
    QGuiApplication::setWindowIcon(ownIcon());
    QGuiApplication::setFont(QFont(QStringLiteral("Inter")));
}

void runApplication(AppState& state, QtMainQueue& queue, const Watchdog::Seams& watch,
                    const std::function<void()>& firstFrame) {
    prepareToolkit();
    const Appearance appearance;
    MainWindow main(state);
    main.follow(appearance);
    if (!main.show()) std::_Exit(EXIT_FAILURE);
    if (firstFrame)
        QObject::connect(main.window(), &QQuickWindow::frameSwapped, &main.model(), firstFrame,
                         Qt::SingleShotConnection);
    state.startTimer();
    const WatchedLoop watched(watch);
    state.refreshInReach();
    const int code = QGuiApplication::exec();
    queue.end();
    std::_Exit(code);
}

}  // namespace brindlet
