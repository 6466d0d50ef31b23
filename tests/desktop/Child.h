#pragma once

#include <QList>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

namespace brindlet::desktop {

/// A program that runs beside the test and ends with this object, or with the test however that
/// ends. Its standard error goes to a file.
class Child {
  public:
    Child(const QString& program, const QStringList& arguments,
          const QProcessEnvironment& environment, const QString& errorFile);
    /// Asks it to end, so that it removes its sockets, and insists after a while.
    ~Child();

    /// The next line of its standard output; empty when none comes in time.
    QString line();
    qint64 pid() const { return process_.processId(); }
    /// What it has said on standard error so far.
    QString errors() const;
    bool runs();
    /// Waits for its end; gives its exit code, or -1 when it was killed or goes on.
    int end();

  private:
    QProcess process_;
    QString errorFile_;
};

/// From now on this process is the parent of all descendants whose own parent has ended. Programs
/// that a bus has started are found in no other way.
void adoptDescendants();
/// The processes whose parent this one is.
QList<qint64> children();
/// Ends all of them, and whatever they leave behind.
void endChildren();

}  // namespace brindlet::desktop
