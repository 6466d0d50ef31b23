#include "app/Application.h"

#include <QFont>
#include <QGuiApplication>
#include <QQuickWindow>
#include <cstdlib>

#include "app/ColourScheme.h"
#include "app/MainWindow.h"
#include "app/QtMainQueue.h"
#include "session/AppState.h"

namespace brindlet {

void prepareToolkit() {
    QGuiApplication::setApplicationName(QStringLiteral("Brindlet"));
    QGuiApplication::setDesktopFileName(QStringLiteral("brindlet"));
    QGuiApplication::setFont(QFont(QStringLiteral("Inter")));
}

void runApplication(AppState& state, QtMainQueue& queue, const std::function<void()>& firstFrame) {
    prepareToolkit();
    const ColourScheme scheme;
    MainWindow main(state);
    const auto follow = [&] { main.model().setDark(scheme.dark()); };
    QObject::connect(&scheme, &ColourScheme::changed, &main.model(), follow);
    follow();
    if (!main.show()) std::_Exit(EXIT_FAILURE);
    if (firstFrame)
        QObject::connect(main.window(), &QQuickWindow::frameSwapped, &main.model(), firstFrame,
                         Qt::SingleShotConnection);
    state.startTimer();
    state.refreshInReach();
    const int code = QGuiApplication::exec();
    queue.end();
    std::_Exit(code);
}

}  // namespace brindlet
