#include "words/GmailNoticeWords.h"

#include <gtest/gtest.h>

#include "words/Session.h"

namespace brindlet {
namespace {

using Role = MailFolder::Role;

void selectGmail(Session& session) {
    session.select(Session::folder(Role::inbox, "INBOX"));
    session->account.mutate([](auto& account) {
        account->folders.push_back({7, "[Gmail]/All Mail", 1, Role::archive});
    });
}

TEST(GmailNoticeWords, StandForGmailAccountsAlone) {
    Session session;
    EXPECT_FALSE(gmailNoticeWords(session));
    session.select(Session::folder(Role::inbox, "INBOX"));
    EXPECT_FALSE(gmailNoticeWords(session));
    selectGmail(session);
    EXPECT_TRUE(gmailNoticeWords(session));
}

TEST(GmailNoticeWords, AskForTheConnection) {
    Session session;
    selectGmail(session);
    session->gmailConnected.set({"someone@else.example"});
    EXPECT_EQ(gmailNoticeWords(session),
              (GmailNoticeWords{
                  false, "exclamationmark.triangle.fill", Tone::orange,
                  "Gmail needs one connection before junk can leave the inbox",
                  "Gmail has labels, not folders. Apple Mail can tag a message but cannot take it "
                  "out of your inbox, so junk piles up in both places.",
                  "Connect Gmail"}));
}

TEST(GmailNoticeWords, TellOfTheConnection) {
    Session session;
    selectGmail(session);
    session->gmailConnected.set({"ann@x.com"});
    EXPECT_EQ(gmailNoticeWords(session),
              (GmailNoticeWords{
                  true, "checkmark.seal.fill", Tone::green,
                  "Gmail connected - moves are instant and silent",
                  "Brindlet files mail through Gmail directly - nothing takes over your Mac. The "
                  "app password sits in your Keychain; the macOS prompt to allow access is "
                  "Brindlet reading it to reach Gmail.",
                  "Disconnect"}));
}

}  // namespace
}  // namespace brindlet
