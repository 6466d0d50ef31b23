#include "screens/unsupported/UnsupportedModel.h"

#include <utility>

#include "platform/Desktop.h"
#include "screens/QtText.h"
#include "session/AppState.h"

namespace brindlet::screens {

void UnsupportedModel::refresh() {
    auto words = unsupportedWords(state_);
    shown_ = words.has_value();
    // What goes keeps its words until it is gone.
    if (!words || *words == words_) return;
    words_ = std::move(*words);
    Q_EMIT textChanged();
}

QString UnsupportedModel::symbol() const {
    return qtText(words_.symbol);
}

QString UnsupportedModel::title() const {
    return qtText(words_.title);
}

QString UnsupportedModel::text() const {
    return qtText(words_.text);
}

QString UnsupportedModel::openSettingsLabel() const {
    return qtText(words_.openSettings);
}

void UnsupportedModel::openSettings() {
    state_.services().desktop.openSettings();
}

}  // namespace brindlet::screens
