#include "screens/results/OfferModel.h"

#include "screens/QtText.h"
#include "session/AppState.h"

namespace brindlet::screens {

void OfferModel::refresh() {
    const auto& offer = *state_.pending;
    source_ = offer ? offer->sourceID : 0;
    auto words = offer ? std::optional(offerWords(*offer, state_.services().locale)) : std::nullopt;
    if (words == words_) return;
    words_ = std::move(words);
    buttons_.set(words_ ? words_->buttons : std::vector<OfferButton>());
    Q_EMIT wordsChanged();
}

QString OfferModel::symbol() const {
    return words_ ? qtText(words_->symbol) : QString();
}

QString OfferModel::question() const {
    return words_ ? qtText(words_->question) : QString();
}

QString OfferModel::explanation() const {
    return words_ ? qtText(words_->explanation) : QString();
}

void OfferModel::press(int row) {
    if (!words_ || row < 0 || static_cast<std::size_t>(row) >= words_->buttons.size()) return;
    if (!*state_.pending || (*state_.pending)->sourceID != source_) return;
    const auto& button = words_->buttons[static_cast<std::size_t>(row)];
    const PendingRule offer = **state_.pending;
    if (button.choice)
        state_.applyPendingRule(offer, button.learn, *button.choice);
    else
        state_.dismissPending();
}

}  // namespace brindlet::screens
