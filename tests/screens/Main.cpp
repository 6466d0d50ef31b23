#include <gtest/gtest.h>

#include <QApplication>
#include <cstdlib>

#include "app/Application.h"

/// The toolkit lets go of some pictures only with the process.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libQt6Gui.so\nleak:libQt6Quick.so\n";
}

int main(int argc, char** argv) {
    // The same on every machine: no screen, no graphics card, no scaling.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("QT_SCALE_FACTOR", "1");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    brindlet::prepareToolkit();
    return RUN_ALL_TESTS();
}
