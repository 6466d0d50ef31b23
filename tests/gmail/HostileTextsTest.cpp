#include "gmail/GmailWorld.h"

// What a person pastes or a folder is called reaches the server as one argument or not at all. The
// check of everything that was sent goes over these conversations, too.

namespace brindlet {
namespace {

using namespace std::string_literals;

constexpr const char* refused =
    "Gmail refused the sign-in: Gmail refused that app password. Check it was generated for this "
    "account and copied whole.";

const std::string unsendable[] = {
    "x\r\na002 UID STORE 1:* +FLAGS (\\Seen)"s,
    "x\"\r\na002 EXPUNGE\r\n"s,
    "x\na002 UID MOVE 1:* \"Trash\""s,
    "x\r"s,
    "\n"s,
    "x\0y"s,
    "x\") +FLAGS (\\Deleted"s,
    "\\Deleted"s,
    "\\dELETED"s,
};

const std::string sendable[] = {
    "EXPUNGE",
    "UID MOVE 1:* Trash",
    "a003 APPEND INBOX {3}",
    "Copy of Removed",
    "x\") UID COPY (\"y",
    "\"",
    "\\\"",
    "{12}",
    "caf\xC3\xA9 \xF0\x9F\x97\x91",
    ")",
    "",
};

TEST(HostileTexts, APastedPasswordIsOneArgumentOrIsNotSent) {
    for (const auto& text : unsendable) {
        TranscriptConnector connector(Transcript().accepts().says("* OK\r\n"));
        MapKeyStore keys;
        EXPECT_EQ(Gmail(keys, connector).testAppPassword(signIn(text)), refused) << text;
        EXPECT_EQ(connector.strayed(), "") << text;
    }
    for (const auto& text : sendable) {
        std::string sent = text;
        std::erase(sent, ' ');
        TranscriptConnector connector(Transcript()
                                          .accepts()
                                          .says("* OK\r\n")
                                          .hears("a001 LOGIN \"ann@home.example\" \"" + sent + '"')
                                          .says("a001 BAD\r\n"));
        MapKeyStore keys;
        EXPECT_EQ(Gmail(keys, connector).testAppPassword(signIn(text)), refused) << text;
        EXPECT_EQ(connector.strayed(), "") << text;
    }
}

TEST(HostileTexts, AnAddressIsOneArgumentOrIsNotSent) {
    for (const auto& text : unsendable) {
        TranscriptConnector connector(Transcript().accepts().says("* OK\r\n"));
        MapKeyStore keys;
        EXPECT_EQ(Gmail(keys, connector).testAppPassword(signIn(password, text)), refused);
        EXPECT_EQ(connector.strayed(), "") << text;
    }
    for (const auto& text : sendable) {
        TranscriptConnector connector(Transcript()
                                          .accepts()
                                          .says("* OK\r\n")
                                          .hears("a001 LOGIN \"" + text + "\" \"" + password + '"')
                                          .says("a001 BAD\r\n"));
        MapKeyStore keys;
        EXPECT_EQ(Gmail(keys, connector).testAppPassword(signIn(password, text)), refused);
        EXPECT_EQ(connector.strayed(), "") << text;
    }
}

TEST(HostileTexts, AFoldersNameIsOneLabelOrIsNotSent) {
    const auto found = signedIn()
                           .hears("a002 SELECT \"[Gmail]/All Mail\"")
                           .says("a002 OK\r\n")
                           .hears("a003 UID FETCH 1:* (UID BODY.PEEK[HEADER.FIELDS (MESSAGE-ID)])")
                           .says("* UID 11\r\nMessage-ID: <one@x>\r\na003 OK\r\n");
    const auto file = [](TranscriptConnector& connector, const std::string& label) {
        MapKeyStore keys;
        keys.keep(service, ann, password);
        return Gmail(keys, connector).fileThroughGmail({{"one@x"}, ann, label, true});
    };
    for (const auto& text : unsendable) {
        TranscriptConnector connector(found);
        EXPECT_EQ(file(connector, text),
                  (Gmail::Filed{0, "Gmail said something unexpected: no response"}));
        EXPECT_EQ(connector.strayed(), "") << text;
        EXPECT_EQ(connector.cancels(), std::vector{1});
    }
    for (const auto& text : sendable) {
        if (text.starts_with('\\')) continue;  // goes without quotes
        TranscriptConnector connector(
            Transcript(found)
                .hears("a004 UID STORE 11 +X-GM-LABELS (\"" + text + "\")")
                .says("a004 OK\r\n")
                .hears("a005 UID STORE 11 -X-GM-LABELS (\\Inbox)")
                .says("a005 OK\r\n"));
        EXPECT_EQ(file(connector, text), (Gmail::Filed{1, {}})) << text;
        EXPECT_EQ(connector.strayed(), "") << text;
    }
}

}  // namespace
}  // namespace brindlet
