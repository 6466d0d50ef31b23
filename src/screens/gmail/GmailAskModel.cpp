#include "screens/gmail/GmailAskModel.h"

#include <QByteArray>
#include <QPointer>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Graphemes.h"
#include "platform/Clock.h"
#include "platform/Desktop.h"
#include "platform/MainQueue.h"
#include "screens/QtText.h"
#include "screens/look/Tone.h"
#include "session/AppState.h"
#include "words/GooglePages.h"

namespace brindlet::screens {
namespace {

/// Seconds that the good news stands before the question goes.
constexpr double readingTime = 0.7;

}  // namespace

/// What a test takes along.
struct GmailAskModel::Check {
    /// Looked at on the main thread only.
    QPointer<GmailAskModel> model;
    int question = 0;
    MailAccount account;
    Gmail::SignIn signIn;
    std::shared_ptr<Gmail> gmail;
    MainQueue& queue;
    Clock& clock;
};

GmailAskModel::GmailAskModel(AppState& state) : state_(state) {
    std::vector<LinesModel::Line> lines;
    for (const auto& promise : words_.promises) lines.emplace_back(promise.symbol, promise.text);
    promises_.set(std::move(lines));
}

void GmailAskModel::refresh() {
    if (*state_.askingGmail != account_) begin(*state_.askingGmail);
}

void GmailAskModel::leave() {
    if (account_) begin(std::nullopt);
}

void GmailAskModel::begin(std::optional<MailAccount> account) {
    ++question_;
    appPassword_ = {};
    account_ = std::move(account);
    // What goes keeps its words until it is gone.
    if (account_) {
        address_ = account_->address;
        setAsk({});
    }
    Q_EMIT askedChanged();
}

void GmailAskModel::setAsk(GmailAsk ask) {
    if (ask == ask_) return;
    ask_ = std::move(ask);
    Q_EMIT askChanged();
}

void GmailAskModel::type(const QString& appPassword) {
    QByteArray text = appPassword.toUtf8();
    appPassword_ =
        Secret(std::string_view(text.constData(), static_cast<std::size_t>(text.size())));
    text.fill('\0');
    auto ask = ask_;
    ask.longEnough = !hasFewerGraphemes(appPassword_.text(), appPasswordLength);
    setAsk(std::move(ask));
}

void GmailAskModel::press() {
    if (!account_ || !canPress()) return;
    auto ask = ask_;
    if (!ask.connecting) {
        ask.connecting = true;
        return setAsk(std::move(ask));
    }
    ask.checking = true;
    ask.status.reset();
    setAsk(std::move(ask));
    const auto& services = state_.services();
    const auto check =
        std::make_shared<const Check>(Check{this,
                                            question_,
                                            *account_,
                                            {account_->address, Secret(appPassword_.text())},
                                            state_.gmail(),
                                            services.mainQueue,
                                            services.clock});
    checkTask_ = Task::start(TaskPriority::userInitiated,
                             [check](const CancelToken& token) { run(*check, token); });
}

void GmailAskModel::run(const Check& check, const CancelToken& token) {
    const auto tell = [&](void (GmailAskModel::*what)(const Check&)) {
        return hop(check.queue, [&] {
            if (check.model) (check.model->*what)(check);
        });
    };
    if (const auto sentence = check.gmail->testAppPassword(check.signIn)) {
        (void)hop(check.queue, [&] {
            if (check.model) check.model->showFailure(check, *sentence);
        });
        return;
    }
    check.gmail->saveAppPassword(check.signIn);
    if (!tell(&GmailAskModel::showConnected)) return;
    check.clock.sleep(readingTime, token);
    (void)tell(&GmailAskModel::finish);
}

bool GmailAskModel::isOpen(const Check& check) const {
    return check.question == question_ && *state_.askingGmail == check.account;
}

void GmailAskModel::showFailure(const Check& check, const std::string& sentence) {
    if (!isOpen(check)) return;
    auto ask = ask_;
    ask.status = sentence;
    ask.checking = false;
    setAsk(std::move(ask));
}

void GmailAskModel::showConnected(const Check& check) {
    if (!isOpen(check)) return;
    auto ask = ask_;
    ask.status = gmailConnectedStatus;
    ask.checking = false;
    ask.longEnough = false;
    setAsk(std::move(ask));
    appPassword_ = {};
    Q_EMIT passwordKept();
}

void GmailAskModel::finish(const Check& check) {
    if (isOpen(check)) return state_.gmailLinked(check.account);
    // The answer was no in the meantime, and counts; but the account can be disconnected now.
    state_.gmailConnected.mutate([&](auto& addresses) { addresses.insert(check.account.address); });
}

void GmailAskModel::decline() {
    if (!account_) return;
    const auto account = std::exchange(account_, std::nullopt);
    ++question_;
    appPassword_ = {};
    state_.gmailDeclined(*account);
    Q_EMIT askedChanged();
}

void GmailAskModel::openPage() {
    state_.services().desktop.openLink(googlePages::appPasswords);
}

QString GmailAskModel::symbol() const {
    return qtText(words_.symbol);
}

QString GmailAskModel::title() const {
    return qtText(words_.title);
}

QString GmailAskModel::why() const {
    return qtText(words_.why);
}

QString GmailAskModel::allowSymbol() const {
    return qtText(words_.allowSymbol);
}

QString GmailAskModel::allowTitle() const {
    return qtText(words_.allowTitle);
}

QString GmailAskModel::allowText() const {
    return qtText(words_.allowText);
}

QString GmailAskModel::declineTitle() const {
    return qtText(words_.declineTitle);
}

QString GmailAskModel::declineText() const {
    return qtText(words_.declineText);
}

QString GmailAskModel::explanation() const {
    return qtText(words_.explanation);
}

QString GmailAskModel::warningSymbol() const {
    return qtText(words_.warningSymbol);
}

QString GmailAskModel::warning() const {
    return qtText(words_.warning);
}

QString GmailAskModel::openPageLabel() const {
    return qtText(words_.openPage);
}

QString GmailAskModel::fieldTitle() const {
    return qtText(words_.fieldTitle);
}

QString GmailAskModel::prompt() const {
    return qtText(words_.prompt);
}

QString GmailAskModel::keychain() const {
    return qtText(words_.keychain);
}

QString GmailAskModel::declineLabel() const {
    return qtText(words_.decline);
}

QString GmailAskModel::address() const {
    return qtText(address_);
}

QString GmailAskModel::status() const {
    return qtText(gmailAskStatus(ask_).text);
}

int GmailAskModel::statusTone() const {
    return tones::of(gmailAskStatus(ask_));
}

QString GmailAskModel::label() const {
    return qtText(gmailAskButton(ask_).label);
}

}  // namespace brindlet::screens
