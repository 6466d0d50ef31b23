#include "screens/permission/PermissionModel.h"

#include "platform/Desktop.h"
#include "screens/QtText.h"
#include "session/AppState.h"

namespace brindlet::screens {

PermissionModel::PermissionModel(AppState& state) : state_(state) {
    std::vector<LinesModel::Line> steps;
    for (const auto& step : words_.steps) steps.emplace_back(std::string(), step);
    steps_.set(std::move(steps));
}

QString PermissionModel::symbol() const {
    return qtText(words_.symbol);
}

QString PermissionModel::title() const {
    return qtText(words_.title);
}

QString PermissionModel::text() const {
    return qtText(words_.text);
}

QString PermissionModel::openSettingsLabel() const {
    return qtText(words_.openSettings);
}

QString PermissionModel::checkLabel() const {
    return qtText(words_.check);
}

void PermissionModel::openSettings() {
    state_.services().desktop.openDiskAccessSettings();
}

void PermissionModel::check() {
    state_.pressOn();
}

void PermissionModel::back() {
    state_.goBack();
}

}  // namespace brindlet::screens
