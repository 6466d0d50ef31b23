#include <QQuickItem>

#include "app/demo/Tour.h"
#include "session/AppState.h"

namespace brindlet::demo {

void Tour::firstHistory() {
    step(QStringLiteral("click History"),
         [this] { return hand_.click(QStringLiteral("history")); });
    step(QStringLiteral("it has the one scan"), [this] {
        return hand_.await([this] { return hand_.find(QStringLiteral("scan0")) != nullptr; });
    });
    picture(QStringLiteral("history-one"), {"history.one"});
    step(QStringLiteral("click its bin: none is left"), [this] {
        return hand_.click(QStringLiteral("deleteScan0")) &&
               hand_.await([this] { return hand_.find(QStringLiteral("nothing")) != nullptr; });
    });
    picture(QStringLiteral("history-nothing"), {"history.nothing"});
    step(QStringLiteral("click Put back: there it is again"), [this] {
        return hand_.click(QStringLiteral("putBack0")) &&
               hand_.await([this] { return hand_.find(QStringLiteral("scan0")) != nullptr; });
    });
    step(QStringLiteral("go back"), [this] {
        return hand_.click(QStringLiteral("back")) && hand_.await([this] {
            return hand_.find(QStringLiteral("resultsTitle")) != nullptr;
        });
    });
}

void Tour::history() {
    followLink("History");
    step(QStringLiteral("the scans stand"), [this] {
        return hand_.await([this] { return hand_.find(QStringLiteral("scan0")) != nullptr; });
    });
    picture(QStringLiteral("history"), {"history", "history.count", "history.rules", "history.scan",
                                        "history.moved", "history.forget"});
    step(QStringLiteral("press the mouse's other button on the first scan"), [this] {
        return hand_.click(QStringLiteral("scan0"), Qt::RightButton) && hand_.await([this] {
            return hand_.find(QStringLiteral("deleteFromMenu")) != nullptr;
        });
    });
    picture(QStringLiteral("history-menu"), {"history.menu"});
    step(QStringLiteral("leave it with Escape, and click the scan open"), [this] {
        hand_.press(Qt::Key_Escape);
        return hand_.await([this] { return !hand_.find(QStringLiteral("deleteFromMenu")); }) &&
               hand_.click(QStringLiteral("scan0")) &&
               hand_.await([this] { return hand_.find(QStringLiteral("junk0")) != nullptr; });
    });
    picture(QStringLiteral("history-open"), {"history.open"});
    step(QStringLiteral("close it, and open one whose file is gone: it cannot be put on screen"),
         [this] {
             hand_.press(Qt::Key_Left);
             const auto last = std::ssize(*state_.history.records) - 1;
             const auto row = QStringLiteral("scan%1").arg(last);
             const auto button = QStringLiteral("putOnScreen%1").arg(last);
             return hand_.click(row) && hand_.await([&] {
                 const auto* const put = hand_.find(button);
                 return put && !put->isEnabled();
             });
         });
    picture(QStringLiteral("history-file-gone"));
    step(QStringLiteral("close it"), [this] {
        hand_.press(Qt::Key_Left);
        return hand_.rest();
    });
}

void Tour::bin() {
    picture(QStringLiteral("bin"), {"bin", "bin.oneDay", "bin.days", "bin.moved", "bin.buttons"});
    step(QStringLiteral("click Delete: it asks once more"),
         [this] { return hand_.click(QStringLiteral("purge0")); });
    picture(QStringLiteral("bin-really"), {"bin.really"});
    step(QStringLiteral("click it again: the scan is gone for good"), [this] {
        const auto before = state_.history.deleted->size();
        return hand_.click(QStringLiteral("purge0")) &&
               hand_.await([&] { return state_.history.deleted->size() + 1 == before; });
    });
    step(QStringLiteral("click Empty: it asks once more"),
         [this] { return hand_.click(QStringLiteral("emptyBin")); });
    picture(QStringLiteral("bin-empty"), {"bin.empty"});
    step(QStringLiteral("click it again: the bin is empty"), [this] {
        return hand_.click(QStringLiteral("emptyBin")) &&
               hand_.await([this] { return state_.history.deleted->empty(); });
    });
}

void Tour::openRecord() {
    step(QStringLiteral("put the latest scan back on screen"), [this] {
        return hand_.click(QStringLiteral("scan0")) &&
               hand_.click(QStringLiteral("putOnScreen0")) && hand_.await([this] {
                   return hand_.find(QStringLiteral("resultsTitle")) && !state_.verdicts->empty();
               });
    });
    picture(QStringLiteral("record"), {"summary.held", "summary.keep", "summary.binned",
                                       "results.rules", "category.youJunk", "category.youKeep"});
    pointAt("YOU KEEP THESE", QStringLiteral("flip-help"), {"category.flipHelp"});
}

}  // namespace brindlet::demo
