#include <gtest/gtest.h>

#include "doubles/Sha256.h"
#include "mover/Resources.h"

namespace brindlet {
namespace {

using doubles::sha256;

TEST(Sha256, IsWhatTheStandardSays) {
    EXPECT_EQ(sha256(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(sha256("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(sha256("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
    EXPECT_EQ(sha256(std::string(1'000'000, 'a')),
              "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST(MoverScripts, AreByteForByteWhatTheMailProgramWasTriedWith) {
    EXPECT_EQ(sha256(resources::bulkMoveScript),
              "70c5bb9b44f1a629528c343b0aaca0f6efb9d42669b9f4753fd0795804da42e0");
    EXPECT_EQ(sha256(resources::menuMoveScript),
              "2ec480fa17dc4fc22cb68a1412b3395bdd083408519a8b9ee71aaf2f51cba549");
}

}  // namespace
}  // namespace brindlet
