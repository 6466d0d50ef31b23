#include "app/MainWindow.h"

#include <QKeyEvent>
#include <QKeySequence>
#include <QQmlComponent>
#include <QQuickWindow>
#include <QtQml/QQmlExtensionPlugin>
#include <utility>

#include "app/Appearance.h"
#include "screens/look/PaintProvider.h"
#include "screens/look/SymbolProvider.h"

Q_IMPORT_QML_PLUGIN(Brindlet_ScreensPlugin)

namespace brindlet {

MainWindow::MainWindow(AppState& state, Updater& updater) : model_(state), commands_(updater) {
    connect(&engine_, &QQmlEngine::warnings, this, [this](const auto& warnings) {
        for (const auto& warning : warnings) warnings_ << warning.toString();
    });
    connect(model_.results(), &screens::ResultsModel::quitAsked, this, &MainWindow::quitAsked);
    connect(&commands_, &screens::CommandsModel::quitAsked, this, &MainWindow::quitAsked);
    engine_.addImportPath(QStringLiteral("qrc:/qt/qml"));
    engine_.addImageProvider(QStringLiteral("symbol"), new screens::SymbolProvider);
    engine_.addImageProvider(QStringLiteral("paint"), new screens::PaintProvider);
}

MainWindow::~MainWindow() {
    delete window_;
}

void MainWindow::follow(const Appearance& appearance) {
    const auto adopt = [this, &appearance] {
        model_.setDark(appearance.dark());
        model_.setStill(appearance.still());
    };
    QObject::connect(&appearance, &Appearance::changed, &model_, adopt);
    adopt();
}

bool MainWindow::show() {
    if (window_) {
        window_->setWindowStates(window_->windowStates() & ~Qt::WindowMinimized);
        window_->raise();
    } else if (!make()) {
        return false;
    }
    window_->requestActivate();
    return true;
}

bool MainWindow::make() {
    QVariantMap properties{{QStringLiteral("app"), QVariant::fromValue(&model_)},
                           {QStringLiteral("commands"), QVariant::fromValue(&commands_)}};
    if (!place_.isNull()) {
        properties[QStringLiteral("x")] = place_.x();
        properties[QStringLiteral("y")] = place_.y();
        properties[QStringLiteral("width")] = place_.width();
        properties[QStringLiteral("height")] = place_.height();
    }
    model_.setShown(true);
    QQmlComponent component(&engine_,
                            QUrl(QStringLiteral("qrc:/qt/qml/Brindlet/Screens/Main.qml")));
    auto* made = component.createWithInitialProperties(properties);
    window_ = qobject_cast<QQuickWindow*>(made);
    if (!window_) {
        for (const auto& error : component.errors()) warnings_ << error.toString();
        delete made;
        return false;
    }
    QQmlEngine::setObjectOwnership(window_, QQmlEngine::CppOwnership);
    if (states_ != Qt::WindowNoState) window_->setWindowStates(states_);
    window_->installEventFilter(this);
    return true;
}

void MainWindow::leave() {
    states_ = window_->windowStates() & (Qt::WindowMaximized | Qt::WindowFullScreen);
    if (states_ == Qt::WindowNoState) place_ = window_->geometry();
    model_.setShown(false);
    std::exchange(window_, nullptr)->deleteLater();
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    // Not shortcuts of the screens, which a sheet over them would hold back.
    if (event->type() == QEvent::KeyPress) {
        const auto keys = static_cast<QKeyEvent*>(event)->keyCombination();
        if (keys == QKeyCombination(Qt::CTRL, Qt::Key_Q)) {
            Q_EMIT quitAsked();
            return true;
        }
        if (keys == QKeyCombination(Qt::CTRL, Qt::Key_W)) {
            window_->close();
            return true;
        }
    }
    // After all that it does when it closes.
    if (event->type() == QEvent::Close)
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (window_ && !window_->isVisible()) leave();
            },
            Qt::QueuedConnection);
    return QObject::eventFilter(watched, event);
}

}  // namespace brindlet
