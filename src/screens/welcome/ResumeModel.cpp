#include "screens/welcome/ResumeModel.h"

#include <utility>

#include "screens/QtText.h"
#include "session/AppState.h"

namespace brindlet::screens {

void ResumeModel::refresh() {
    Shown now;
    now.words = resumeWords(state_);
    now.waiting = isWaiting();
    now.moving = *state_.moving;
    if (tried_ && !now.waiting) now.error = state_.moveError->value_or("");
    if (now == shown_) return;
    shown_ = std::move(now);
    Q_EMIT changed();
}

void ResumeModel::leave() {
    tried_ = false;
}

bool ResumeModel::isWaiting() const {
    return state_.retryResumeOnLoad && *state_.loadingAccounts;
}

QString ResumeModel::symbol() const {
    return shown() ? qtText(shown_.words->symbol) : QString();
}

QString ResumeModel::title() const {
    return shown() ? qtText(shown_.words->title) : QString();
}

QString ResumeModel::line() const {
    return shown() ? qtText(shown_.words->line) : QString();
}

QString ResumeModel::error() const {
    return qtText(shown_.error);
}

QString ResumeModel::resumeLabel() const {
    return shown() ? qtText(shown_.words->resume) : QString();
}

QString ResumeModel::forgetLabel() const {
    return shown() ? qtText(shown_.words->forget) : QString();
}

void ResumeModel::resume() {
    // What is on its way needs no second press.
    if (isWaiting()) return;
    tried_ = true;
    state_.resumeMove();
}

void ResumeModel::forget() {
    state_.interrupted.clear();
}

}  // namespace brindlet::screens
