#include "screens/gmail/GmailNoticeModel.h"

#include <utility>
#include <vector>

#include "screens/QtText.h"
#include "screens/look/Tone.h"
#include "session/AppState.h"
#include "words/SpokenWords.h"

namespace brindlet::screens {

GmailNoticeModel::GmailNoticeModel(AppState& state) : state_(state) {
    std::vector<LinesModel::Line> lines;
    for (const auto& line : permission_.lines) lines.emplace_back(line.symbol, line.text);
    lines_.set(std::move(lines));
}

void GmailNoticeModel::refresh() {
    auto words = gmailNoticeWords(state_);
    if (words == words_) return;
    words_ = std::move(words);
    if (!words_) setExpanded(false);
    Q_EMIT wordsChanged();
}

void GmailNoticeModel::leave() {
    setExpanded(false);
}

QString GmailNoticeModel::symbol() const {
    return words_ ? qtText(words_->symbol) : QString();
}

int GmailNoticeModel::tone() const {
    return words_ ? tones::of({{}, words_->tone, {}}) : tones::Plain;
}

QString GmailNoticeModel::title() const {
    return words_ ? qtText(words_->title) : QString();
}

QString GmailNoticeModel::text() const {
    return words_ ? qtText(words_->text) : QString();
}

QString GmailNoticeModel::control() const {
    return words_ ? qtText(words_->control) : QString();
}

QString GmailNoticeModel::disclosure() const {
    return qtText(expanded_ ? permission_.less : permission_.more);
}

QString GmailNoticeModel::disclosureSymbol() const {
    return qtText(expanded_ ? permission_.lessSymbol : permission_.moreSymbol);
}

QString GmailNoticeModel::disclosureState() const {
    return qtText(expanded_ ? spoken::expanded : spoken::collapsed);
}

void GmailNoticeModel::press() {
    if (!words_ || !*state_.account) return;
    const MailAccount account = **state_.account;
    if (words_->connected)
        state_.disconnectGmail(account);
    else
        state_.connectGmail(account);
}

void GmailNoticeModel::toggle() {
    setExpanded(!expanded_);
}

void GmailNoticeModel::setExpanded(bool expanded) {
    if (std::exchange(expanded_, expanded) != expanded) Q_EMIT expandedChanged();
}

}  // namespace brindlet::screens
