#include "screens/welcome/WelcomeModel.h"

#include "screens/QtText.h"
#include "session/AppState.h"

namespace brindlet::screens {

WelcomeModel::WelcomeModel(AppState& state) : state_(state) {
    std::vector<LinesModel::Line> badges;
    for (const auto& badge : words_.badges) badges.emplace_back(badge.symbol, badge.word);
    badges_.set(std::move(badges));
}

QString WelcomeModel::symbol() const {
    return qtText(words_.symbol);
}

QString WelcomeModel::title() const {
    return qtText(words_.title);
}

QString WelcomeModel::text() const {
    return qtText(words_.text);
}

QString WelcomeModel::startLabel() const {
    return qtText(words_.start);
}

void WelcomeModel::start() {
    state_.pressOn();
}

}  // namespace brindlet::screens
