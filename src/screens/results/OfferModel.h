#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <cstdint>
#include <optional>

#include "screens/results/OfferButtonsModel.h"
#include "words/OfferWords.h"

namespace brindlet {
class AppState;
}

namespace brindlet::screens {

/// The offer to apply a correction more widely. Main thread; the session outlives it.
class OfferModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(bool shown READ shown NOTIFY wordsChanged)
    Q_PROPERTY(QString symbol READ symbol NOTIFY wordsChanged)
    Q_PROPERTY(QString question READ question NOTIFY wordsChanged)
    Q_PROPERTY(QString explanation READ explanation NOTIFY wordsChanged)
    Q_PROPERTY(brindlet::screens::OfferButtonsModel* buttons READ buttons CONSTANT)

  public:
    explicit OfferModel(AppState& state) : state_(state) {}

    void refresh();

    bool shown() const { return words_.has_value(); }
    QString symbol() const;
    QString question() const;
    QString explanation() const;
    OfferButtonsModel* buttons() { return &buttons_; }

    /// Does nothing for an offer that another has replaced meanwhile.
    Q_INVOKABLE void press(int row);

  Q_SIGNALS:
    void wordsChanged();

  private:
    AppState& state_;
    std::optional<OfferWords> words_;
    /// The message that the offer on show came from.
    std::int64_t source_ = 0;
    OfferButtonsModel buttons_;
};

}  // namespace brindlet::screens
