#include "screens/Coalescer.h"

#include <QMetaObject>
#include <utility>

namespace brindlet::screens {

Coalescer::Coalescer(Observable& observed, std::function<void()> refresh)
    : refresh_(std::move(refresh)), subscription_(observed.subscribe([this] {
          if (std::exchange(queued_, true)) return;
          QMetaObject::invokeMethod(
              this, [this] { refreshNow(); }, Qt::QueuedConnection);
      })) {}

void Coalescer::refreshNow() {
    // Cleared first: a refresh that changes the session gets another turn instead of recursion.
    queued_ = false;
    ++refreshes_;
    refresh_();
}

}  // namespace brindlet::screens
