#include "screens/gmail/IntentModel.h"

#include <utility>

#include "screens/QtText.h"
#include "session/AppState.h"

namespace brindlet::screens {

void IntentModel::refresh() {
    auto words = intentWords(state_);
    if (words == words_) return;
    words_ = std::move(words);
    if (words_) destinations_.set(words_->destinations);
    Q_EMIT wordsChanged();
}

QString IntentModel::symbol() const {
    return words_ ? qtText(words_->symbol) : QString();
}

QString IntentModel::backwards() const {
    return words_ ? qtText(words_->backwards) : QString();
}

QString IntentModel::label() const {
    return words_ ? qtText(words_->label) : QString();
}

QString IntentModel::destination() const {
    return words_ ? qtText(words_->destination) : QString();
}

IntentModel::Tint IntentModel::tint() const {
    switch (words_ ? words_->tint : DestinationTint::fresh) {
        case DestinationTint::spam:
            return Spam;
        case DestinationTint::own:
            return Own;
        case DestinationTint::fresh:
            break;
    }
    return Fresh;
}

QString IntentModel::menuSymbol() const {
    return words_ ? qtText(words_->menuSymbol) : QString();
}

QString IntentModel::text() const {
    return words_ ? qtText(words_->text) : QString();
}

void IntentModel::choose(int row) {
    const bool exists =
        words_ && row >= 0 && static_cast<std::size_t>(row) < words_->destinations.size();
    if (!exists || !*state_.account) return;
    const auto& chosen = words_->destinations[static_cast<std::size_t>(row)];
    state_.destinations.set((*state_.account)->id, chosen.name);
}

}  // namespace brindlet::screens
