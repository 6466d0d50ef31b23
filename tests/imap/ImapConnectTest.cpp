#include "imap/Talk.h"

namespace brindlet {
namespace {

TEST(ImapConnect, ReadsTheGreetingOfTheServerItWasGiven) {
    doubles::eachCut(greeted(), [](TranscriptConnector& connector) {
        Imap imap = newImap(connector);
        EXPECT_TRUE(connector.made().empty()) << "not before it is told";
        EXPECT_EQ(imap.connect(), std::nullopt);
        EXPECT_EQ(connector.made(), std::vector<std::string>{"imap.example.org:1993"});
        EXPECT_EQ(connector.strayed(), "");
    });
}

TEST(ImapConnect, ReadsOnUntilThereIsAGreeting) {
    const auto late = Transcript().accepts().says(
        "* PREAUTH hello\r\n* BYE\r\n * OK\r\n* ok\r\nOK\r\n\r\n* OKAY\r\n");
    doubles::eachCut(late, [](TranscriptConnector& connector) {
        EXPECT_EQ(newImap(connector).connect(), std::nullopt);
        EXPECT_EQ(connector.strayed(), "");
    });
}

TEST(ImapConnect, AGreetingThatIsNoneIsWaitedOutToTheEnd) {
    for (const auto* const greeting : {"* BYE too many\r\n", "* PREAUTH hello\r\n", "* OK", ""})
        doubles::eachCut(Transcript().accepts().says(greeting).ends(),
                         [&](TranscriptConnector& connector) {
                             EXPECT_EQ(newImap(connector).connect(),
                                       connectionFailure("server closed the connection"))
                                 << greeting;
                             EXPECT_EQ(connector.strayed(), "");
                         });
}

TEST(ImapConnect, TellsTheNetworksWords) {
    TranscriptConnector refused(Transcript().fails("Connection refused"));
    EXPECT_EQ(newImap(refused).connect(), connectionFailure("Connection refused"));
    TranscriptConnector lost(Transcript().accepts().says("* O").fails("Network is down"));
    EXPECT_EQ(newImap(lost).connect(), connectionFailure("Network is down"));
    EXPECT_EQ(refused.strayed() + lost.strayed(), "");
}

TEST(ImapConnect, NothingWorksBefore) {
    TranscriptConnector connector(greeted());
    Imap imap = newImap(connector);
    const auto notConnected = connectionFailure("not connected");
    EXPECT_EQ(imap.sendLine("x"), notConnected);
    EXPECT_EQ(failed(imap.readResponse(std::nullopt)), notConnected);
    EXPECT_EQ(failed(imap.command("x")), notConnected);
    EXPECT_EQ(failed(imap.select("INBOX")), notConnected);
    EXPECT_EQ(failed(imap.fetchMessageIDs()), notConnected);
    EXPECT_EQ(imap.addLabels({"x"}, {1}), notConnected);
    EXPECT_TRUE(connector.made().empty());
}

TEST(ImapClose, CancelsOnceAndLetsGo) {
    TranscriptConnector connector(greeted());
    {
        Imap imap = connected(connector);
        EXPECT_EQ(connector.cancels(), std::vector{0});
        imap.close();
        EXPECT_EQ(connector.cancels(), std::vector{1});
        EXPECT_EQ(connector.held(), 0);
        imap.close();
        EXPECT_EQ(imap.sendLine("x"), connectionFailure("not connected"));
    }
    EXPECT_EQ(connector.cancels(), std::vector{1});
}

TEST(ImapClose, ComesWithTheEndOfTheObject) {
    TranscriptConnector connector(greeted());
    {
        Imap imap = connected(connector);
        const Imap moved = std::move(imap);
        EXPECT_EQ(connector.cancels(), std::vector{0});
    }
    EXPECT_EQ(connector.cancels(), std::vector{1});
    EXPECT_EQ(connector.held(), 0);
}

TEST(ImapClose, IsNotWhatAFailureDoes) {
    for (const auto& transcript : {Transcript().fails("x"), Transcript().accepts().ends(),
                                   Transcript().accepts().fails("x")}) {
        TranscriptConnector connector(transcript);
        Imap imap = newImap(connector);
        EXPECT_NE(imap.connect(), std::nullopt);
        EXPECT_EQ(connector.cancels(), std::vector{0});
        EXPECT_EQ(connector.held(), 1);
        imap.close();
        EXPECT_EQ(connector.cancels(), std::vector{1});
        EXPECT_EQ(connector.held(), 0);
    }
}

TEST(ImapFailure, DescribesItself) {
    using enum Imap::Failure::Kind;
    EXPECT_EQ((Imap::Failure{connection, "cancelled"}).description(),
              "Couldn't reach Gmail: cancelled");
    EXPECT_EQ((Imap::Failure{protocolError, "a001 NO"}).description(),
              "Gmail said something unexpected: a001 NO");
    EXPECT_EQ((Imap::Failure{auth, "no"}).description(), "Gmail refused the sign-in: no");
}

}  // namespace
}  // namespace brindlet
