#include "app/MainWindow.h"

#include <QCoreApplication>
#include <QQuickWindow>
#include <QtQml/QQmlExtensionPlugin>

#include "app/Appearance.h"
#include "screens/look/PaintProvider.h"
#include "screens/look/SymbolProvider.h"

Q_IMPORT_QML_PLUGIN(Brindlet_ScreensPlugin)

namespace brindlet {

MainWindow::MainWindow(AppState& state) : model_(state) {
    QObject::connect(&engine_, &QQmlEngine::warnings, &engine_, [this](const auto& warnings) {
        for (const auto& warning : warnings) warnings_ << warning.toString();
    });
    QObject::connect(model_.results(), &screens::ResultsModel::quitAsked, &engine_,
                     [] { QCoreApplication::quit(); });
    engine_.addImportPath(QStringLiteral("qrc:/qt/qml"));
    engine_.addImageProvider(QStringLiteral("symbol"), new screens::SymbolProvider);
    engine_.addImageProvider(QStringLiteral("paint"), new screens::PaintProvider);
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
    engine_.setInitialProperties({{QStringLiteral("app"), QVariant::fromValue(&model_)}});
    engine_.load(QUrl(QStringLiteral("qrc:/qt/qml/Brindlet/Screens/Main.qml")));
    window_ = qobject_cast<QQuickWindow*>(engine_.rootObjects().value(0));
    return window_ != nullptr;
}

}  // namespace brindlet
