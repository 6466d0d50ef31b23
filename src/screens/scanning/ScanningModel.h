#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "screens/LinesModel.h"
#include "words/ScanningWords.h"

namespace brindlet {
class AppState;
}

namespace brindlet::screens {

/// A scan in progress. Main thread; the session outlives it.
class ScanningModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(qreal share READ share NOTIFY wordsChanged)
    Q_PROPERTY(QString percent READ percent NOTIFY wordsChanged)
    Q_PROPERTY(QString count READ count NOTIFY wordsChanged)
    Q_PROPERTY(QString stage READ stage NOTIFY wordsChanged)
    Q_PROPERTY(QString place READ place NOTIFY wordsChanged)
    Q_PROPERTY(bool pausedOnBattery READ pausedOnBattery NOTIFY wordsChanged)
    Q_PROPERTY(QString keepScanningLabel READ keepScanningLabel NOTIFY wordsChanged)
    Q_PROPERTY(bool keepsScanning READ keepsScanning NOTIFY wordsChanged)
    Q_PROPERTY(QString stopLabel READ stopLabel NOTIFY wordsChanged)
    Q_PROPERTY(QString ringName READ ringName CONSTANT)
    Q_PROPERTY(brindlet::screens::LinesModel* stats READ stats CONSTANT)

  public:
    explicit ScanningModel(AppState& state);

    void refresh();

    /// How much of the ring is filled: never less than a sliver once there is something to do.
    qreal share() const;
    QString percent() const;
    QString count() const;
    QString stage() const;
    QString place() const;
    bool pausedOnBattery() const { return words_.pausedOnBattery; }
    QString keepScanningLabel() const;
    bool keepsScanning() const { return words_.keepsScanning; }
    QString stopLabel() const;
    QString ringName() const;
    LinesModel* stats() { return &stats_; }

    Q_INVOKABLE void setKeepsScanning(bool keeps);
    Q_INVOKABLE void stop();

  Q_SIGNALS:
    void wordsChanged();

  private:
    AppState& state_;
    ScanningWords words_;
    bool somethingToDo_ = false;
    LinesModel stats_;
};

}  // namespace brindlet::screens
