#include <QQuickItem>

#include "app/MainWindow.h"
#include "app/demo/Tour.h"
#include "mail/GmailAccount.h"
#include "sample/GmailSettings.h"
#include "session/AppState.h"
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
    step(QStringLiteral("from now on the server is quick again"),
         [this] { return setGmailDelay(0); });
    putBackOnGmail();
    disconnectGmail();
    declineGmail();
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
    picture(QStringLiteral("gmail-pick"), {"gmail.apart", "gmail.closed", "intent.label"});
    step(QStringLiteral("open the menu of where junk will go, by keyboard"), [this] {
        if (!hand_.tabTo(QStringLiteral("destination"))) return false;
        hand_.press(Qt::Key_Space);
        return hand_.await([this] { return isOpaque(hand_.find(QStringLiteral("destination0"))); });
    });
    picture(QStringLiteral("gmail-destinations"), {"intent.entrySpam"});
    step(QStringLiteral("leave it with Escape"), [this] {
        hand_.press(Qt::Key_Escape);
        return hand_.await([this] { return !hand_.find(QStringLiteral("destination0")); });
    });
    spamDestination();
}

void Tour::takeDestination(const char* ending) {
    step(QStringLiteral("open the menu of where junk will go, and take the entry that ends in ") +
             QString::fromUtf8(ending),
         [&] {
             const auto entry = [&]() -> QString {
                 for (int i = 0;; ++i) {
                     const auto name = QStringLiteral("destination%1").arg(i);
                     const auto* const item = hand_.find(name);
                     if (!item) return {};
                     const auto text = item->property("text").toString();
                     if (text.endsWith(QString::fromUtf8(ending))) return name;
                 }
             };
             return hand_.click(QStringLiteral("destination")) &&
                    hand_.await([&] { return !entry().isEmpty(); }) && hand_.click(entry()) &&
                    hand_.await([&] { return entry().isEmpty(); });
         });
}

void Tour::newDestination() {
    step(QStringLiteral("open the menu of where junk will go"), [this] {
        return hand_.click(QStringLiteral("destination")) &&
               hand_.await([this] { return isOpaque(hand_.find(QStringLiteral("destination0"))); });
    });
    picture(QStringLiteral("destinations"), {"intent.entryNew", "intent.entry"});
    step(QStringLiteral("leave it with Escape"), [this] {
        hand_.press(Qt::Key_Escape);
        return hand_.await([this] { return !hand_.find(QStringLiteral("destination0")); });
    });
    takeDestination(" - a new folder Brindlet makes");
    picture(QStringLiteral("destination-new"), {"intent.missing"});
    takeDestination("Junk - already in this account");
}

void Tour::spamDestination() {
    takeDestination(" after 30 days");
    picture(QStringLiteral("destination-spam"), {"intent.spam"});
    takeDestination(" - a new folder Brindlet makes");
}

void Tour::askForGmail() {
    step(QStringLiteral("click Sort it: the question about Gmail comes first"), [this] {
        return hand_.click(QStringLiteral("sort")) && hand_.await([this] {
            return hand_.find(QStringLiteral("gmailAsk")) && *state_.askingGmail &&
                   !*state_.running;
        });
    });
    picture(QStringLiteral("gmail-question"),
            {"gmail.ask", "gmail.cases", "gmail.promises", "gmail.answers"});
    step(QStringLiteral("allow it, with Return"), [this] {
        if (!hand_.rest()) return false;
        hand_.press(Qt::Key_Return);
        return hand_.await([this] {
            const auto* const field = hand_.find(QStringLiteral("appPassword"));
            return field && field->hasActiveFocus();
        });
    });
    picture(QStringLiteral("gmail-app-password"), {"gmail.password"});
}

void Tour::tryAppPassword(const QString& appPassword) {
    const auto& ask = *main_.model().gmailAsk();
    step(QStringLiteral("with fifteen characters there is nothing to press yet"), [&] {
        if (appPassword.size() < 16) return false;
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
    glimpse(QStringLiteral("gmail-checking"), {"gmail.checking"});
    step(QStringLiteral("a wrong app password is told"), [&] {
        return hand_.await([&] { return !ask.checking(); }) &&
               ask.status().startsWith(QStringLiteral("Gmail refused the sign-in: ")) &&
               *state_.askingGmail && !state_.gmail()->hasAppPassword((*state_.account)->address);
    });
    picture(QStringLiteral("gmail-refused"), {"gmail.refused"});
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
    glimpse(QStringLiteral("gmail-connected"), {"gmail.accepted"});
    QObject::disconnect(watch);
    step(QStringLiteral("the app password is kept, and the sheet goes"), [this] {
        return hand_.await([this] { return !*state_.askingGmail; }) &&
               state_.gmailConnected->contains((*state_.account)->address) &&
               state_.gmail()->hasAppPassword((*state_.account)->address);
    });
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
    picture(QStringLiteral("gmail-connected-pick"), {"gmail.connected"});
    step(QStringLiteral("open what the permission means"), [this] {
        return hand_.click(QStringLiteral("gmailDisclosure")) && hand_.await([this] {
            return hand_.find(QStringLiteral("gmailPermission")) != nullptr;
        });
    });
    picture(QStringLiteral("gmail-permission"), {"gmail.open"});
    step(QStringLiteral("click Disconnect: the app password is forgotten"), [this] {
        const std::string address = (*state_.account)->address;
        return hand_.click(QStringLiteral("gmailControl")) && hand_.await([&] {
            return !state_.gmail()->hasAppPassword(address) && state_.gmailConnected->empty();
        });
    });
    picture(QStringLiteral("gmail-disconnected"));
}

void Tour::declineGmail() {
    step(QStringLiteral("click Sort it: the question comes again; decline"), [this] {
        return hand_.click(QStringLiteral("sort")) &&
               hand_.await([this] { return hand_.find(QStringLiteral("gmailAsk")); }) &&
               hand_.click(QStringLiteral("declineGmail"));
    });
    scanGmailAgain();
}

void Tour::scanGmailAgain() {
    step(QStringLiteral("the scan finds nothing that is new"), [this] {
        return hand_.await([this] {
            return !*state_.askingGmail && *state_.screen == AppState::Screen::results &&
                   !*state_.running && hand_.find(QStringLiteral("resultsTitle")) != nullptr;
        });
    });
    picture(QStringLiteral("gmail-nothing"), {"nothing.inbox"});
}

}  // namespace brindlet::demo
