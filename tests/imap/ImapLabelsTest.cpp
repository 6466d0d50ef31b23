#include "imap/Talk.h"
#include "imap/UidSets.h"

namespace brindlet {
namespace {

using Labels = std::vector<std::string>;
using Uids = std::vector<std::uint32_t>;

TEST(ImapLabels, QuoteAllButTheSystemsOwnAndEscapeNothing) {
    const struct {
        Labels labels;
        std::string sent;
    } rows[] = {
        {{"\\Inbox"}, "\\Inbox"},
        {{"Brindlet Junk"}, "\"Brindlet Junk\""},
        {{"Brindlet Junk", "\\Inbox", "Work"}, "\"Brindlet Junk\" \\Inbox \"Work\""},
        {{"\\Odd name"}, "\\Odd name"},
        {{""}, "\"\""},
        {{"caf\xC3\xA9"}, "\"caf\xC3\xA9\""},
        {{"a\"b"}, "\"a\"b\""},
        {{"a\\"}, "\"a\\\""},
        {{"Removed/Copy of) EXPUNGE"}, "\"Removed/Copy of) EXPUNGE\""},
        {{"a\") +FLAGS (\\Seen"}, "\"a\") +FLAGS (\\Seen\""},
    };
    for (const auto& row : rows) {
        TranscriptConnector connector(
            greeted()
                .hears("a001 UID STORE 1:3,7 +X-GM-LABELS (" + row.sent + ")")
                .says("* 1 FETCH (X-GM-LABELS ())\r\na001 OK\r\n")
                .hears("a002 UID STORE 1:3,7 -X-GM-LABELS (" + row.sent + ")")
                .says("a002 OK\r\n"));
        Imap imap = connected(connector);
        EXPECT_EQ(imap.addLabels(row.labels, {3, 1, 2, 7}), std::nullopt);
        EXPECT_EQ(imap.removeLabels(row.labels, {3, 1, 2, 7}), std::nullopt);
        EXPECT_EQ(connector.strayed(), "");
    }
}

TEST(ImapLabels, WithoutLabelsOrMessagesNothingIsSent) {
    TranscriptConnector connector(greeted());
    Imap imap = connected(connector);
    EXPECT_EQ(imap.addLabels({}, {1}), std::nullopt);
    EXPECT_EQ(imap.addLabels({"x"}, {}), std::nullopt);
    EXPECT_EQ(imap.removeLabels({}, {1}), std::nullopt);
    EXPECT_EQ(imap.removeLabels({"x"}, {}), std::nullopt);
    EXPECT_EQ(connector.strayed(), "");
}

Uids everyOther(std::uint32_t count) {
    Uids uids;
    for (std::uint32_t i = 0; i < count; ++i) uids.push_back(100'000 + 2 * i);
    return uids;
}

TEST(ImapLabels, ManyMessagesTakeManyCommands) {
    const auto uids = everyOther(300);
    const auto sets = uidSets(uids);
    ASSERT_EQ(sets.size(), 3u);
    Transcript transcript = greeted();
    for (std::size_t i = 0; i < sets.size(); ++i) {
        const std::string tag = "a00" + std::to_string(i + 1);
        transcript.hears(tag + " UID STORE " + sets[i] + " +X-GM-LABELS (\"x\")")
            .says(tag + " OK\r\n");
    }
    doubles::eachCut(transcript, [&](TranscriptConnector& connector) {
        EXPECT_EQ(connected(connector).addLabels({"x"}, uids), std::nullopt);
        EXPECT_EQ(connector.strayed(), "");
    });
}

TEST(ImapLabels, TheFirstFailureStopsTheRest) {
    const auto uids = everyOther(300);
    const auto sets = uidSets(uids);
    TranscriptConnector connector(greeted()
                                      .hears("a001 UID STORE " + sets[0] + " -X-GM-LABELS (\"x\")")
                                      .says("a001 OK\r\n")
                                      .hears("a002 UID STORE " + sets[1] + " -X-GM-LABELS (\"x\")")
                                      .says("a002 NO [LIMIT] later\r\n"));
    EXPECT_EQ(connected(connector).removeLabels({"x"}, uids),
              protocolError("a002 NO [LIMIT] later"));
    EXPECT_EQ(connector.strayed(), "");
}

}  // namespace
}  // namespace brindlet
