#include "base/EveryTest.h"
#include "dovecot/DovecotServer.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    return brindlet::runAllTestsUnless(brindlet::DovecotServer::missing());
}
