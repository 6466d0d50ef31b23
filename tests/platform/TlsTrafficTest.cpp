#include <gtest/gtest.h>
#include <openssl/ssl.h>
#include <sys/socket.h>

#include "platform/TlsWorld.h"

namespace brindlet {
namespace {

/// Bytes that do not repeat at any boundary of a record.
std::string longText(std::size_t size) {
    std::string text(size, '\0');
    for (std::size_t i = 0; i < size; ++i) text[i] = static_cast<char>('a' + (i * i / 7 + i) % 26);
    return text;
}

TEST(TlsTraffic, LargeTextsPassBothWays) {
    const TlsWorld world;
    const auto text = longText(5'000'003);
    Locked<bool> same{false};
    LoopbackServer listener(overTls(world.server(), [&](SSL& ssl) {
        same.set(hear(ssl, text.size()) == text);
        say(ssl, text);
    }));
    const auto stream = world.streamTo(listener);
    ASSERT_EQ(stream->connect(), std::nullopt);
    ASSERT_EQ(stream->send(text), std::nullopt);
    EXPECT_TRUE(receiveAll(*stream).bytes == text);
    EXPECT_TRUE(same.get());
}

TEST(TlsTraffic, NoMoreComesAtATimeThanAskedFor) {
    const TlsWorld world;
    const auto text = longText(100'000);
    for (const std::size_t most : {std::size_t{1}, std::size_t{7}, std::size_t{20'000}}) {
        LoopbackServer listener(overTls(world.server(), [&](SSL& ssl) { say(ssl, text); }));
        const auto stream = world.streamTo(listener);
        ASSERT_EQ(stream->connect(), std::nullopt);
        std::string all;
        while (true) {
            const auto received = stream->receive(most);
            ASSERT_LE(received.bytes.size(), most);
            if (received.ended) break;
            ASSERT_FALSE(received.bytes.empty());
            all += received.bytes;
        }
        EXPECT_TRUE(all == text) << most;
    }
}

TEST(TlsTraffic, NothingDependsOnWhereTheBytesAreSplit) {
    const TlsWorld world;
    for (const int version : {TLS1_2_VERSION, TLS1_3_VERSION}) {
        auto server = world.server();
        server.oldest = server.newest = version;
        LoopbackServer listener(byteByByte(overTls(server, [](SSL& ssl) {
            for (const char letter : std::string_view("* OK\r\n")) say(ssl, {&letter, 1});
            say(ssl, hear(ssl, 300));
        })));
        const auto stream = world.streamTo(listener);
        ASSERT_EQ(stream->connect(), std::nullopt);
        EXPECT_EQ(receiveExactly(*stream, 6), "* OK\r\n");
        EXPECT_EQ(stream->send(longText(300)), std::nullopt);
        const auto rest = receiveAll(*stream);
        EXPECT_EQ(rest.bytes, longText(300));
        EXPECT_TRUE(rest.ended);
    }
}

TEST(TlsTraffic, AServerMayEndTheConnectionAfterAnyByte) {
    const TlsWorld world;
    const std::string greeting = "* OK welcome\r\n";
    for (const int version : {TLS1_2_VERSION, TLS1_3_VERSION}) {
        auto server = world.server();
        server.oldest = server.newest = version;
        bool whole = false;
        for (std::size_t bytes = 0; !whole; bytes += 13) {
            SCOPED_TRACE(bytes);
            ASSERT_LT(bytes, 10'000u);
            LoopbackServer listener(
                endingAfter(bytes, overTls(server, [&](SSL& ssl) { say(ssl, greeting); })));
            const auto stream = world.streamTo(listener);
            if (const auto failure = stream->connect()) {
                EXPECT_TRUE(failure == "the server closed the connection" ||
                            failure == "the server broke off the connection")
                    << *failure;
                continue;
            }
            const auto received = receiveAll(*stream);
            EXPECT_TRUE(greeting.starts_with(received.bytes)) << received.bytes;
            if (!received.ended) {
                EXPECT_EQ(received.failure, "the server broke off the connection");
            }
            whole = received.bytes == greeting;
        }
    }
}

TEST(TlsTraffic, AnEndWithoutGoodbyeIsAnEndToo) {
    const TlsWorld world;
    LoopbackServer listener(overTls(world.server(), [](SSL& ssl) {
        say(ssl, "* OK\r\n");
        ::shutdown(SSL_get_fd(&ssl), SHUT_WR);
        hearAll(ssl);
    }));
    const auto stream = world.streamTo(listener);
    ASSERT_EQ(stream->connect(), std::nullopt);
    const auto received = receiveAll(*stream);
    EXPECT_EQ(received.bytes, "* OK\r\n");
    EXPECT_TRUE(received.ended);
    EXPECT_EQ(received.failure, std::nullopt);
}

TEST(TlsTraffic, AConnectionThatIsBrokenOffFailsAndEndsNoProgram) {
    const TlsWorld world;
    LoopbackServer listener(overTls(world.server(), [](SSL& ssl) {
        say(ssl, "* OK\r\n");
        const linger atOnce{1, 0};
        ::setsockopt(SSL_get_fd(&ssl), SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
        SSL_set_quiet_shutdown(&ssl, 1);
    }));
    const auto stream = world.streamTo(listener);
    ASSERT_EQ(stream->connect(), std::nullopt);
    listener.waitForConversations(1);
    TlsStream::Failure failure;
    for (int i = 0; i < 100 && !failure; ++i) failure = stream->send("a001 NOOP\r\n");
    EXPECT_EQ(failure, "the server broke off the connection");
    EXPECT_EQ(stream->send("a002 NOOP\r\n"), failure) << "it stays broken";
}

TEST(TlsTraffic, ARenegotiationGoesUnnoticed) {
    const TlsWorld world;
    auto server = world.server();
    server.newest = TLS1_2_VERSION;
    Locked<long> renegotiations{0};
    LoopbackServer listener(overTls(server, [&](SSL& ssl) {
        say(ssl, "before ");
        SSL_renegotiate(&ssl);
        SSL_do_handshake(&ssl);
        // So that the read comes back once hands have been shaken again.
        SSL_clear_mode(&ssl, SSL_MODE_AUTO_RETRY);
        char nothing = 0;
        SSL_read(&ssl, &nothing, 1);
        renegotiations.set(SSL_total_renegotiations(&ssl));
        say(ssl, "after");
    }));
    const auto stream = world.streamTo(listener);
    ASSERT_EQ(stream->connect(), std::nullopt);
    const auto received = receiveAll(*stream);
    EXPECT_EQ(received.bytes, "before after");
    EXPECT_EQ(received.failure, std::nullopt);
    EXPECT_EQ(renegotiations.get(), 1);
}

TEST(TlsTraffic, NewKeysAndTicketsGoUnnoticed) {
    const TlsWorld world;
    auto server = world.server();
    server.oldest = TLS1_3_VERSION;
    Locked<std::string> heard;
    LoopbackServer listener(overTls(server, [&](SSL& ssl) {
        say(ssl, "before ");
        SSL_key_update(&ssl, SSL_KEY_UPDATE_REQUESTED);
        SSL_new_session_ticket(&ssl);
        say(ssl, "between ");
        heard.set(hear(ssl, 5));
        SSL_new_session_ticket(&ssl);
        say(ssl, "after");
    }));
    const auto stream = world.streamTo(listener);
    ASSERT_EQ(stream->connect(), std::nullopt);
    EXPECT_EQ(receiveExactly(*stream, 15), "before between ");
    EXPECT_EQ(stream->send("hello"), std::nullopt);
    EXPECT_EQ(receiveAll(*stream).bytes, "after");
    EXPECT_EQ(heard.get(), "hello");
}

}  // namespace
}  // namespace brindlet
