#include "platform/linux/OpenSslStream.h"

#include <gtest/gtest.h>
#include <openssl/ssl.h>

#include <cstdlib>

#include "base/Files.h"
#include "doubles/Doubles.h"
#include "platform/TlsWorld.h"

namespace brindlet {
namespace {

using Authority = sample::CertificateAuthority;
using Lifetime = Authority::Lifetime;

/// A variable of the environment, for as long as this lives.
class Variable {
  public:
    Variable(const char* name, const std::string& value) : name_(name) {
        ::setenv(name, value.c_str(), 1);
    }
    ~Variable() { ::unsetenv(name_); }

  private:
    const char* name_;
};

void greet(SSL& ssl) {
    say(ssl, "* OK welcome\r\n");
}

TEST(OpenSslStream, TalksWithAServerThatProvesItself) {
    const TlsWorld world;
    for (const int version : {TLS1_2_VERSION, TLS1_3_VERSION}) {
        SCOPED_TRACE(version);
        auto server = world.server();
        server.oldest = server.newest = version;
        Locked<std::string> named, heard;
        LoopbackServer listener(overTls(server, [&](SSL& ssl) {
            const char* name = SSL_get_servername(&ssl, TLSEXT_NAMETYPE_host_name);
            named.set(name ? name : "");
            say(ssl, "* OK welcome\r\n");
            heard.set(hear(ssl, 8));
            say(ssl, "a001 OK\r\n");
        }));
        const auto stream = world.streamTo(listener);
        EXPECT_EQ(stream->connect(), std::nullopt);
        EXPECT_EQ(receiveExactly(*stream, 14), "* OK welcome\r\n");
        EXPECT_EQ(stream->send("a001 hi\n"), std::nullopt);
        const auto rest = receiveAll(*stream);
        EXPECT_EQ(rest.bytes, "a001 OK\r\n");
        EXPECT_TRUE(rest.ended);
        EXPECT_EQ(rest.failure, std::nullopt);
        EXPECT_TRUE(stream->receive(1).ended) << "it stays at its end";
        EXPECT_EQ(named.get(), hostName);
        EXPECT_EQ(heard.get(), "a001 hi\n");
    }
}

TEST(OpenSslStream, BelievesNoServerThatDoesNotProveToBeTheHost) {
    const TlsWorld world;
    const Authority foreign;
    struct Row {
        const char* what;
        Authority::Identity identity;
        const char* words;
    };
    const Row rows[] = {
        {"another host", world.authority.issue({.hosts = {"other.mail.example"}}),
         "the server's certificate is for another host"},
        {"a host below", world.authority.issue({.hosts = {"a.imap.mail.example"}}),
         "the server's certificate is for another host"},
        {"a star for part of a label", world.authority.issue({.hosts = {"im*.mail.example"}}),
         "the server's certificate is for another host"},
        {"the name as common name alone",
         world.authority.issue({.hosts = {}, .commonName = hostName}),
         "the server's certificate is for another host"},
        {"expired", world.authority.issue({.hosts = {hostName}, .lifetime = Lifetime::expired}),
         "the server's certificate has expired"},
        {"not yet valid",
         world.authority.issue({.hosts = {hostName}, .lifetime = Lifetime::notYetValid}),
         "the server's certificate is not valid yet"},
        {"a foreign authority of the same name", foreign.issue({.hosts = {hostName}}),
         "the server's certificate comes from an authority that is not trusted here"},
        {"self-signed", Authority::selfSigned({.hosts = {hostName}}),
         "the server's certificate is signed by nobody but itself"},
    };
    for (const auto& row : rows) {
        for (const int version : {TLS1_2_VERSION, TLS1_3_VERSION}) {
            SCOPED_TRACE(row.what);
            Locked<std::string> heard;
            LoopbackServer listener(overTls(
                {.identity = row.identity, .oldest = version, .newest = version}, [&](SSL& ssl) {
                    greet(ssl);
                    heard.set(hearAll(ssl));
                }));
            auto stream = world.streamTo(listener);
            EXPECT_EQ(stream->connect(), row.words);
            EXPECT_EQ(stream->send("the password"), row.words);
            EXPECT_EQ(stream->receive(1).failure, row.words);
            stream = nullptr;
            listener.waitForConversations(1);
            EXPECT_EQ(heard.get(), "");
        }
    }
}

TEST(OpenSslStream, AStarStandsForALabel) {
    const TlsWorld world;
    LoopbackServer listener(
        overTls({.identity = world.authority.issue({.hosts = {"*.mail.example"}})}, greet));
    EXPECT_EQ(world.streamTo(listener)->connect(), std::nullopt);
}

TEST(OpenSslStream, AnAddressIsProvenAsAnAddressAndNotSentAsAName) {
    const TlsWorld world;
    Locked<bool> named{true};
    const auto noteName = [&](SSL& ssl) {
        named.set(SSL_get_servername(&ssl, TLSEXT_NAMETYPE_host_name) != nullptr);
        greet(ssl);
    };
    LoopbackServer right(
        overTls({.identity = world.authority.issue({.hosts = {"127.0.0.1"}})}, noteName));
    const auto stream = world.streamBy(lookUpHost, "127.0.0.1", right.port());
    EXPECT_EQ(stream->connect(), std::nullopt);
    EXPECT_EQ(receiveAll(*stream).bytes, "* OK welcome\r\n");
    EXPECT_FALSE(named.get());

    LoopbackServer wrong(
        overTls({.identity = world.authority.issue({.hosts = {"127.0.0.2"}})}, greet));
    EXPECT_EQ(world.streamBy(lookUpHost, "127.0.0.1", wrong.port())->connect(),
              "the server's certificate is for another host");
}

TEST(OpenSslStream, OverTheSixthVersionOfTheInternetToo) {
    const TlsWorld world;
    LoopbackServer listener(overTls({.identity = world.authority.issue({.hosts = {"::1"}})}, greet),
                            AF_INET6);
    if (!listener.listening()) GTEST_SKIP() << "there is no such loopback here";
    const auto stream = world.streamBy(lookUpHost, "::1", listener.port());
    EXPECT_EQ(stream->connect(), std::nullopt);
    EXPECT_EQ(receiveAll(*stream).bytes, "* OK welcome\r\n");
}

TEST(OpenSslStream, RefusesAServerWithoutTls) {
    const TlsWorld world;
    Locked<std::string> heard;
    LoopbackServer listener([&](int socket) {
        const std::string_view greeting = "* OK Gimap ready for requests\r\n";
        ::send(socket, greeting.data(), greeting.size(), MSG_NOSIGNAL);
        char bytes[4096];
        ssize_t got = 0;
        while ((got = ::recv(socket, bytes, sizeof bytes, 0)) > 0)
            heard.with([&](std::string& all) { all.append(bytes, static_cast<std::size_t>(got)); });
    });
    auto stream = world.streamTo(listener);
    EXPECT_EQ(stream->connect(), "the server does not speak TLS");
    EXPECT_EQ(stream->send("the password"), "the server does not speak TLS");
    stream = nullptr;
    listener.waitForConversations(1);
    EXPECT_EQ(heard.get().find("the password"), std::string::npos);
}

TEST(OpenSslStream, RefusesATlsThatIsTooOld) {
    const TlsWorld world;
    auto server = world.server();
    server.oldest = server.newest = TLS1_1_VERSION;
    LoopbackServer listener(overTls(server, greet));
    EXPECT_EQ(world.streamTo(listener)->connect(),
              "the server only speaks a TLS that is too old to be safe");
}

TEST(OpenSslStream, TheEnvironmentMakesNoAuthorityTrusted) {
    const TlsWorld world;
    const doubles::TemporaryDirectories directories;
    const std::string file = directories.home() + "/authority.pem";
    ASSERT_TRUE(files::write(file, world.authority.certificate()));
    const Variable certificates("SSL_CERT_FILE", file);
    const Variable folder("SSL_CERT_DIR", directories.home());
    LoopbackServer listener(overTls(world.server(), greet));
    OpenSslConnector connector(TlsAuthorities::ofSystem(), listener.resolver());
    EXPECT_EQ(connector.make(hostName, listener.port())->connect(),
              "the server's certificate comes from an authority that is not trusted here");
}

TEST(OpenSslStream, NoProxyComesBetween) {
    const TlsWorld world;
    const std::string nowhere = "http://127.0.0.1:1";
    const Variable one("ALL_PROXY", nowhere), two("all_proxy", nowhere),
        three("HTTPS_PROXY", nowhere), four("https_proxy", nowhere);
    LoopbackServer listener(overTls(world.server(), greet));
    EXPECT_EQ(world.streamTo(listener)->connect(), std::nullopt);
}

TEST(OpenSslStream, TrustsTheAuthoritiesOfAFileAndPassesOverDamagedOnes) {
    const TlsWorld world;
    const doubles::TemporaryDirectories directories;
    const std::string file = directories.home() + "/authorities.pem";
    const std::string damaged =
        "-----BEGIN CERTIFICATE-----\nbm90aGluZw==\n-----END CERTIFICATE-----\n";
    ASSERT_TRUE(files::write(
        file, "A list.\n" + Authority().certificate() + damaged + world.authority.certificate()));
    LoopbackServer listener(overTls(world.server(), greet));
    OpenSslConnector connector({.file = file}, listener.resolver());
    EXPECT_EQ(connector.make(hostName, listener.port())->connect(), std::nullopt);
}

TEST(OpenSslStream, WithoutAnyAuthorityItDoesNotEvenLookUp) {
    const auto unexpected = [](const std::string&, std::uint16_t) {
        ADD_FAILURE() << "it looked up";
        return HostLookup{};
    };
    for (const char* file : {"/nonexistent/authorities.pem", "/dev/null"}) {
        OpenSslConnector connector({.file = file}, unexpected);
        EXPECT_EQ(connector.make(hostName, 993)->connect(),
                  "this computer's list of trusted authorities cannot be read")
            << file;
    }
}

TEST(OpenSslStream, TheSystemsAuthoritiesCanBeRead) {
    const auto failing = [](const std::string&, std::uint16_t) {
        return HostLookup{.addresses = {}, .failure = "no network"};
    };
    OpenSslConnector connector(TlsAuthorities::ofSystem(), failing);
    EXPECT_EQ(connector.make(hostName, 993)->connect(), "no network");
}

TEST(OpenSslStream, ANameThatCannotBeOneIsRefused) {
    EXPECT_EQ(TlsWorld().streamBy(lookUpHost, "")->connect(),
              "the server's name is not one to connect to");
}

}  // namespace
}  // namespace brindlet
