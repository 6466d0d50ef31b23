#include "app/QtMainQueue.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <QThread>

namespace brindlet {

QtMainQueue::QtMainQueue() : receiver_(std::make_unique<QObject>()) {}

QtMainQueue::~QtMainQueue() {
    end();
}

void QtMainQueue::post(std::function<void()> job) {
    Lock lock(mutex_);
    if (!receiver_) return;
    QMetaObject::invokeMethod(
        receiver_.get(), [job = std::move(job)] { job(); }, Qt::QueuedConnection);
}

bool QtMainQueue::isMainThread() const {
    return QThread::currentThread() == QCoreApplication::instance()->thread();
}

void QtMainQueue::end() {
    // Outside the lock: whoever waits for a dropped job is told by its destruction.
    std::unique_ptr<QObject> receiver;
    {
        Lock lock(mutex_);
        receiver = std::move(receiver_);
    }
}

}  // namespace brindlet
