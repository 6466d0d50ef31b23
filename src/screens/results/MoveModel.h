#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "screens/results/DestinationsModel.h"
#include "words/MoveWords.h"

namespace brindlet {
class AppState;
}

namespace brindlet::screens {

/// The bar that moves what is ticked, and how the move goes. Main thread; the session outlives it.
class MoveModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    /// Whether the buttons stand.
    Q_PROPERTY(bool offered READ offered NOTIFY wordsChanged)
    Q_PROPERTY(QString symbol READ symbol NOTIFY wordsChanged)
    Q_PROPERTY(QString label READ label NOTIFY wordsChanged)
    Q_PROPERTY(bool canMove READ canMove NOTIFY wordsChanged)
    Q_PROPERTY(bool moving READ moving NOTIFY wordsChanged)
    Q_PROPERTY(QString stopLabel READ stopLabel CONSTANT)
    Q_PROPERTY(QString stopHelp READ stopHelp CONSTANT)
    /// Whether there is a choice of destinations.
    Q_PROPERTY(bool hasChoice READ hasChoice NOTIFY wordsChanged)
    Q_PROPERTY(QString menuSymbol READ menuSymbol CONSTANT)
    Q_PROPERTY(QString menuHelp READ menuHelp CONSTANT)
    Q_PROPERTY(brindlet::screens::DestinationsModel* destinations READ destinations CONSTANT)
    Q_PROPERTY(bool hasStatus READ hasStatus NOTIFY wordsChanged)
    Q_PROPERTY(QString statusSymbol READ statusSymbol NOTIFY wordsChanged)
    /// A `Tone`.
    Q_PROPERTY(int statusTone READ statusTone NOTIFY wordsChanged)
    Q_PROPERTY(QString statusTitle READ statusTitle NOTIFY wordsChanged)
    Q_PROPERTY(QString statusText READ statusText NOTIFY wordsChanged)
    /// With the bar; empty when there is none.
    Q_PROPERTY(QString count READ count NOTIFY wordsChanged)
    Q_PROPERTY(qreal share READ share NOTIFY wordsChanged)
    Q_PROPERTY(QString progressName READ progressName CONSTANT)

  public:
    explicit MoveModel(AppState& state) : state_(state) {}

    void refresh();

    bool offered() const { return words_.offered; }
    QString symbol() const;
    QString label() const;
    bool canMove() const { return words_.canMove; }
    bool moving() const { return words_.moving; }
    QString stopLabel() const;
    QString stopHelp() const;
    bool hasChoice() const { return !words_.destinations.empty(); }
    QString menuSymbol() const;
    QString menuHelp() const;
    DestinationsModel* destinations() { return &destinations_; }
    bool hasStatus() const { return words_.status.has_value(); }
    QString statusSymbol() const;
    int statusTone() const;
    QString statusTitle() const;
    QString statusText() const;
    QString count() const;
    qreal share() const { return words_.status ? words_.status->share : 0; }
    QString progressName() const;

    Q_INVOKABLE void press();
    /// Ends the running move where it is.
    Q_INVOKABLE void stop();
    /// From now on the account's junk goes to the destination in that row.
    Q_INVOKABLE void choose(int row);

  Q_SIGNALS:
    void wordsChanged();

  private:
    AppState& state_;
    MoveWords words_;
    DestinationsModel destinations_;
};

}  // namespace brindlet::screens
