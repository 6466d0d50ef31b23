#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <optional>
#include <string>

#include "words/ResumeWords.h"

namespace brindlet {
class AppState;
}

namespace brindlet::screens {

/// The offer to finish an interrupted move. Main thread; the session outlives it.
class ResumeModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(bool shown READ shown NOTIFY changed)
    Q_PROPERTY(QString symbol READ symbol NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString line READ line NOTIFY changed)
    /// Why the latest try went no further; empty before the first.
    Q_PROPERTY(QString error READ error NOTIFY changed)
    Q_PROPERTY(QString resumeLabel READ resumeLabel NOTIFY changed)
    Q_PROPERTY(QString forgetLabel READ forgetLabel NOTIFY changed)
    /// The accounts are being looked for, and the move goes on when they are there.
    Q_PROPERTY(bool waiting READ waiting NOTIFY changed)
    /// Not while it waits, nor while a move runs, which may well be this one.
    Q_PROPERTY(bool canResume READ canResume NOTIFY changed)

  public:
    explicit ResumeModel(AppState& state) : state_(state) {}

    void refresh();
    /// The screen goes: what was tried on it is past.
    void leave();

    bool shown() const { return shown_.words.has_value(); }
    QString symbol() const;
    QString title() const;
    QString line() const;
    QString error() const;
    QString resumeLabel() const;
    QString forgetLabel() const;
    bool waiting() const { return shown_.waiting; }
    bool canResume() const { return !shown_.waiting && !shown_.moving; }

    Q_INVOKABLE void resume();
    Q_INVOKABLE void forget();

  Q_SIGNALS:
    void changed();

  private:
    struct Shown {
        std::optional<ResumeWords> words;
        std::string error;
        bool waiting = false;
        bool moving = false;

        friend bool operator==(const Shown&, const Shown&) = default;
    };
    bool isWaiting() const;

    AppState& state_;
    Shown shown_;
    /// Whether the session's word on the latest move is about what was tried here.
    bool tried_ = false;
};

}  // namespace brindlet::screens
