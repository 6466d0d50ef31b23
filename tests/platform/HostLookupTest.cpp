#include "platform/posix/HostLookup.h"

#include <gtest/gtest.h>
#include <netdb.h>
#include <netinet/in.h>

#include <cerrno>

#include "platform/posix/NetworkWords.h"

namespace brindlet {
namespace {

TEST(LookUpHost, FindsLiteralAddressesOfBothFamilies) {
    const auto fourth = lookUpHost("127.0.0.1", 993);
    ASSERT_EQ(fourth.addresses.size(), 1u);
    EXPECT_EQ(fourth.failure, std::nullopt);
    EXPECT_EQ(fourth.addresses[0].bytes.ss_family, AF_INET);
    EXPECT_EQ(reinterpret_cast<const sockaddr_in&>(fourth.addresses[0].bytes).sin_port,
              ::htons(993));
    const auto sixth = lookUpHost("::1", 993);
    ASSERT_EQ(sixth.addresses.size(), 1u);
    EXPECT_EQ(sixth.addresses[0].bytes.ss_family, AF_INET6);
}

TEST(LookUpHost, AnEmptyAnswerHasItsReason) {
    const auto lookup = lookUpHost("not a host", 993);
    EXPECT_TRUE(lookup.addresses.empty());
    ASSERT_TRUE(lookup.failure);
    EXPECT_TRUE(lookup.failure->find("name") != std::string::npos) << *lookup.failure;
}

TEST(NetworkWords, AreForThePerson) {
    const std::pair<int, const char*> rows[] = {
        {ECONNREFUSED, "the server refused the connection"},
        {ETIMEDOUT, "the server did not answer"},
        {ENETUNREACH, "there is no way to the server over the network"},
        {EHOSTUNREACH, "there is no way to the server over the network"},
        {ECONNRESET, "the server broke off the connection"},
        {EPIPE, "the server broke off the connection"},
        {EMFILE, "too many files are open"},
        {EACCES, "the connection failed: Permission denied"},
    };
    for (const auto& [error, words] : rows) EXPECT_EQ(describeSocketError(error), words);
    EXPECT_EQ(describeLookupError(EAI_NONAME), "there is no server of that name");
    EXPECT_EQ(describeLookupError(EAI_AGAIN),
              "the server's name cannot be looked up at the moment");
    EXPECT_EQ(describeLookupError(EAI_FAIL).find("the server's name cannot be looked up: "), 0u);
}

}  // namespace
}  // namespace brindlet
