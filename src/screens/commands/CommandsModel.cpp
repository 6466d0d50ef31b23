#include "screens/commands/CommandsModel.h"

#include <QCoreApplication>
#include <utility>

#include "screens/QtText.h"
#include "session/Updater.h"

namespace brindlet::screens {

CommandsModel::CommandsModel(Updater& updater)
    : updater_(updater), coalescer_(updater, [this] { refresh(); }) {
    refresh();
}

void CommandsModel::refresh() {
    const bool can = *updater_.canCheck;
    if (std::exchange(canCheck_, can) != can) Q_EMIT canCheckChanged();
}

QString CommandsModel::menuName() const {
    return qtText(words_.menu);
}

QString CommandsModel::aboutLabel() const {
    return qtText(words_.about);
}

QString CommandsModel::checkLabel() const {
    return qtText(words_.checkForUpdates);
}

QString CommandsModel::quitLabel() const {
    return qtText(words_.quit);
}

QString CommandsModel::quitKeys() const {
    return qtText(words_.quitKeys);
}

QString CommandsModel::name() const {
    return qtText(about_.name);
}

QString CommandsModel::version() const {
    return qtText(about_.version) + QCoreApplication::applicationVersion();
}

QString CommandsModel::text() const {
    return qtText(about_.text);
}

QString CommandsModel::closeLabel() const {
    return qtText(about_.close);
}

void CommandsModel::check() {
    updater_.check();
}

void CommandsModel::quit() {
    Q_EMIT quitAsked();
}

}  // namespace brindlet::screens
