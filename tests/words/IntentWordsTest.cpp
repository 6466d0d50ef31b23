#include "words/IntentWords.h"

#include <gtest/gtest.h>

#include "words/Session.h"

namespace brindlet {
namespace {

using Role = MailFolder::Role;

constexpr const char* trains =
    "Marking mail here trains Google's filter against those senders and can stop them reaching you "
    "at all - and Google clears Spam after about 30 days. Brindlet Junk keeps everything instead.";
constexpr const char* fresh =
    "Brindlet will create it the first time it moves anything. Nothing is ever deleted.";
constexpr const char* own =
    "A folder this account already has. Nothing is ever deleted - you can move anything back.";
constexpr const char* mailComes =
    " On Gmail the move runs through Mail itself, so Mail comes to the front while it works.";

void giveFolders(Session& session, const std::vector<MailFolder>& folders) {
    session->account.mutate([&](auto& account) {
        account->folders.insert(account->folders.end(), folders.begin(), folders.end());
    });
}

Session& selectGmail(Session& session) {
    session.select(Session::folder(Role::inbox, "INBOX"));
    giveFolders(session, {{7, "[Gmail]/All Mail", 1, Role::archive}});
    return session;
}

TEST(IntentWords, AreNoneWithoutAnAccount) {
    Session session;
    EXPECT_FALSE(intentWords(session));
    EXPECT_EQ(destinationTint(session), DestinationTint::fresh);
}

TEST(IntentWords, AFolderOfJunkWorksBackwardsWhateverTheAccount) {
    for (const bool gmail : {false, true}) {
        Session session;
        if (gmail) selectGmail(session);
        session->folder.set(Session::folder(Role::junk, "Spam"));
        const auto words = intentWords(session);
        ASSERT_TRUE(words);
        EXPECT_EQ(words->symbol, "arrow.uturn.left");
        EXPECT_EQ(words->backwards, "This is a junk folder, so Brindlet works backwards here");
        EXPECT_EQ(words->text,
                  "It looks for real mail that got filtered by mistake and offers to move it back "
                  "to your inbox. Anything Brindlet filed here itself is skipped.");
        EXPECT_EQ(words->destination, "");
        EXPECT_TRUE(words->destinations.empty());
    }
}

TEST(IntentWords, StandBeforeAFolderIsChosen) {
    Session session;
    session.select(Session::folder(Role::inbox));
    session->folder.set(std::nullopt);
    EXPECT_TRUE(intentWords(session));
}

TEST(IntentWords, TellOfTheDestination) {
    const struct {
        bool gmail;
        const char* destination;
        bool exists;
        const char* symbol;
        DestinationTint tint;
        std::string text;
    } rows[] = {
        {false, "Brindlet Junk", false, "folder.badge.plus", DestinationTint::fresh, fresh},
        {false, "Brindlet Junk", true, "tray.full", DestinationTint::own, own},
        {false, "Spam", true, "tray.full", DestinationTint::own, own},
        {true, "Brindlet Junk", false, "folder.badge.plus", DestinationTint::fresh,
         std::string(fresh) + mailComes},
        {true, "Receipts", true, "tray.full", DestinationTint::own, std::string(own) + mailComes},
        {true, "[Gmail]/Spam", true, "tray.full", DestinationTint::spam, trains},
        {true, "SPAMMY", true, "tray.full", DestinationTint::spam, trains},
        // Neither of these counts as a label, so that the mail program stays where it is.
        {true, "Trash", true, "tray.full", DestinationTint::own, own},
        {true, "Cabin", true, "tray.full", DestinationTint::own, own},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.gmail << " " << row.destination << row.exists);
        Session session;
        session.select(Session::folder(Role::inbox, "INBOX"));
        if (row.gmail) selectGmail(session);
        if (row.exists) giveFolders(session, {{9, row.destination, 1, Role::custom}});
        session->destinations.set("A1", row.destination);
        const auto words = intentWords(session);
        ASSERT_TRUE(words);
        EXPECT_EQ(words->backwards, "");
        EXPECT_EQ(words->destination, row.destination);
        EXPECT_EQ(words->symbol, row.symbol);
        EXPECT_EQ(words->tint, row.tint);
        EXPECT_EQ(destinationTint(session), row.tint);
        EXPECT_EQ(words->text, row.text);
    }
}

// A connected account's mail goes another way, and the sentence stands all the same.
TEST(IntentWords, SayThatMailComesToTheFrontThoughGmailIsConnected) {
    Session session;
    selectGmail(session)->gmailConnected.set({"ann@x.com"});
    EXPECT_EQ(intentWords(session)->text, std::string(fresh) + mailComes);
}

TEST(IntentWords, EachEntryOfTheMenuSaysWhatItIs) {
    const std::vector<MailFolder> folders = {{2, "Gmail Spam", 3, Role::junk},
                                             {3, "Junk", 44, Role::junk},
                                             {4, "Receipts", 99, Role::custom}};
    Session session;
    giveFolders(selectGmail(session), folders);
    EXPECT_EQ(intentWords(session)->destinations,
              (std::vector<DestinationWords>{
                  {"Junk", "Junk - already in this account", "", true, "checkmark"},
                  {"Gmail Spam",
                   "Gmail Spam - also trains Google, and it clears the folder after 30 days", "",
                   false, ""},
                  {"Brindlet Junk", "Brindlet Junk - a new folder Brindlet makes", "", false, ""},
              }));
    Session other;
    other.select(Session::folder(Role::inbox, "INBOX"));
    giveFolders(other, folders);
    EXPECT_EQ(intentWords(other)->destinations[1].label, "Gmail Spam - already in this account")
        << "only Google's is trained";
}

// Odd but so: the menu calls it new, and the sentence below says that it is there.
TEST(IntentWords, OurOwnFolderIsCalledNewThoughItExists) {
    for (const auto role : {Role::junk, Role::custom}) {
        SCOPED_TRACE(rawValue(role));
        Session session;
        session.select(Session::folder(Role::inbox, "INBOX"));
        giveFolders(session, {{2, "Brindlet Junk", 3, role}});
        const auto words = intentWords(session);
        ASSERT_EQ(words->destinations.size(), 1U);
        EXPECT_EQ(words->destinations[0].label, "Brindlet Junk - a new folder Brindlet makes");
        EXPECT_EQ(words->text, own);
    }
}

TEST(IntentWords, AChosenFolderThatIsNoneOfJunkIsNamedAndNotOnTheMenu) {
    Session session;
    session.select(Session::folder(Role::inbox, "INBOX"));
    giveFolders(session, {{3, "Club", 1, Role::custom}, {4, "Junk", 1, Role::junk}});
    session->destinations.set("A1", "Club");
    const auto words = intentWords(session);
    EXPECT_EQ(words->destination, "Club");
    EXPECT_EQ(words->destinations.size(), 2U);
    for (const auto& destination : words->destinations) EXPECT_FALSE(destination.chosen);
}

// The two menus of the same folders have words of their own.
TEST(IntentWords, AreNotThoseOfTheMoveBar) {
    Session session;
    session.select(Session::folder(Role::inbox, "INBOX"));
    EXPECT_EQ(intentWords(session)->destinations[0].label,
              "Brindlet Junk - a new folder Brindlet makes");
    EXPECT_EQ(moveWords(session).destinations[0].label, "Brindlet Junk (new folder)");
}

}  // namespace
}  // namespace brindlet
