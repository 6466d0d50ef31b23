#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QMutex>
#include <QStringList>
#include <QThread>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace brindlet::desktop {

/// A line of a menu in the tray, as its host draws it.
struct TrayLine {
    int id = 0;
    /// Empty for a divider.
    QString text;
    bool enabled = true;
};

/// A panel with a place for the programs' symbols: the list that they enter themselves in, on the
/// session bus, and the eyes and the hand of the person before it. The list answers on a thread of
/// its own, because a program may wait for it while the test waits for the program.
class TrayHost {
  public:
    explicit TrayHost(const QString& busAddress);
    ~TrayHost();
    TrayHost(const TrayHost&) = delete;
    TrayHost& operator=(const TrayHost&) = delete;

    /// A property of the only item. Waits until there is one.
    QVariant property(const QString& name) const;
    /// The name of the symbol's bytes: equal symbols have equal ones.
    QByteArray symbol() const;
    std::vector<TrayLine> menu() const;
    /// The texts of the menu one below the other, dividers as "---".
    std::string text() const;
    /// Waits for it; fails the test, with the menu that there is, when it does not come.
    void await(const char* what, const std::function<bool(const QString& text)>& condition) const;
    void awaitText(const std::string& text) const;
    /// Chooses the line with these words.
    void choose(const QString& words) const;
    /// Clicks the symbol itself.
    void activate() const;

  private:
    class List;

    QDBusMessage call(const QString& path, const QString& interface, const QString& member,
                      const QVariantList& arguments) const;
    /// The only item's name on the bus; empty, and a failure, when none comes.
    QString item() const;

    QThread thread_;
    QDBusConnection bus_;
    std::unique_ptr<List> list_;
};

}  // namespace brindlet::desktop
