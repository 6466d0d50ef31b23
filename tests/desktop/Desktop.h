#pragma once

#include <QDBusConnection>
#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>
#include <memory>

#include "desktop/Child.h"

namespace brindlet::desktop {

/// A desktop that nobody sees and that shares nothing with the person's own: a session bus, an X
/// display without a window manager, and the accessibility bus, all in one temporary folder.
class Desktop {
  public:
    /// The programs that it needs and this machine lacks.
    static QStringList missing();

    /// `problem` tells what could not be started.
    Desktop();
    ~Desktop();

    const QString& problem() const { return problem_; }
    QString folder() const { return folder_.path(); }
    /// For programs that run on this desktop.
    const QProcessEnvironment& environment() const { return environment_; }
    const QDBusConnection& accessibility() const { return accessibility_; }

  private:
    void start();
    std::unique_ptr<Child> run(const QString& program, const QStringList& arguments) const;
    QString writeBusConfiguration() const;

    QTemporaryDir folder_;
    QProcessEnvironment environment_;
    QString problem_;
    std::unique_ptr<Child> display_;
    std::unique_ptr<Child> bus_;
    std::unique_ptr<Child> launcher_;
    QDBusConnection accessibility_;
};

}  // namespace brindlet::desktop
