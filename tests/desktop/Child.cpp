#include "desktop/Child.h"

#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDeadlineTimer>
#include <QFile>
#include <QThread>

namespace brindlet::desktop {
namespace {

constexpr int patience = 10'000;

}  // namespace

Child::Child(const QString& program, const QStringList& arguments,
             const QProcessEnvironment& environment, const QString& errorFile)
    : errorFile_(errorFile) {
    process_.setProcessEnvironment(environment);
    process_.setStandardErrorFile(errorFile);
    process_.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGTERM); });
    process_.start(program, arguments);
    process_.waitForStarted(patience);
}

Child::~Child() {
    process_.terminate();
    if (process_.state() == QProcess::NotRunning || process_.waitForFinished(patience)) return;
    process_.kill();
    process_.waitForFinished(patience);
}

QString Child::line() {
    const QDeadlineTimer deadline(patience);
    while (!process_.canReadLine())
        if (!process_.waitForReadyRead(static_cast<int>(deadline.remainingTime()))) return {};
    return QString::fromUtf8(process_.readLine()).trimmed();
}

QString Child::errors() const {
    QFile file(errorFile_);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

bool Child::runs() {
    return process_.state() == QProcess::Running && !process_.waitForFinished(0);
}

int Child::end() {
    if (process_.state() != QProcess::NotRunning && !process_.waitForFinished(patience)) return -1;
    return process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : -1;
}

void adoptDescendants() {
    ::prctl(PR_SET_CHILD_SUBREAPER, 1);
}

QList<qint64> children() {
    QFile file(QStringLiteral("/proc/self/task/%1/children").arg(::gettid()));
    QList<qint64> pids;
    if (file.open(QIODevice::ReadOnly))
        for (const auto& pid : file.readAll().split(' '))
            if (!pid.isEmpty()) pids << pid.toLongLong();
    return pids;
}

void endChildren() {
    const QDeadlineTimer deadline(patience);
    for (auto left = children(); !left.isEmpty(); left = children()) {
        for (const auto child : left) {
            const auto pid = static_cast<pid_t>(child);
            ::kill(pid, deadline.hasExpired() ? SIGKILL : SIGTERM);
            ::waitpid(pid, nullptr, deadline.hasExpired() ? 0 : WNOHANG);
        }
        QThread::msleep(5);
    }
}

}  // namespace brindlet::desktop
