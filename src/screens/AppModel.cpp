#include "screens/AppModel.h"

#include <utility>

#include "screens/QtText.h"
#include "session/AppState.h"
#include "words/WelcomeWords.h"

namespace brindlet::screens {
namespace {

AppModel::Screen screenFor(AppState::Screen screen) {
    switch (screen) {
        case AppState::Screen::permission:
            return AppModel::Permission;
        case AppState::Screen::pick:
            return AppModel::Pick;
        case AppState::Screen::scanning:
            return AppModel::Scanning;
        case AppState::Screen::results:
            return AppModel::Results;
        case AppState::Screen::automatic:
            return AppModel::Automatic;
        case AppState::Screen::history:
            return AppModel::History;
        case AppState::Screen::rules:
            return AppModel::Rules;
        case AppState::Screen::welcome:
            break;
    }
    return AppModel::Welcome;
}

}  // namespace

AppModel::AppModel(AppState& state)
    : state_(state),
      welcome_(state),
      permission_(state),
      pick_(state),
      scanning_(state),
      results_(state),
      automatic_(state),
      history_(state),
      rules_(state),
      unsupported_(state),
      gmailAsk_(state),
      coalescer_(state, [this] { refresh(); }) {
    refresh();
}

QString AppModel::title() const {
    return qtText(WelcomeWords().title);
}

void AppModel::setDark(bool dark) {
    if (dark == dark_) return;
    dark_ = dark;
    Q_EMIT darkChanged();
}

void AppModel::setStill(bool still) {
    if (still == still_) return;
    still_ = still;
    Q_EMIT stillChanged();
}

void AppModel::setShown(bool shown) {
    if (shown == shown_) return;
    shown_ = shown;
    if (!shown) leave();
    refresh();
}

void AppModel::leave() {
    if (screen_ == Welcome) welcome_.leave();
    if (screen_ == Pick) pick_.leave();
    if (screen_ == Results) results_.leave();
    if (screen_ == Automatic) automatic_.leave();
    if (screen_ == History) history_.leave();
    if (screen_ == Rules) rules_.leave();
    left_ = true;
}

void AppModel::refresh() {
    if (!shown_) return;
    unsupported_.refresh();
    const auto next = unsupported_.shown() ? Unsupported : screenFor(*state_.screen);
    // First, because what leaving changes is to be seen on the next screen.
    if (next != screen_ && !left_) leave();
    const bool appears = std::exchange(left_, false);
    switch (next) {
        case Welcome:
            welcome_.refresh();
            break;
        case Permission:
        case Unsupported:
            break;
        case Pick:
            if (appears) pick_.appear();
            pick_.refresh();
            break;
        case Scanning:
            scanning_.refresh();
            break;
        case Results:
            results_.refresh();
            break;
        case Automatic:
            if (appears) automatic_.appear();
            automatic_.refresh();
            break;
        case History:
            history_.refresh();
            break;
        case Rules:
            rules_.refresh();
            break;
    }
    if (appears) {
        screen_ = next;
        Q_EMIT screenChanged();
    }
    // After the screen that it stands over.
    if (screen_ == Unsupported)
        gmailAsk_.leave();
    else
        gmailAsk_.refresh();
}

}  // namespace brindlet::screens
