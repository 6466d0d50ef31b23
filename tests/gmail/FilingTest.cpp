#include <thread>

#include "gmail/GmailWorld.h"
#include "imap/UidSets.h"

namespace brindlet {
namespace {

using Filed = Gmail::Filed;

constexpr const char* fetch = "a003 UID FETCH 1:* (UID BODY.PEEK[HEADER.FIELDS (MESSAGE-ID)])";

Transcript selecting() {
    return signedIn().hears("a002 SELECT \"[Gmail]/All Mail\"");
}
Transcript fetching() {
    return selecting().says("* 4 EXISTS\r\na002 OK\r\n").hears(fetch);
}
/// Of the messages one to four, each with an id but the third.
Transcript fetched() {
    return fetching().says(
        "* 1 FETCH (UID 11 BODY[HEADER.FIELDS (MESSAGE-ID)] {21}\r\nMessage-ID: "
        "<one@x>\r\n\r\n)\r\n"
        "* 2 FETCH (UID 12 BODY[HEADER.FIELDS (MESSAGE-ID)] {21}\r\nMessage-Id: "
        "<two@x>\r\n\r\n)\r\n"
        "* 3 FETCH (UID 13 BODY[HEADER.FIELDS (MESSAGE-ID)] {2}\r\n\r\n)\r\n"
        "* 4 FETCH (UID 14 BODY[HEADER.FIELDS (MESSAGE-ID)] {22}\r\nMessage-ID: "
        "<four@x>\r\n\r\n)\r\n"
        "a003 OK Success\r\n");
}
Transcript adding(const std::string& set) {
    return fetched().hears("a004 UID STORE " + set + " +X-GM-LABELS (\"Brindlet Junk\")");
}
Transcript added(const std::string& set) {
    return adding(set).says("* 1 FETCH (X-GM-LABELS (\"Brindlet Junk\"))\r\na004 OK\r\n");
}
Transcript removing(const std::string& set) {
    return added(set).hears("a005 UID STORE " + set + " -X-GM-LABELS (\\Inbox)");
}
Transcript removed(const std::string& set) {
    return removing(set).says("a005 OK\r\n");
}

Gmail::Filing filing(std::vector<std::string> ids) {
    return {std::move(ids), ann, "Brindlet Junk", true};
}

/// Files over the transcript and sees that it was kept to, and closed once.
Filed filed(TranscriptConnector& connector, const Gmail::Filing& what) {
    MapKeyStore keys;
    keys.keep(service, ann, password);
    auto result = Gmail(keys, connector).fileThroughGmail(what);
    EXPECT_EQ(connector.strayed(), "");
    EXPECT_EQ(connector.cancels(), std::vector{1});
    EXPECT_EQ(connector.held(), 0);
    return result;
}

TEST(FileThroughGmail, AddsTheLabelAndTakesTheInboxAway) {
    doubles::eachCut(removed("11:12,14"), [](TranscriptConnector& connector) {
        EXPECT_EQ(filed(connector, filing({"two@x", "one@x", "four@x"})), (Filed{3, {}}));
    });
}

TEST(FileThroughGmail, LeavesTheInboxWhereItIsNotToldOtherwise) {
    TranscriptConnector connector(added("12"));
    auto what = filing({"two@x"});
    what.removeInbox = false;
    EXPECT_EQ(filed(connector, what), (Filed{1, {}}));
}

TEST(FileThroughGmail, CountsTheMessagesThatAreThereAndIsSilentOnTheRest) {
    TranscriptConnector connector(removed("11,14"));
    EXPECT_EQ(filed(connector, filing({"four@x", "gone@x", "", "One@x", "<one@x>", "one@x"})),
              (Filed{2, {}}));
}

TEST(FileThroughGmail, CountsAnIdAsOftenAsItIsNamed) {
    TranscriptConnector connector(removed("11"));
    EXPECT_EQ(filed(connector, filing({"one@x", "one@x"})), (Filed{2, {}}));
}

TEST(FileThroughGmail, NothingToFileIsNoConversation) {
    TranscriptConnector connector(std::vector<Transcript>{});
    MapKeyStore keys;
    keys.keep(service, ann, password);
    EXPECT_EQ(Gmail(keys, connector).fileThroughGmail(filing({})), Filed());
    EXPECT_TRUE(keys.calls().empty());
    EXPECT_TRUE(connector.made().empty());
}

TEST(FileThroughGmail, TellsAnAccountThatIsNotConnected) {
    const Filed notConnected{0, "Brindlet isn't connected to ann@home.example yet."};
    for (const auto& transcript :
         {Transcript().fails("Network is down"), Transcript().accepts().ends(),
          signingIn().says("a001 NO [AUTHENTICATIONFAILED] Invalid credentials\r\n"),
          signingIn().ends()})
        doubles::eachCut(transcript, [&](TranscriptConnector& connector) {
            EXPECT_EQ(filed(connector, filing({"one@x"})), notConnected);
        });

    MapKeyStore empty;
    TranscriptConnector unused(std::vector<Transcript>{});
    EXPECT_EQ(Gmail(empty, unused).fileThroughGmail(filing({"one@x"})), notConnected);
    EXPECT_TRUE(unused.made().empty());
}

TEST(FileThroughGmail, TellsWhenNoneOfTheMessagesAreThere) {
    const Filed none{0, "None of those messages are in this account."};
    doubles::eachCut(fetched(), [&](TranscriptConnector& connector) {
        EXPECT_EQ(filed(connector, filing({"gone@x", "three@x"})), none);
    });
    TranscriptConnector emptyMailbox(fetching().says("a003 OK\r\n"));
    EXPECT_EQ(filed(emptyMailbox, filing({"one@x"})), none);
}

TEST(FileThroughGmail, AFailureAfterTheSignInIsToldAndCountsNothing) {
    const std::string closed = "Couldn't reach Gmail: server closed the connection";
    const std::string down = "Couldn't reach Gmail: Network is down";
    const std::string said = "Gmail said something unexpected: ";
    const struct {
        Transcript transcript;
        std::string sentence;
    } rows[] = {
        {signedIn().fails("Network is down"), down},
        {selecting().says("a002 NO [NONEXISTENT] Unknown Mailbox\r\n"),
         said + "a002 NO [NONEXISTENT] Unknown Mailbox"},
        {selecting().says("* BYE\r\n").ends(), closed},
        {selecting().fails("Network is down"), down},
        {fetching().says("* 1 FETCH (UID 11\r\na003 BAD what\r\n"), said + "a003 BAD what"},
        {fetching().says("* 1 FETCH (UID 11\r\n").ends(), closed},
        {fetched().fails("Network is down"), down},
        {adding("11").says("a004 NO [CANNOT] label\r\n"), said + "a004 NO [CANNOT] label"},
        {adding("11").ends(), closed},
        // The label stays, and yet nothing was filed.
        {added("11").fails("Network is down"), down},
        {removing("11").says("a005 NO later\r\n"), said + "a005 NO later"},
        {removing("11").says("* BYE\r\n").ends(), closed},
    };
    for (const auto& row : rows)
        doubles::eachCut(row.transcript, [&](TranscriptConnector& connector) {
            EXPECT_EQ(filed(connector, filing({"one@x"})), (Filed{0, row.sentence}));
        });
}

TEST(FileThroughGmail, ManyMessagesAreStillOneFetchAndAsFewCommandsAsFit) {
    Gmail::Filing what = filing({});
    std::vector<std::uint32_t> uids;
    std::string answer;
    for (std::uint32_t i = 0; i < 400; ++i) {
        uids.push_back(10'000 + 2 * i);
        what.ids.push_back(std::to_string(i) + "@x");
        answer += "* 1 FETCH (UID " + std::to_string(uids.back()) + "\r\nMessage-ID: <" +
                  what.ids.back() + ">\r\n";
    }
    Transcript transcript = fetching().says(answer + "a003 OK\r\n");
    int tag = 4;
    for (const auto* const item : {" +X-GM-LABELS (\"Brindlet Junk\")", " -X-GM-LABELS (\\Inbox)"})
        for (const auto& set : uidSets(uids)) {
            const std::string name = "a00" + std::to_string(tag++);
            transcript.hears(name + " UID STORE " + set + item).says(name + " OK\r\n");
        }
    ASSERT_EQ(tag, 10) << "three commands each";
    TranscriptConnector connector(transcript);
    EXPECT_EQ(filed(connector, what), (Filed{400, {}}));
}

TEST(FileThroughGmail, EachCallIsAConversationOfItsOwn) {
    TranscriptConnector connector({removed("11"), removed("12")});
    MapKeyStore keys;
    keys.keep(service, ann, password);
    Gmail gmail(keys, connector);
    EXPECT_EQ(gmail.fileThroughGmail(filing({"one@x"})), (Filed{1, {}}));
    EXPECT_EQ(gmail.fileThroughGmail(filing({"two@x"})), (Filed{1, {}}));
    EXPECT_EQ(connector.strayed(), "");
    EXPECT_EQ(connector.cancels(), (std::vector{1, 1}));
}

TEST(FileThroughGmail, IsLetGoFromAnotherThread) {
    const std::string cancelled = "Couldn't reach Gmail: cancelled";
    const std::string notConnected = "Brindlet isn't connected to ann@home.example yet.";
    const struct {
        Transcript transcript;
        std::string sentence;
    } rows[] = {
        {Transcript().blocks(), notConnected}, {signingIn().blocks(), notConnected},
        {selecting().blocks(), cancelled},     {fetching().blocks(), cancelled},
        {adding("11").blocks(), cancelled},    {removing("11").blocks(), cancelled},
    };
    for (const auto& row : rows) {
        TranscriptConnector connector(row.transcript);
        MapKeyStore keys;
        keys.keep(service, ann, password);
        Filed result;
        std::thread client(
            [&] { result = Gmail(keys, connector).fileThroughGmail(filing({"one@x"})); });
        connector.waitForBlock();
        connector.cancelLast();
        client.join();
        EXPECT_EQ(result, (Filed{0, row.sentence}));
        EXPECT_EQ(connector.cancels(), std::vector{2}) << "that, and the close";
        EXPECT_EQ(connector.held(), 0);
        EXPECT_EQ(connector.strayed(), "");
    }
}

}  // namespace
}  // namespace brindlet
