#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <optional>

#include "screens/results/DestinationsModel.h"
#include "words/IntentWords.h"

namespace brindlet {
class AppState;
}

namespace brindlet::screens {

/// What stands on the picker about where junk will go. Main thread; the session outlives it.
class IntentModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(bool shown READ shown NOTIFY wordsChanged)
    Q_PROPERTY(QString symbol READ symbol NOTIFY wordsChanged)
    /// Empty where there is a destination.
    Q_PROPERTY(QString backwards READ backwards NOTIFY wordsChanged)
    Q_PROPERTY(QString label READ label NOTIFY wordsChanged)
    Q_PROPERTY(QString destination READ destination NOTIFY wordsChanged)
    Q_PROPERTY(Tint tint READ tint NOTIFY wordsChanged)
    Q_PROPERTY(QString menuSymbol READ menuSymbol NOTIFY wordsChanged)
    Q_PROPERTY(brindlet::screens::DestinationsModel* destinations READ destinations CONSTANT)
    Q_PROPERTY(QString text READ text NOTIFY wordsChanged)

  public:
    enum Tint { Fresh, Own, Spam };
    Q_ENUM(Tint)

    explicit IntentModel(AppState& state) : state_(state) {}

    void refresh();

    bool shown() const { return words_.has_value(); }
    QString symbol() const;
    QString backwards() const;
    QString label() const;
    QString destination() const;
    Tint tint() const;
    QString menuSymbol() const;
    DestinationsModel* destinations() { return &destinations_; }
    QString text() const;

    /// From now on the account's junk goes to the destination in that row.
    Q_INVOKABLE void choose(int row);

  Q_SIGNALS:
    void wordsChanged();

  private:
    AppState& state_;
    std::optional<IntentWords> words_;
    DestinationsModel destinations_;
};

}  // namespace brindlet::screens
