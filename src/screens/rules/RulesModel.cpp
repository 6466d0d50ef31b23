#include "screens/rules/RulesModel.h"

#include "screens/QtText.h"
#include "session/AppState.h"
#include "words/SpokenWords.h"

namespace brindlet::screens {

RulesModel::RulesModel(AppState& state)
    : state_(state), learned_(state), rules_(state, ruleSections) {
    showChoices();
}

void RulesModel::refresh() {
    learned_.refresh();
    rules_.refresh();
    auto words = rulesWords(state_);
    if (words == words_) return;
    words_ = std::move(words);
    // Nothing is left for the second step.
    if (!words_.canForgetAll) forgettingAll_ = false;
    Q_EMIT changed();
}

void RulesModel::leave() {
    rules_.leave();
    learned_.leave();
    forgettingAll_ = false;
    kind_ = 0;
    verdict_ = Rule::Verdict::junk;
    showChoices();
    Q_EMIT changed();
}

void RulesModel::showChoices() {
    const RuleFormWords words;
    PickMenu kinds;
    for (const auto category : ruleCategories())
        kinds.labels.push_back(ruleCategoryLabel(category));
    kinds.chosen = static_cast<int>(kind_);
    kinds_.set(std::move(kinds));
    verdicts_.set({{words.isJunk, words.isKept}, static_cast<int>(verdict_)});
}

QString RulesModel::backName() const {
    return qtText(spoken::back);
}

QString RulesModel::title() const {
    return qtText(words_.title);
}

QString RulesModel::counts() const {
    return qtText(words_.counts);
}

QString RulesModel::nothing() const {
    return qtText(words_.nothing);
}

QString RulesModel::forgetAllLabel() const {
    const RuleFormWords words;
    return qtText(forgettingAll_ ? words.forgetAllReally : words.forgetAll);
}

QString RulesModel::prompt() const {
    return qtText(RuleFormWords().prompt);
}

QString RulesModel::kindName() const {
    return qtText(spoken::kindOfMail);
}

QString RulesModel::verdictName() const {
    return qtText(spoken::ruleSays);
}

QString RulesModel::addLabel() const {
    return qtText(RuleFormWords().add);
}

QString RulesModel::note() const {
    return qtText(RuleFormWords().note);
}

void RulesModel::back() {
    state_.goBack();
}

void RulesModel::forgetAll() {
    if (forgettingAll_) state_.rules.forgetAll();
    forgettingAll_ = !forgettingAll_;
    Q_EMIT changed();
}

void RulesModel::chooseKind(int row) {
    if (row < 0 || row >= kinds_.rowCount()) return;
    kind_ = static_cast<std::size_t>(row);
    showChoices();
}

void RulesModel::chooseVerdict(int row) {
    if (row < 0 || row >= verdicts_.rowCount()) return;
    verdict_ = allCases<Rule::Verdict>()[static_cast<std::size_t>(row)];
    showChoices();
}

bool RulesModel::add(const QString& sender) {
    return state_.rules
        .add(sender.toStdString(), ruleCategories()[kind_], verdict_, Rule::Scope::always,
             RuleFormWords().example, {})
        .has_value();
}

}  // namespace brindlet::screens
