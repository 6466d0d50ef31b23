#include "app/demo/PictureCheck.h"

#include <gtest/gtest.h>

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QTest>
#include <memory>
#include <string>

namespace brindlet::demo {
namespace {

/// What is wrong with a window of 400 by 300 over a many-coloured, dark ground that holds this.
std::string faultsOf(const QByteArray& content) {
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData(R"(
import QtQuick
import QtQuick.Templates as T

Window {
    width: 400; height: 300; visible: true; color: "#101018"
    component Word: Text { color: "#e0e0f0"; font.pixelSize: 16 }
    component Help: QtObject { property Item control; property string text }
    component Picture: Image {
        property string symbol: "square"
        property color color
        width: 30; height: 30
    }
    Row {
        y: 250
        Repeater {
            model: 100
            Rectangle { required property int index; width: 4; height: 30
                        color: Qt.rgba(index / 100, 0.3, 0.5, 1) }
        }
    }
)" + content + "}",
                      QUrl(QStringLiteral("scene.qml")));
    const std::unique_ptr<QObject> made(component.create());
    auto* const window = qobject_cast<QQuickWindow*>(made.get());
    if (!window) return component.errorString().toStdString();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window));
    // Layout comes with a frame.
    (void)window->grabWindow();
    return pictureFaults(*window, window->grabWindow()).join(u'\n').toStdString();
}

TEST(PictureFaults, AreNoneInAnOrderlyWindow) {
    EXPECT_EQ(faultsOf(R"(
        Word { x: 20; y: 20; text: "A title" }
        Word { x: 20; y: 44; text: "A line below it" }
        T.Button { x: 20; y: 80; width: 90; height: 30
                   background: Rectangle { color: "#282338" }
                   contentItem: Word { text: "Press"; verticalAlignment: Text.AlignVCenter
                                       horizontalAlignment: Text.AlignHCenter } }
        Word { x: 20; y: 140; width: 200; wrapMode: Text.Wrap
               text: "Many words, which take two lines or three where they stand" }
        Word { anchors.right: parent.right; y: 20; width: 200; text: "At the right"
               horizontalAlignment: Text.AlignRight }
    )"),
              "");
}

TEST(PictureFaults, NameATextThatIsCutShort) {
    EXPECT_EQ(faultsOf(R"(
        Item { objectName: "page"
            Word { objectName: "title"; width: 80; elide: Text.ElideRight
                   text: "Far longer than its place" } }
    )"),
              "“Far longer than its place” (page > title) is cut short, and nothing offers the "
              "whole of it");
    EXPECT_NE(faultsOf(R"(
        Word { width: 80; wrapMode: Text.Wrap; maximumLineCount: 1; elide: Text.ElideRight
               text: "Far longer than its place" }
    )"),
              "");
}

TEST(PictureFaults, ForgiveACutTextWhoseWholeIsOfferedByItsControl) {
    constexpr auto word = R"(
        Item { id: row
            Word { width: 80; elide: Text.ElideRight; text: "Far longer than its place" }
            Help { control: %1; text: "%2" } } )";
    const auto scene = [&](const char* control, const char* text) {
        return faultsOf(QString::fromUtf8(word)
                            .arg(QString::fromUtf8(control), QString::fromUtf8(text))
                            .toUtf8());
    };
    EXPECT_EQ(scene("row", "Far longer than its place"), "");
    EXPECT_EQ(scene("row", "It says: Far longer than its place."), "");
    EXPECT_NE(scene("row", "Something else"), "");
    EXPECT_NE(scene("null", "Far longer than its place"), "") << "the help of nothing";
}

TEST(PictureFaults, NameWhatTheWindowCutsOff) {
    EXPECT_EQ(faultsOf(R"( Word { x: 360; y: 20; text: "Beyond" } )"), "“Beyond” () is cut off");
    EXPECT_EQ(faultsOf(R"( Word { x: 20; y: 290; text: "Beneath" } )"), "“Beneath” () is cut off");
    EXPECT_EQ(faultsOf(R"( T.Button { objectName: "ok"; x: -9; y: 20; width: 60; height: 30 } )"),
              "“” (ok) is cut off");
    EXPECT_EQ(faultsOf(R"( Word { x: 500; y: 20; text: "Far out" } )"), "") << "nobody sees it";
}

TEST(PictureFaults, NameWhatAClippingParentCutsOff) {
    constexpr auto item = R"(
        Item { x: 20; y: 20; width: 100; height: 30; clip: %1
            Word { x: 60; text: "Too far to the right" } } )";
    const auto clipped = [&](const char* clip) {
        return faultsOf(QString::fromUtf8(item).arg(QString::fromUtf8(clip)).toUtf8());
    };
    EXPECT_EQ(clipped("true"), "“Too far to the right” () is cut off");
    EXPECT_EQ(clipped("false"), "");
}

TEST(PictureFaults, ForgiveWhatCanBeScrolledTo) {
    constexpr auto page = R"(
        Flickable { x: 20; y: 20; width: 200; height: 100; clip: true; contentHeight: %1
            T.Button { y: 85; width: 60; height: 30 }
            Word { x: %2; y: 90; text: "Half of it" } } )";
    const auto scrolled = [&](int height, int x) {
        return faultsOf(QString::fromUtf8(page).arg(height).arg(x).toUtf8());
    };
    EXPECT_EQ(scrolled(400, 70), "");
    EXPECT_EQ(scrolled(100, 70), "“” () is cut off\n“Half of it” () is cut off");
    EXPECT_EQ(scrolled(400, 180), "“Half of it” () is cut off") << "it does not scroll sideways";
}

TEST(PictureFaults, NameTextsThatOverlap) {
    EXPECT_EQ(faultsOf(R"(
        Word { x: 20; y: 20; text: "One text" }
        Word { x: 40; y: 24; text: "Another" }
    )"),
              "“Another” () overlaps “One text” ()");
    EXPECT_EQ(faultsOf(R"(
        Word { x: 20; y: 20; width: 40; text: "Wider than its own width" }
        Word { x: 100; y: 20; text: "Another" }
    )"),
              "“Another” () overlaps “Wider than its own width” ()");
}

TEST(PictureFaults, ForgiveWhatAnOpaqueFaceHides) {
    EXPECT_EQ(faultsOf(R"(
        Word { x: 20; y: 20; text: "Beneath a menu" }
        Rectangle { x: 10; y: 10; width: 200; height: 60; color: "#282338"
            Word { x: 12; y: 12; text: "In the menu" } }
    )"),
              "");
}

TEST(PictureFaults, NameWhatIsHiddenInPartForGood) {
    constexpr auto half = R"(
        Word { x: 20; y: 20; text: "Half beneath a bar" }
        Rectangle { x: 60; y: 10; width: 200; height: 60; color: "%1" }
    )";
    const auto beneath = [&](const char* colour) {
        return faultsOf(QString::fromUtf8(half).arg(QString::fromUtf8(colour)).toUtf8());
    };
    EXPECT_EQ(beneath("#282338"), "“Half beneath a bar” () is cut off");
    EXPECT_EQ(beneath("transparent"), "");
}

TEST(PictureFaults, NameATextOfTooLittleContrast) {
    EXPECT_EQ(faultsOf(R"( Word { x: 20; y: 20; text: "Faint"; color: "#55555e" } )"),
              "“Faint” () has a contrast of 2.57 to 1");
    EXPECT_NE(faultsOf(R"( Word { x: 20; y: 20; text: "Faint"; opacity: 0.3 } )"), "");
    EXPECT_NE(faultsOf(R"(
        Rectangle { x: 10; y: 10; width: 100; height: 40; color: "#b0b0c0"
            Word { x: 10; y: 10; text: "Faint" } }
    )"),
              "")
        << "what counts is what is painted behind it";
}

TEST(PictureFaults, NameATextThatOneOfItsTwoGroundsSwallows) {
    EXPECT_NE(faultsOf(R"(
        Rectangle { x: 120; y: 10; width: 200; height: 40; color: "#c0c0d0" }
        Word { x: 20; y: 20; text: "It begins well and then stands on a light ground" }
    )"),
              "");
}

TEST(PictureFaults, NameATextThatCannotBeSeen) {
    EXPECT_NE(faultsOf(R"( Word { x: 20; y: 20; text: "Gone"; color: "#101018" } )"), "");
    EXPECT_EQ(faultsOf(R"(
        Word { x: 20; y: 20; text: "Behind glass" }
        Rectangle { x: 10; y: 10; width: 200; height: 40; color: "#f0101018" }
    )"),
              "“Behind glass” () is not to be seen");
}

TEST(PictureFaults, NameAFaintSymbol) {
    EXPECT_EQ(faultsOf(R"( Picture { x: 20; y: 20; color: "#48485a" } )"),
              "“square” () has a contrast of 2.12 to 1");
    EXPECT_EQ(faultsOf(R"( Picture { x: 20; y: 20; color: "#6a6a80" } )"), "")
        << "a symbol needs less than a text";
}

TEST(PictureFaults, ForgiveFaintWordsOfWhatCannotBeUsedNow) {
    EXPECT_EQ(faultsOf(R"(
        Item { enabled: false; Word { x: 20; y: 20; text: "Faint"; color: "#55555e" } }
    )"),
              "");
    constexpr auto row = R"(
        Item { property bool selectable: %1; Word { x: 20; y: 20; text: "Faint"
                                                    color: "#55555e" } } )";
    EXPECT_EQ(faultsOf(QString::fromUtf8(row).arg(u"false").toUtf8()), "");
    EXPECT_NE(faultsOf(QString::fromUtf8(row).arg(u"true").toUtf8()), "");
}

TEST(PictureFaults, ForgiveWhatLiesUnderAVeil) {
    constexpr auto veiled = R"(
        Word { x: 20; y: 20; text: "Faint"; color: "#55555e" }
        Word { x: 24; y: 24; text: "Faint"; color: "#55555e" }
        Rectangle { width: %1; height: 300; color: "#59000000" }
    )";
    EXPECT_EQ(faultsOf(QString::fromUtf8(veiled).arg(400).toUtf8()), "");
    EXPECT_NE(faultsOf(QString::fromUtf8(veiled).arg(390).toUtf8()), "") << "a panel is no veil";
}

TEST(PictureFaults, NameAnEmptyPicture) {
    QQuickWindow window;
    window.resize(400, 300);
    QImage picture(400, 300, QImage::Format_RGB32);
    picture.fill(Qt::black);
    EXPECT_EQ(pictureFaults(window, picture),
              QStringList(QStringLiteral("the picture is empty: 1 colours")));
    for (int x = 0; x < 400; ++x) picture.setPixel(x, 1, qRgb(x / 2, 0, x % 256));
    EXPECT_FALSE(pictureFaults(window, picture).isEmpty()) << "nearly all of it is black";
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 400; ++x) picture.setPixel(x, y, qRgb(x / 2, 0, x % 256));
    EXPECT_EQ(pictureFaults(window, picture), QStringList());
}

}  // namespace
}  // namespace brindlet::demo
