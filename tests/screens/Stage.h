#pragma once

#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>
#include <functional>
#include <memory>

#include "app/MainWindow.h"
#include "doubles/Doubles.h"
#include "session/AppState.h"

namespace brindlet::testing {

/// A session over doubles with the real window on it, used as a person would: things are found by
/// name, clicked with the mouse, and typed at.
class Stage {
  public:
    explicit Stage(const std::function<void(AppState&)>& prepare = {});

    doubles::World world;
    std::shared_ptr<AppState> state;
    std::unique_ptr<MainWindow> main;

    QQuickWindow* window() const { return main->window(); }
    screens::AppModel& model() const { return main->model(); }
    /// The visible item of that object name; null when there is none.
    QQuickItem* find(const QString& name) const;
    /// The same, as soon as it is there and the screens stand still.
    QQuickItem* await(const QString& name) const;
    bool click(const QString& name) const;
    void press(Qt::Key key) const { QTest::keyClick(window(), key); }
    QString focused() const;
    /// Until no screen moves and all refreshes are through.
    void settle() const;
    /// Writes a picture when the environment names a folder for it; for the eye.
    void picture(const QString& name) const;
};

MailFolder folder(std::int64_t id, const std::string& name, std::int64_t count);
MailAccount account(const std::string& address, std::vector<MailFolder> folders);
/// So many verdicts, spread over the categories, with some protected and some without an id.
VerdictList verdicts(int count);

}  // namespace brindlet::testing
