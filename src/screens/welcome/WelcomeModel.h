#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <vector>

#include "screens/LinesModel.h"
#include "screens/welcome/ResumeModel.h"
#include "words/WelcomeWords.h"

namespace brindlet {
class AppState;
}

namespace brindlet::screens {

/// The first screen. Main thread; the session outlives it.
class WelcomeModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(QString symbol READ symbol CONSTANT)
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString text READ text CONSTANT)
    Q_PROPERTY(QString startLabel READ startLabel CONSTANT)
    Q_PROPERTY(brindlet::screens::LinesModel* badges READ badges CONSTANT)
    Q_PROPERTY(brindlet::screens::LinesModel* links READ links CONSTANT)
    Q_PROPERTY(brindlet::screens::ResumeModel* resume READ resume CONSTANT)

  public:
    explicit WelcomeModel(AppState& state);

    void refresh();
    void leave();

    QString symbol() const;
    QString title() const;
    QString text() const;
    QString startLabel() const;
    LinesModel* badges() { return &badges_; }
    LinesModel* links() { return &links_; }
    ResumeModel* resume() { return &resume_; }

    Q_INVOKABLE void start();
    /// To where that link leads.
    Q_INVOKABLE void follow(int link);

  private:
    AppState& state_;
    WelcomeWords words_;
    std::vector<HomeLink> homeLinks_;
    LinesModel badges_;
    LinesModel links_;
    ResumeModel resume_;
};

}  // namespace brindlet::screens
