#include "screens/Golden.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QImageWriter>
#include <QTest>

#include "screens/PictureDifference.h"

namespace brindlet::testing {
namespace {

/// Small, and without an alpha channel that says nothing.
bool save(const QImage& picture, const QString& path) {
    QImageWriter writer(path, "png");
    writer.setCompression(100);
    return writer.write(picture.convertToFormat(QImage::Format_RGB888));
}

QString told(const PictureDifference& found) {
    const auto& block = found.worstBlock;
    if (!found.sameSize) return QStringLiteral("its size is another");
    return QStringLiteral("mean difference %1 (at most %2), worst block %3 (at most %4) at %5, %6")
        .arg(found.mean, 0, 'f', 2)
        .arg(PictureDifference::mostMean)
        .arg(found.worst, 0, 'f', 1)
        .arg(PictureDifference::mostInABlock)
        .arg(block.x())
        .arg(block.y());
}

}  // namespace

QImage pictureOf(const Stage& stage) {
    // Not every movement is one that the window knows of.
    constexpr int rest = 5;
    // Nobody answers what the picker asks as soon as it comes.
    stage.state->refreshingFolders.set(false);
    stage.window()->resize(stage.window()->minimumSize());
    stage.settle();
    QImage picture;
    int same = 0;
    const bool rests = QTest::qWaitFor([&] {
        const auto now = stage.window()->grabWindow().convertToFormat(QImage::Format_RGB32);
        same = now == picture ? same + 1 : 0;
        picture = now;
        return same == rest;
    });
    EXPECT_TRUE(rests) << "something moves on and on";
    return picture;
}

void expectGolden(const std::string& name, const QImage& picture) {
    const auto file = QString::fromStdString(name) + QStringLiteral(".png");
    const auto golden = QStringLiteral(BRINDLET_GOLDENS "/") + file;
    if (qEnvironmentVariableIsSet("BRINDLET_ACCEPT")) {
        EXPECT_TRUE(save(picture, golden)) << golden.toStdString();
        return;
    }
    const auto expected = QImage(golden).convertToFormat(QImage::Format_RGB32);
    const auto found = difference(expected, picture);
    if (!expected.isNull() && found.tolerable()) return;
    const QDir folder(QStringLiteral(BRINDLET_PICTURES));
    folder.mkpath(QStringLiteral("."));
    const auto put = [&](const char* what, const QImage& image) {
        (void)save(image, folder.filePath(QString::fromStdString(name) + QLatin1Char('-') +
                                          QString::fromUtf8(what) + QStringLiteral(".png")));
    };
    put("actual", picture);
    if (!expected.isNull()) put("expected", expected);
    if (!expected.isNull() && found.sameSize)
        put("difference", differencePicture(expected, picture));
    ADD_FAILURE() << name << " does not look as it did: "
                  << (expected.isNull() ? "there is no golden" : told(found).toStdString())
                  << "\nLook at " << folder.path().toStdString() << "/" << name
                  << "-*.png. If it is as it should be: tools/accept";
}

}  // namespace brindlet::testing
