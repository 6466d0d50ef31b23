#pragma once

#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QObject>
#include <memory>

namespace brindlet {

/// Whether the desktop prefers light windows, as its settings portal tells. Dark, our first look,
/// where it has no preference or there is no portal. Main thread.
class ColourScheme : public QObject {
    Q_OBJECT

  public:
    /// Asks the portal; the answer may come later, by the signal.
    ColourScheme();

    bool dark() const { return dark_; }

  Q_SIGNALS:
    void changed();

  private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

  private:
    void adopt(const QVariant& scheme);

    bool dark_ = true;
    std::unique_ptr<QDBusPendingCallWatcher> asked_;
};

}  // namespace brindlet
