#include "gmail/GmailWorld.h"

namespace brindlet {
namespace {

constexpr const char* refused =
    "Gmail refused the sign-in: Gmail refused that app password. Check it was generated for this "
    "account and copied whole.";

TEST(TestAppPassword, SignsInOpensTheInboxAndLeaves) {
    const auto good = signedIn().hears("a002 SELECT \"INBOX\"").says("* 3 EXISTS\r\na002 OK\r\n");
    for (const auto* const typed : {"abcd efgh ijkl mnop", password})
        doubles::eachCut(good, [&](TranscriptConnector& connector) {
            MapKeyStore keys;
            EXPECT_EQ(Gmail(keys, connector).testAppPassword(signIn(typed)), std::nullopt);
            EXPECT_EQ(connector.strayed(), "");
            EXPECT_EQ(connector.cancels(), std::vector{1});
            EXPECT_EQ(connector.held(), 0);
            EXPECT_TRUE(keys.calls().empty()) << "it keeps nothing";
        });
}

TEST(TestAppPassword, TellsWhatStoodInItsWay) {
    const auto selecting = signedIn().hears("a002 SELECT \"INBOX\"");
    const auto greeting = Transcript().accepts();
    const struct {
        Transcript transcript;
        std::string sentence;
    } rows[] = {
        {Transcript().fails("Connection refused"), "Couldn't reach Gmail: Connection refused"},
        {Transcript(greeting).fails("Network is down"), "Couldn't reach Gmail: Network is down"},
        {Transcript(greeting).says("* BYE\r\n").ends(),
         "Couldn't reach Gmail: server closed the connection"},
        // Whatever goes wrong with the password on its way is the password's fault.
        {signingIn().says("a001 NO [AUTHENTICATIONFAILED] Invalid credentials\r\n"), refused},
        {signingIn().says("a001 BAD \"abcdefghijklmnop\" is no astring\r\n"), refused},
        {signingIn().fails("Network is down"), refused},
        {signingIn().says("* BYE\r\n").ends(), refused},
        {Transcript(greeting).says("* OK\r\n").fails("Broken pipe"), refused},
        {Transcript(selecting).says("a002 NO [NONEXISTENT] no inbox\r\n"),
         "Gmail said something unexpected: a002 NO [NONEXISTENT] no inbox"},
        {Transcript(selecting).says("* BYE\r\n").ends(),
         "Couldn't reach Gmail: server closed the connection"},
        {Transcript(selecting).fails("Network is down"), "Couldn't reach Gmail: Network is down"},
        {signedIn().fails("Broken pipe"), "Couldn't reach Gmail: Broken pipe"},
    };
    for (const auto& row : rows)
        doubles::eachCut(row.transcript, [&](TranscriptConnector& connector) {
            MapKeyStore keys;
            EXPECT_EQ(Gmail(keys, connector).testAppPassword(signIn(password)), row.sentence);
            EXPECT_EQ(row.sentence.find(password), std::string::npos);
            EXPECT_EQ(connector.strayed(), "");
            EXPECT_EQ(connector.cancels(), std::vector{1}) << row.sentence;
            EXPECT_EQ(connector.held(), 0);
        });
}

TEST(OpenGmailSession, SignsInWithThePasswordThatIsKept) {
    for (const auto* const kept : {password, "abcd efgh ijkl mnop"}) {
        TranscriptConnector connector(signedIn());
        MapKeyStore keys;
        keys.keep(service, ann, kept);
        {
            auto session = Gmail(keys, connector).openGmailSession(ann);
            ASSERT_TRUE(session);
            EXPECT_EQ(connector.strayed(), "");
            EXPECT_EQ(connector.cancels(), std::vector{0}) << "it is open";
        }
        EXPECT_EQ(connector.cancels(), std::vector{1});
    }
}

TEST(OpenGmailSession, GivesNoneWhateverStoodInItsWay) {
    for (const auto& transcript : {Transcript().fails("x"), Transcript().accepts().ends(),
                                   signingIn().ends(), signingIn().says("a001 NO\r\n")}) {
        TranscriptConnector connector(transcript);
        MapKeyStore keys;
        keys.keep(service, ann, password);
        EXPECT_FALSE(Gmail(keys, connector).openGmailSession(ann));
        EXPECT_EQ(connector.strayed(), "");
        EXPECT_EQ(connector.cancels(), std::vector{1});
        EXPECT_EQ(connector.held(), 0);
    }
}

TEST(OpenGmailSession, WithoutAPasswordNoServerIsAsked) {
    TranscriptConnector connector(signedIn());
    MapKeyStore keys;
    keys.keep(service, "bob@home.example", password);
    EXPECT_FALSE(Gmail(keys, connector).openGmailSession(ann));
    EXPECT_TRUE(connector.made().empty());
}

TEST(GmailServer, IsGmailsOwnUnlessItWasGivenAnother) {
    TranscriptConnector connector({Transcript().fails("x"), Transcript().fails("x")});
    MapKeyStore keys;
    Gmail(keys, connector).testAppPassword(signIn(password));
    Gmail(keys, connector, {"localhost", 1993}).testAppPassword(signIn(password));
    EXPECT_EQ(connector.made(), (std::vector<std::string>{"imap.gmail.com:993", "localhost:1993"}));
}

}  // namespace
}  // namespace brindlet
