#include <thread>

#include "imap/Talk.h"

namespace brindlet {
namespace {

/// Runs `use` on a client that its transcript blocks, and cancels from here.
Imap::Failed cancelled(TranscriptConnector& connector,
                       const std::function<Imap::Failed(Imap&)>& use) {
    Imap::Failed failure;
    std::thread client([&] {
        Imap imap = newImap(connector);
        failure = use(imap);
    });
    connector.waitForBlock();
    connector.cancelLast();
    client.join();
    return failure;
}

TEST(ImapCancel, EndsWhateverBlocksFromAnotherThread) {
    const auto connect = [](Imap& imap) { return imap.connect(); };
    const auto select = [](Imap& imap) {
        const auto failure = imap.connect();
        return failure ? failure : failed(imap.select("INBOX"));
    };
    const struct {
        const char* where;
        Transcript transcript;
        std::function<Imap::Failed(Imap&)> use;
    } rows[] = {
        {"connecting", Transcript().blocks(), connect},
        {"the greeting", Transcript().accepts().blocks(), connect},
        {"half a greeting", Transcript().accepts().says("* OK").blocks(), connect},
        {"sending", greeted().blocks(), select},
        {"the answer", greeted().hears("a001 SELECT \"INBOX\"").blocks(), select},
        {"half an answer",
         greeted().hears("a001 SELECT \"INBOX\"").says("* 5 EXISTS\r\na001 O").blocks(), select},
    };
    for (const auto& row : rows) {
        TranscriptConnector connector(row.transcript);
        EXPECT_EQ(cancelled(connector, row.use), connectionFailure("cancelled")) << row.where;
        EXPECT_EQ(connector.cancels(), std::vector{2}) << "that, and the close";
        EXPECT_EQ(connector.held(), 0);
        EXPECT_EQ(connector.strayed(), "") << row.where;
    }
}

}  // namespace
}  // namespace brindlet
