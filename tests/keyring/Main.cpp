#include "base/EveryTest.h"
#include "keyring/SafeWorld.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    return brindlet::runAllTestsUnless(brindlet::SafeWorld::missing());
}
