#include "screens/results/UndoModel.h"

#include "screens/QtText.h"
#include "session/AppState.h"

namespace brindlet::screens {

void UndoModel::refresh() {
    auto words = undoWords(state_);
    if (words == words_) return;
    words_ = std::move(words);
    Q_EMIT wordsChanged();
}

QString UndoModel::symbol() const {
    return words_ ? qtText(words_->symbol) : QString();
}

QString UndoModel::text() const {
    return words_ ? qtText(words_->text) : QString();
}

QString UndoModel::label() const {
    return words_ ? qtText(words_->label) : QString();
}

QString UndoModel::help() const {
    return words_ ? qtText(words_->help) : QString();
}

void UndoModel::press() {
    state_.undoSweep();
}

}  // namespace brindlet::screens
