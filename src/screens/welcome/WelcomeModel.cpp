#include "screens/welcome/WelcomeModel.h"

#include "screens/QtText.h"
#include "session/AppState.h"

namespace brindlet::screens {
namespace {

AppState::Screen screenOf(HomeLink::To to) {
    switch (to) {
        case HomeLink::To::history:
            return AppState::Screen::history;
        case HomeLink::To::rules:
            return AppState::Screen::rules;
        case HomeLink::To::automatic:
            break;
    }
    return AppState::Screen::automatic;
}

}  // namespace

WelcomeModel::WelcomeModel(AppState& state) : state_(state), resume_(state) {
    std::vector<LinesModel::Line> badges;
    for (const auto& badge : words_.badges) badges.emplace_back(badge.symbol, badge.word);
    badges_.set(std::move(badges));
}

void WelcomeModel::refresh() {
    homeLinks_ = homeLinks(state_);
    std::vector<LinesModel::Line> lines;
    for (const auto& link : homeLinks_) lines.emplace_back(link.symbol, link.text);
    links_.set(std::move(lines));
    resume_.refresh();
}

void WelcomeModel::leave() {
    resume_.leave();
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

void WelcomeModel::follow(int link) {
    if (link < 0 || static_cast<std::size_t>(link) >= homeLinks_.size()) return;
    state_.navigate(screenOf(homeLinks_[static_cast<std::size_t>(link)].to));
}

}  // namespace brindlet::screens
