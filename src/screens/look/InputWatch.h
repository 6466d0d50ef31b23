#pragma once

#include <QtQml/qqmlregistration.h>
#include <QPointer>
#include <QQuickWindow>

namespace brindlet::screens {

/// Tells whether the person last used the keyboard or the mouse in a window: the focus shows only
/// to those who steer by it.
class InputWatch : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickWindow* window READ window WRITE setWindow NOTIFY windowChanged)
    Q_PROPERTY(bool keyboardLeads READ keyboardLeads NOTIFY keyboardLeadsChanged)

  public:
    QQuickWindow* window() const { return window_; }
    void setWindow(QQuickWindow* window);
    bool keyboardLeads() const { return keyboardLeads_; }

    bool eventFilter(QObject* watched, QEvent* event) override;

  Q_SIGNALS:
    void windowChanged();
    void keyboardLeadsChanged();
    /// By any key, button, finger or wheel, before the window acts on it.
    void used();

  private:
    void setKeyboardLeads(bool leads);

    QPointer<QQuickWindow> window_;
    bool keyboardLeads_ = false;
};

}  // namespace brindlet::screens
