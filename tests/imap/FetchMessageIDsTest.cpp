#include <map>

#include "imap/Talk.h"

namespace brindlet {
namespace {

constexpr const char* fetch = "a001 UID FETCH 1:* (UID BODY.PEEK[HEADER.FIELDS (MESSAGE-ID)])";

TEST(FetchMessageIDs, MapsEachIdToItsUid) {
    const struct {
        std::string answer;
        std::map<std::string, std::uint32_t> ids;
    } rows[] = {
        {"", {}},
        {"* 1 FETCH (UID 17 BODY[HEADER.FIELDS (MESSAGE-ID)] {27}\r\nMessage-ID: <a@x>\r\n\r\n)\r\n"
         "* 2 FETCH (UID 4294967295 BODY[HEADER.FIELDS (MESSAGE-ID)] {27}\r\nMESSAGE-ID: <b@x>\r\n"
         "\r\n)\r\n",
         {{"a@x", 17}, {"b@x", 4294967295}}},
        // Any case, anywhere in a line, whatever stands around the value.
        {"* UID 1\r\nmessage-id:<a@x>\r\n", {{"a@x", 1}}},
        {"* UID 1\r\nX-Old-mEsSaGe-Id: \t <a@x> \t \r\n", {{"a@x", 1}}},
        {"* 1 FETCH (UID 1 \"Message-Id: <a@x>\r\n", {{"a@x", 1}}},
        {"* UID 1\r\nMessage-ID: a@x\r\n", {{"a@x", 1}}},
        {"* UID 1\r\nMessage-ID: <a@x\r\n* UID 2\r\nMessage-ID: b@x>\r\n",
         {{"a@x", 1}, {"b@x", 2}}},
        {"* UID 1\r\nMessage-ID: <<a@x>>\r\n", {{"<a@x>", 1}}},
        {"* UID 1\r\nMessage-ID: <a@x> <b@x>\r\n", {{"a@x> <b@x", 1}}},
        {"* UID 1\r\nMessage-ID: Message-ID: a@x\r\n", {{"Message-ID: a@x", 1}}},
        {"* UID 1\r\nMessage-ID: < a@x >\r\n", {{" a@x ", 1}}},
        {"* UID 1\r\nMessage-ID: <caf\xC3\xA9@x>\r\n", {{"caf\xC3\xA9@x", 1}}},
        {"* UID 1\r\nMessage-ID: <a\xFF@x>\r\n", {{"a\xEF\xBF\xBD@x", 1}}},
        {"* UID 1\r\nMessage_ID: <a@x>\r\nMessage-ID <a@x>\r\nessage-ID: <a@x>\r\n", {}},
        // A header belongs to the last UID before it, and to that alone.
        {"Message-ID: <a@x>\r\n* UID 1\r\n", {}},
        {"* UID 1\r\n* UID 2\r\nMessage-ID: <a@x>\r\n", {{"a@x", 2}}},
        {"* UID 1\r\n\r\n)\r\n* 9 EXISTS\r\nMessage-ID: <a@x>\r\n", {{"a@x", 1}}},
        {"* UID 1\r\n* Message-ID: <a@x>\r\n", {{"a@x", 1}}},
        {"* UID 1\r\nMessage-ID: <a@x>\r\nMessage-ID: <b@x>\r\n", {{"a@x", 1}}},
        {"UID 1\r\nMessage-ID: <a@x>\r\n * UID 1\r\nMessage-ID: <b@x>\r\n", {}},
        {"* uid 1\r\nMessage-ID: <a@x>\r\n", {}},
        {"* FLUID 3 UID 4\r\nMessage-ID: <a@x>\r\n", {{"a@x", 3}}},
        {"* UIDX UID 4\r\nMessage-ID: <a@x>\r\n", {{"a@x", 4}}},
        // Folded onto the next line, an id is lost, and the message with it.
        {"* UID 1\r\nMessage-ID:\r\n <a@x>\r\nMessage-ID: <b@x>\r\n", {}},
        {"* UID 1\r\nMessage-ID: <>\r\nMessage-ID: <b@x>\r\n", {}},
        {"* UID 1\r\nMessage-ID: <\r\n* UID 2\r\nMessage-ID: >\r\n", {}},
        // A UID that cannot be read takes the pending one with it, and its own line too.
        {"* UID 1\r\n* UID x\r\nMessage-ID: <a@x>\r\n", {}},
        {"* UID 1\r\n* UID \r\nMessage-ID: <a@x>\r\n", {}},
        {"* UID 1\r\n* UID x Message-ID: <a@x>\r\n", {}},
        {"* UID 4294967296\r\nMessage-ID: <a@x>\r\n", {}},
        {"* UID -1\r\nMessage-ID: <a@x>\r\n* UID +1\r\nMessage-ID: <b@x>\r\n", {}},
        {"* UID 12\xC2\xBD\r\nMessage-ID: <half@x>\r\n", {}},
        {"* UID \xD9\xA3\r\nMessage-ID: <arabic@x>\r\n", {}},
        {"* UID 3\xCC\x81\r\nMessage-ID: <accent@x>\r\n", {}},
        {"* UID 3\xC3\xA9\r\nMessage-ID: <letter@x>\r\n", {{"letter@x", 3}}},
        {"* UID 007x\r\nMessage-ID: <a@x>\r\n", {{"a@x", 7}}},
        {"* UID 0\r\nMessage-ID: <a@x>\r\n", {{"a@x", 0}}},
        // The same id again: the later message.
        {"* UID 1\r\nMessage-ID: <a@x>\r\n* UID 2\r\nMessage-ID: <a@x>\r\n", {{"a@x", 2}}},
    };
    for (const auto& row : rows)
        doubles::eachCut(greeted().hears(fetch).says(row.answer + "a001 OK Success\r\n"),
                         [&](TranscriptConnector& connector) {
                             Imap imap = connected(connector);
                             const auto ids = imap.fetchMessageIDs();
                             ASSERT_TRUE(ids) << row.answer;
                             EXPECT_EQ(ids->size(), row.ids.size()) << row.answer;
                             for (const auto& [id, uid] : row.ids)
                                 EXPECT_EQ(ids->find(id), uid) << row.answer;
                             EXPECT_EQ(connector.strayed(), "");
                         });
}

TEST(FetchMessageIDs, GivesNothingOfAnAnswerThatEndedBadly) {
    const std::string answer = "* UID 1\r\nMessage-ID: <a@x>\r\n";
    doubles::eachCut(greeted().hears(fetch).says(answer + "a001 NO later\r\n"),
                     [](TranscriptConnector& connector) {
                         EXPECT_EQ(failed(connected(connector).fetchMessageIDs()),
                                   protocolError("a001 NO later"));
                     });
    doubles::eachCut(greeted().hears(fetch).says(answer).ends(),
                     [](TranscriptConnector& connector) {
                         EXPECT_EQ(failed(connected(connector).fetchMessageIDs()),
                                   connectionFailure("server closed the connection"));
                     });
}

}  // namespace
}  // namespace brindlet
