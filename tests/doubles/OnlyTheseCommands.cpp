#include <gtest/gtest.h>

#include "doubles/SentBytes.h"

// Whatever the tests of this program made a client do: nothing but what may be sent was sent. There
// is no way to delete a message among it.

namespace brindlet {
namespace {

class OnlyTheseCommands : public testing::Environment {
    void TearDown() override {
        for (const auto& bytes : doubles::SentBytes::everything())
            EXPECT_EQ(doubles::SentBytes::breach(bytes), "") << bytes;
    }
};

const auto* const environment = testing::AddGlobalTestEnvironment(new OnlyTheseCommands);

}  // namespace
}  // namespace brindlet
