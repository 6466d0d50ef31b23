#include "doubles/SentBytes.h"

#include "imap/Talk.h"

namespace brindlet {
namespace {

using namespace std::string_literals;
using doubles::SentBytes;

TEST(SentBytes, HoldsWhatAClientSent) {
    TranscriptConnector connector(
        greeted().hears("a001 SELECT \"On the record\"").says("a001 OK\r\n"));
    Imap imap = connected(connector);
    ASSERT_TRUE(imap.select("On the record"));
    EXPECT_TRUE(SentBytes::everything().contains("a001 SELECT \"On the record\"\r\n"));
}

TEST(SentBytes, AllowsTheFourCommandsAlone) {
    for (const auto* const good : {
             "a001 LOGIN \"ann@home.example\" \"abcd\"",
             "a002 SELECT \"[Gmail]/All Mail\"",
             "a999 UID FETCH 1:* (UID BODY.PEEK[HEADER.FIELDS (MESSAGE-ID)])",
             "a1000 UID STORE 1:3,7 +X-GM-LABELS (\"Brindlet Junk\")",
             "a003 UID STORE 7 -X-GM-LABELS (\\Inbox)",
             "a003 UID STORE 7 +X-GM-LABELS (\"Remove, copy and append\")",
             "a003 UID STORE 7 +X-GM-LABELS (\"x\") +FLAGS (\"y\")",
         })
        EXPECT_EQ(SentBytes::breach(good + "\r\n"s), "") << good;

    for (const auto* const bad : {
             "a001 LOGIN ann abcd",
             "a001 LOGOUT",
             "a001 NOOP",
             "a001 CLOSE",
             "a001 EXPUNGE",
             "a001 UID EXPUNGE 7",
             "a001 APPEND \"x\"",
             "a001 COPY 7 \"x\"",
             "a001 UID COPY 7 \"x\"",
             "a001 UID MOVE 7 \"[Gmail]/Trash\"",
             "a001 STORE 7 +X-GM-LABELS (\"x\")",
             "a001 UID STORE 7 X-GM-LABELS (\"x\")",
             "a001 UID STORE 7 +FLAGS (\\Seen)",
             "a001 UID STORE 7 +X-GM-LABELS (\\Deleted)",
             "a001 UID STORE 7 +X-GM-LABELS (\"x\") +FLAGS (\\DELETED\")",
             "a001 UID STORE  +X-GM-LABELS (\"x\")",
             "a001 UID FETCH 1:* (UID BODY[])",
             "a001 SELECT INBOX",
             "SELECT \"x\"",
             "a001 ",
             "",
         })
        EXPECT_NE(SentBytes::breach(bad + "\r\n"s), "") << bad;

    EXPECT_NE(SentBytes::breach("a001 SELECT \"x\""), "") << "half a line";
    EXPECT_NE(SentBytes::breach("a001 SELECT \"x\"\r\na002 SELECT \"y\"\r\n"), "") << "two lines";
    EXPECT_NE(SentBytes::breach("a001 SELECT \"x\0y\"\r\n"s), "") << "NUL";
}

}  // namespace
}  // namespace brindlet
