#include <cstdio>

#include "app/demo/MailCounts.h"
#include "app/demo/Tour.h"
#include "sample/GmailLabels.h"
#include "session/AppState.h"
#include "session/MoveStages.h"

namespace brindlet::demo {

Tour::LabelCounts Tour::countLabels() const {
    const std::string home = world_.directories.home();
    const std::string& account = (*state_.account)->id;
    const std::string all(sample::gmailAllMail);
    return {messagesListed(home, account, "INBOX"),
            messagesListed(home, account, state_.destinationName()),
            messagesListed(home, account, all), messageFiles(home, account, all)};
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

}  // namespace brindlet::demo
