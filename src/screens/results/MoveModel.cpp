#include "screens/results/MoveModel.h"

#include <utility>

#include "screens/QtText.h"
#include "screens/look/Tone.h"
#include "session/AppState.h"
#include "words/SpokenWords.h"

namespace brindlet::screens {

void MoveModel::refresh() {
    auto words = moveWords(state_);
    if (words == words_) return;
    words_ = std::move(words);
    destinations_.set(words_.destinations);
    Q_EMIT wordsChanged();
}

QString MoveModel::symbol() const {
    return qtText(words_.symbol);
}

QString MoveModel::label() const {
    return qtText(words_.label);
}

QString MoveModel::stopLabel() const {
    return qtText(words_.stop);
}

QString MoveModel::stopHelp() const {
    return qtText(words_.stopHelp);
}

QString MoveModel::menuSymbol() const {
    return qtText(words_.menuSymbol);
}

QString MoveModel::menuHelp() const {
    return qtText(words_.menuHelp);
}

QString MoveModel::statusSymbol() const {
    return words_.status ? qtText(words_.status->symbol) : QString();
}

int MoveModel::statusTone() const {
    using State = MoveStatusWords::State;
    if (!words_.status || words_.status->state == State::running) return tones::Plain;
    return words_.status->state == State::done ? tones::Green : tones::Orange;
}

QString MoveModel::statusTitle() const {
    return words_.status ? qtText(words_.status->title) : QString();
}

QString MoveModel::statusText() const {
    return words_.status ? qtText(words_.status->text) : QString();
}

QString MoveModel::count() const {
    return words_.status ? qtText(words_.status->count) : QString();
}

QString MoveModel::progressName() const {
    return qtText(spoken::progress);
}

void MoveModel::press() {
    state_.startMove();
}

void MoveModel::stop() {
    state_.mover().stopMove();
}

void MoveModel::choose(int row) {
    const bool exists = row >= 0 && static_cast<std::size_t>(row) < words_.destinations.size();
    if (!exists || !*state_.account) return;
    const auto& chosen = words_.destinations[static_cast<std::size_t>(row)];
    state_.destinations.set((*state_.account)->id, chosen.name);
}

}  // namespace brindlet::screens
