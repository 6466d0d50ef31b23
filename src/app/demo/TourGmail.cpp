#include <QQuickItem>
#include <cstdio>

#include "app/MainWindow.h"
#include "app/demo/MailCounts.h"
#include "app/demo/Tour.h"
#include "mail/GmailAccount.h"
#include "sample/GmailLabels.h"
#include "sample/GmailSettings.h"
#include "session/AppState.h"
#include "session/MoveStages.h"
#include "words/GmailAskWords.h"

namespace brindlet::demo {
namespace {

/// Seconds for each answer of the server, so that what goes on meanwhile can be looked at.
constexpr double leisure = 0.2;

/// Sixteen letters of which the server knows nothing.
constexpr const char* wrong = "abcd abcd abcd abcd";

/// Whether a thing is there and has come in to the full.
bool isOpaque(const QQuickItem* item) {
    if (!item) return false;
    for (; item; item = item->parentItem())
        if (item->opacity() < 1) return false;
    return true;
}

}  // namespace

void Tour::gmail() {
    chooseGmail();
    askForGmail();
    connectGmail();
    scanGmail();
    fileOnGmail();
    putBackOnGmail();
    disconnectGmail();
}

std::string Tour::appPassword() const {
    const auto settings = sample::readGmailSettings(world_.directories.home());
    if (!settings || !*state_.account) return {};
    const auto own = settings->passwords.find((*state_.account)->address);
    return own == settings->passwords.end() ? std::string() : own->second;
}

bool Tour::setGmailDelay(double seconds) const {
    auto settings = sample::readGmailSettings(world_.directories.home());
    if (!settings) return false;
    settings->faults.delay = seconds;
    return sample::writeGmailSettings(world_.directories.home(), *settings);
}

Tour::LabelCounts Tour::countLabels() const {
    const std::string home = world_.directories.home();
    const std::string& account = (*state_.account)->id;
    const std::string all(sample::gmailAllMail);
    return {messagesListed(home, account, "INBOX"),
            messagesListed(home, account, state_.destinationName()),
            messagesListed(home, account, all), messageFiles(home, account, all)};
}

void Tour::chooseGmail() {
    step(QStringLiteral("click Scan another"),
         [this] { return hand_.click(QStringLiteral("scanAnother")); });
    step(QStringLiteral("take the Gmail account from the menu of accounts, by keyboard"), [this] {
        if (!hand_.await([this] { return hand_.find(QStringLiteral("accounts")); }) ||
            !hand_.tabTo(QStringLiteral("accounts")))
            return false;
        hand_.press(Qt::Key_Space);
        hand_.press(Qt::Key_Down);
        hand_.press(Qt::Key_Return);
        return hand_.await([this] { return *state_.account && isGmail(**state_.account); });
    });
    step(QStringLiteral("click its inbox"), [this] {
        return hand_.clickRow(QStringLiteral("folders"), 0) && hand_.await([this] {
            return *state_.folder && (*state_.folder)->name == "INBOX" &&
                   *state_.inReach == (*state_.folder)->count;
        });
    });
    picture(QStringLiteral("gmail-pick"));
    step(QStringLiteral("open the menu of where junk will go, by keyboard"), [this] {
        if (!hand_.tabTo(QStringLiteral("destination"))) return false;
        hand_.press(Qt::Key_Space);
        return hand_.await([this] { return isOpaque(hand_.find(QStringLiteral("destination0"))); });
    });
    picture(QStringLiteral("gmail-destinations"));
    step(QStringLiteral("leave it with Escape"), [this] {
        hand_.press(Qt::Key_Escape);
        return hand_.await([this] { return !hand_.find(QStringLiteral("destination0")); });
    });
}

void Tour::askForGmail() {
    step(QStringLiteral("click Sort it: the question about Gmail comes first"), [this] {
        return hand_.click(QStringLiteral("sort")) && hand_.await([this] {
            return hand_.find(QStringLiteral("gmailAsk")) && *state_.askingGmail &&
                   !*state_.running;
        });
    });
    picture(QStringLiteral("gmail-question"));
    step(QStringLiteral("allow it, with Return"), [this] {
        if (!hand_.rest()) return false;
        hand_.press(Qt::Key_Return);
        return hand_.await([this] {
            const auto* const field = hand_.find(QStringLiteral("appPassword"));
            return field && field->hasActiveFocus();
        });
    });
    picture(QStringLiteral("gmail-app-password"));
}

void Tour::tryAppPassword(const QString& appPassword) {
    const auto& ask = *main_.model().gmailAsk();
    step(QStringLiteral("with fifteen characters there is nothing to press yet"), [&] {
        hand_.type(appPassword.first(15));
        return hand_.rest() && !ask.canPress();
    });
    step(QStringLiteral("type the rest, and press Return"), [&] {
        hand_.type(appPassword.sliced(15));
        if (!ask.canPress()) return false;
        hand_.press(Qt::Key_Return);
        return ask.checking();
    });
}

void Tour::connectGmail() {
    step(QStringLiteral("from now on the server takes its time"),
         [this] { return setGmailDelay(leisure); });
    const auto& ask = *main_.model().gmailAsk();
    tryAppPassword(QString::fromLatin1(wrong));
    picture(QStringLiteral("gmail-checking"));
    step(QStringLiteral("a wrong app password is told"), [&] {
        return hand_.await([&] { return !ask.checking(); }) &&
               ask.status().startsWith(QStringLiteral("Gmail refused the sign-in: ")) &&
               *state_.askingGmail && !state_.gmail()->hasAppPassword((*state_.account)->address);
    });
    picture(QStringLiteral("gmail-refused"));
    // The good news stands for less than a second.
    bool connected = false;
    const auto watch =
        QObject::connect(&ask, &screens::GmailAskModel::askChanged, &ask, [&ask, &connected] {
            connected = connected || ask.status().toStdString() == gmailConnectedStatus;
        });
    step(QStringLiteral("empty the field"), [&] {
        for (int i = 0; i < 20; ++i) hand_.press(Qt::Key_Backspace);
        return hand_.rest() && !ask.canPress();
    });
    tryAppPassword(QString::fromStdString(appPassword()));
    step(QStringLiteral("the right one connects the account"),
         [&] { return hand_.await([&] { return connected; }); });
    picture(QStringLiteral("gmail-connected"));
    QObject::disconnect(watch);
    step(QStringLiteral("the app password is kept, and the sheet goes"), [this] {
        return hand_.await([this] { return !*state_.askingGmail; }) &&
               state_.gmailConnected->contains((*state_.account)->address) &&
               state_.gmail()->hasAppPassword((*state_.account)->address);
    });
}

void Tour::scanGmail() {
    step(QStringLiteral("the scan that was asked for begins by itself"), [this] {
        return hand_.await([this] {
            return *state_.screen == AppState::Screen::results && !*state_.running &&
                   hand_.find(QStringLiteral("resultsTitle")) != nullptr;
        });
    });
    step(QStringLiteral("the inbox has been sorted"), [this] {
        std::printf("   %lld messages, %lld junk\n",
                    static_cast<long long>(state_.verdicts->size()),
                    static_cast<long long>(state_.verdicts->junkCount()));
        return !state_.verdicts->empty();
    });
}

void Tour::fileOnGmail() {
    LabelCounts before;
    std::int64_t ticked = 0;
    step(QStringLiteral("walk to the button that moves what is ticked, and press it"), [&] {
        before = countLabels();
        ticked = movableTicks();
        if (ticked == 0 || !hand_.tabTo(QStringLiteral("move"))) return false;
        hand_.press(Qt::Key_Return);
        return hand_.await([this] { return *state_.moveStage == moves::filing; });
    });
    picture(QStringLiteral("gmail-filing"));
    step(QStringLiteral("it ends well"),
         [this] { return hand_.await([this] { return !*state_.moving; }) && !*state_.moveError; });
    step(QStringLiteral("as many messages have lost the label of the inbox and got the new one"),
         [&] {
             const auto now = countLabels();
             std::printf("   %s: %lld listed there, %lld in the inbox\n", state_.moveNote->c_str(),
                         static_cast<long long>(now.destination),
                         static_cast<long long>(now.inbox));
             return now.inbox == before.inbox - ticked &&
                    now.destination == before.destination + ticked;
         });
    step(QStringLiteral("and nothing is deleted"), [&] {
        const auto now = countLabels();
        std::printf("   %lld messages in All Mail, in %lld files, as before\n",
                    static_cast<long long>(now.all), static_cast<long long>(now.files));
        return now.all == before.all && now.files == before.files;
    });
    picture(QStringLiteral("gmail-filed"));
}

void Tour::putBackOnGmail() {
    tickFirstMoved();
    LabelCounts before;
    step(QStringLiteral("put it back: the mail program finds it, and can only give it its label"),
         [&] {
             before = countLabels();
             if (!hand_.tabTo(QStringLiteral("putBack"))) return false;
             hand_.press(Qt::Key_Return);
             if (!*state_.moving || !hand_.await([this] { return !*state_.moving; })) return false;
             const auto now = countLabels();
             std::printf("   %lld in the inbox, %lld in %s\n", static_cast<long long>(now.inbox),
                         static_cast<long long>(now.destination), state_.destinationName().c_str());
             return now.inbox == before.inbox + 1 && now.destination == before.destination &&
                    *state_.moveError &&
                    (*state_.moveError)->find("tagged the message with INBOX") != std::string::npos;
         });
    step(QStringLiteral("walk to the bar, which says so"),
         [this] { return hand_.tabTo(QStringLiteral("destinations")); });
    picture(QStringLiteral("gmail-put-back"));
}

void Tour::disconnectGmail() {
    step(QStringLiteral("click Scan another"),
         [this] { return hand_.click(QStringLiteral("scanAnother")); });
    step(QStringLiteral("the picker says that Gmail is connected"), [this] {
        return hand_.await([this] {
            return hand_.find(QStringLiteral("gmailControl")) &&
                   main_.model().pick()->gmail()->connected() && !*state_.refreshingFolders &&
                   *state_.inReach < (*state_.folder)->count;
        });
    });
    picture(QStringLiteral("gmail-connected-pick"));
    step(QStringLiteral("open what the permission means"), [this] {
        return hand_.click(QStringLiteral("gmailDisclosure")) && hand_.await([this] {
            return hand_.find(QStringLiteral("gmailPermission")) != nullptr;
        });
    });
    picture(QStringLiteral("gmail-permission"));
    step(QStringLiteral("click Disconnect: the app password is forgotten"), [this] {
        const std::string address = (*state_.account)->address;
        return hand_.click(QStringLiteral("gmailControl")) && hand_.await([&] {
            return !state_.gmail()->hasAppPassword(address) && state_.gmailConnected->empty();
        });
    });
    picture(QStringLiteral("gmail-disconnected"));
}

}  // namespace brindlet::demo
