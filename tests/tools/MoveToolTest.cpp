#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "base/Files.h"
#include "base/Json.h"
#include "doubles/Doubles.h"
#include "sample/HandmadeHome.h"
#include "tools/RunTool.h"

// Whole moves through the tool, the session and the stand-in for the script host: what becomes of
// them with servers and mail programs of all kinds.

namespace brindlet {
namespace {

using Strings = std::vector<std::string>;

constexpr const char* rules =
    R"([{"sender":"shop.example","verdict":"junk","hits":1,"created":0,"example":"","scope":"always"},)"
    R"({"sender":"baker.example","verdict":"keep","hits":1,"created":0,"example":"",)"
    R"("scope":"always"}])";

/// What the tool tells in its last line.
struct End {
    std::int64_t movedCount = -1;
    std::string note;
    std::string error;
    /// None when no move is left to go on with.
    std::optional<Strings> remaining;
    std::int64_t movedAlready = -1;
};

End endOf(const std::string& printed) {
    const auto start = printed.rfind('\n', printed.size() - 2);
    JsonReader json(printed.substr(start == std::string::npos ? 0 : start + 1));
    End end;
    json.object([&](std::string_view key) {
        if (key == "movedCount") {
            end.movedCount = json.integer();
        } else if (key == "moveNote") {
            end.note = json.string();
        } else if (key == "moveError") {
            if (!json.takeNull()) end.error = json.string();
        } else if (key == "movedAlready") {
            end.movedAlready = json.integer();
        } else if (key == "pending" && !json.takeNull()) {
            end.remaining.emplace();
            json.object([&](std::string_view inner) {
                if (inner != "remaining") return;
                json.array([&] { end.remaining->push_back(json.string()); });
            });
        }
    });
    EXPECT_TRUE(json.finish()) << printed;
    return end;
}

class MoveTool : public testing::Test {
  protected:
    MoveTool() : home(directories.home()) {
        account = home.addAccount("Harbour", "robin@harbour.example");
        // An account is known again by two folders at least.
        home.addMailbox(account, "Projects");
    }
    /// So many messages of the shop, w1@h and so on, and one of Ann's, all of them in INBOX.
    void fill(int wanted, bool gmail = false) {
        sample::HandmadeHome::Message message;
        message.mailbox = home.addMailbox(account, gmail ? "[Gmail]/All Mail" : "INBOX");
        if (gmail) message.labels = {home.addMailbox(account, "INBOX")};
        message.sender = "Shop <news@shop.example>";
        for (int i = 1; i <= wanted; ++i) {
            message.messageId = 'w' + std::to_string(i) + "@h";
            home.addMessage(message);
        }
        message.messageId = "ann@h";
        message.sender = "Ann <ann@baker.example>";
        home.addMessage(message);
        home.settings.accounts[account].gmail = gmail;
    }
    sample::MailSettings::Behaviour& behaviour() { return home.settings.behaviour; }

    std::string command(const std::string& flags = {}) {
        if (!finished) {
            finished = true;
            EXPECT_TRUE(home.finish());
            files::createDirectories(directories.store());
            files::write(directories.store() + "/rules.json", rules);
        }
        return "move_messages --home " + home.home() + " --host " BRINDLET_TOOLS "/osascript" +
               " --store " + directories.store() + ' ' + home.settings.accounts[account].id +
               " INBOX " + flags;
    }
    End move(const std::string& flags = {}) { return endOf(run(command(flags)).printed); }

    doubles::TemporaryDirectories directories;
    sample::HandmadeHome home;
    std::size_t account = 0;
    bool finished = false;
};

TEST_F(MoveTool, MovesWhatTheScanTicksAndTellsHowItEnded) {
    fill(3);
    const auto outcome = run(command());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.printed.rfind(
                  R"({"moveStage":"Finding them in Mail","movedCount":0,"moveTotal":3})", 0),
              0u)
        << outcome.printed;
    const auto end = endOf(outcome.printed);
    EXPECT_EQ(end.movedCount, 3);
    EXPECT_EQ(end.note, "Moved 3 into Brindlet Junk");
    EXPECT_EQ(end.error, "");
    EXPECT_EQ(end.remaining, std::nullopt);
    EXPECT_EQ(end.movedAlready, 3);
}

TEST_F(MoveTool, PutsBackInAProcessOfItsOwnAndOnlyOnce) {
    fill(3);
    move();
    EXPECT_EQ(move("--put-back").note, "Put 3 back in INBOX");
    const auto again = move("--put-back");
    EXPECT_EQ(again.note, "Put 0 back in INBOX");
    EXPECT_EQ(again.movedAlready, 3) << "the record goes on to list them";
}

TEST_F(MoveTool, AStopKeepsWhatHasMovedAndListsTheRest) {
    fill(60);
    behaviour().pace = 0.1;
    const auto end = move("--stop-after 10");
    EXPECT_GE(end.movedCount, 10);
    EXPECT_LT(end.movedCount, 60);
    EXPECT_EQ(end.note,
              "Moved " + std::to_string(end.movedCount) + " of 60 - the rest are still listed");
    EXPECT_EQ(end.error, "");
    EXPECT_EQ(end.remaining, std::nullopt);
}

TEST_F(MoveTool, ASlowServerIsWaitedFor) {
    fill(3);
    behaviour().slowServer = 2;
    const auto end = move();
    EXPECT_EQ(end.note, "Moved 3 into Brindlet Junk");
    EXPECT_EQ(end.remaining, std::nullopt);
}

constexpr const char* tagged =
    "robin@harbour.example tagged the message with Brindlet Junk but left it in INBOX. Gmail "
    "treats folders as labels, so filing there never empties the inbox - only Spam and Bin do. "
    "Nothing else was moved; choose Spam and run it again.";

TEST_F(MoveTool, AServerThatIsTooSlowLooksLikeOneThatOnlyTags) {
    fill(3);
    behaviour().slowServer = 6;
    const auto end = move();
    EXPECT_EQ(end.movedCount, 0);
    EXPECT_EQ(end.error, tagged);
    EXPECT_EQ(end.remaining, (Strings{"w3@h", "w2@h", "w1@h"}));
    // The first has arrived since, and is not found; the others go.
    const auto resumed = move("--resume");
    EXPECT_EQ(resumed.error, tagged) << "as slow as before";
}

TEST_F(MoveTool, AServerThatUndoesAtOnceIsSeenByTheFirstMessage) {
    fill(3);
    behaviour().undoesFreshFolder = 0.5;
    const auto end = move();
    EXPECT_EQ(end.error, tagged);
    EXPECT_EQ(end.movedAlready, 0);
    ASSERT_TRUE(end.remaining);
    EXPECT_EQ(end.remaining->size(), 3u);
    // Now the folder stands, and what comes into it stays.
    EXPECT_EQ(move("--resume").note, "Finished - 3 more moved");
}

TEST_F(MoveTool, AServerThatPutsEverythingBackIsSeenByTheEmptyFolder) {
    fill(1);
    behaviour().undoesFreshFolder = 1.3;
    const auto end = move();
    EXPECT_EQ(end.error,
              "Brindlet Junk was just created and the server put everything back. Try again now it "
              "exists, or pick a folder that is already there.");
    EXPECT_EQ(end.movedAlready, 0);
    EXPECT_EQ(end.remaining, Strings{"w1@h"});
}

TEST_F(MoveTool, AFolderOfGmailsOnlyTagsAndNothingCountsAsMoved) {
    fill(3, true);
    home.addMailbox(account, "Brindlet Junk");
    const auto end = move();
    EXPECT_EQ(end.error, tagged);
    EXPECT_EQ(end.remaining, (Strings{"w3@h", "w2@h", "w1@h"}));
    // By the menu it leaves the inbox; the one that has the label already does too.
    EXPECT_EQ(move("--resume --ui-move").note, "Finished - 3 more moved");
}

TEST_F(MoveTool, TheWayBackOutOfALabelOnlyTagsToo) {
    fill(3, true);
    home.addMailbox(account, "Brindlet Junk");
    EXPECT_EQ(move("--ui-move").note, "Moved 3 into Brindlet Junk");
    const auto back = move("--put-back --ui-move");
    EXPECT_EQ(back.error.rfind("robin@harbour.example tagged the message with INBOX but left it in "
                               "Brindlet Junk.",
                               0),
              0u)
        << back.error;
    EXPECT_EQ(back.movedAlready, 3);
}

TEST_F(MoveTool, AMailProgramThatQuitsOnTheWayLooksLikeAShortMove) {
    fill(12);
    home.addMailbox(account, "Brindlet Junk");
    behaviour().quitsAfterEvents = 20;
    const auto end = move();
    EXPECT_EQ(end.note, "Moved 5 of 12 - the rest are still listed");
    EXPECT_EQ(end.error, "");
    EXPECT_EQ(end.remaining, std::nullopt);
}

TEST_F(MoveTool, WithoutPermissionToAskTheMailProgramEveryAccountIsALocalOne) {
    fill(1);
    behaviour().refusesAutomation = true;
    const auto end = move();
    EXPECT_TRUE(
        end.error.ends_with(" is a local mailbox on this Mac, not a mail account - "
                            "Brindlet can sort it but can't move from it."))
        << end.error;
    EXPECT_EQ(end.remaining, Strings{"w1@h"});
}

TEST_F(MoveTool, WithNothingTickedOrNothingToResumeItEndsAtOnce) {
    fill(0);
    for (const char* const flags : {"", "--resume"}) {
        const auto end = move(flags);
        EXPECT_EQ(end.movedCount, 0) << flags;
        EXPECT_EQ(end.remaining, std::nullopt) << flags;
    }
    const auto outcome = run(command("--put-back"));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(endOf(outcome.printed).movedCount, 0);
}

TEST_F(MoveTool, SaysWhatIsWrong) {
    fill(1);
    EXPECT_EQ(run("move_messages --help").status, 0);
    const std::string enough = "--home h --host o --store s ";
    for (const std::string& wrong :
         {std::string(), std::string("--home h --host o a INBOX"), enough, enough + "a",
          enough + "a INBOX c", enough + "a INBOX --resume --put-back",
          enough + "a INBOX --stop-after x", enough + "a INBOX --colour red"})
        EXPECT_EQ(run("move_messages " + wrong).status, 2) << wrong;
    EXPECT_EQ(run(command("--put-back"), errorsOnly).printed,
              "No scan of this mailbox is on record.\n");
    EXPECT_EQ(run("move_messages --home /nowhere --host o --store " + directories.store() + " a b",
                  errorsOnly)
                  .printed,
              "There is no mail index that can be read.\n");
    EXPECT_EQ(run("move_messages --home " + home.home() + " --host o --store " +
                      directories.store() + " a b",
                  errorsOnly)
                  .printed,
              "There is no such account.\n");
}

}  // namespace
}  // namespace brindlet
