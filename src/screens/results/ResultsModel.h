#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <cstdint>
#include <optional>
#include <vector>

#include "screens/results/CategoriesModel.h"
#include "screens/results/MessagesModel.h"
#include "words/CategoryWords.h"
#include "words/ResultsWords.h"

namespace brindlet {
class AppState;
}

namespace brindlet::screens {

/// What a scan found. Main thread; the session outlives it.
class ResultsModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(QString backName READ backName CONSTANT)
    Q_PROPERTY(QString title READ title NOTIFY wordsChanged)
    Q_PROPERTY(QString summary READ summary NOTIFY wordsChanged)
    Q_PROPERTY(QString scanAnotherLabel READ scanAnotherLabel NOTIFY wordsChanged)
    Q_PROPERTY(QString nothing READ nothing NOTIFY wordsChanged)
    Q_PROPERTY(bool stopped READ stopped NOTIFY wordsChanged)
    Q_PROPERTY(QString stoppedSymbol READ stoppedSymbol NOTIFY wordsChanged)
    Q_PROPERTY(QString stoppedTitle READ stoppedTitle NOTIFY wordsChanged)
    Q_PROPERTY(QString stoppedText READ stoppedText NOTIFY wordsChanged)
    Q_PROPERTY(QString quitLabel READ quitLabel NOTIFY wordsChanged)
    Q_PROPERTY(QString messagesName READ messagesName CONSTANT)
    Q_PROPERTY(brindlet::screens::CategoriesModel* categories READ categories CONSTANT)
    Q_PROPERTY(brindlet::screens::MessagesModel* messages READ messages CONSTANT)

  public:
    explicit ResultsModel(AppState& state);

    void refresh();

    QString backName() const;
    QString title() const;
    QString summary() const;
    QString scanAnotherLabel() const;
    QString nothing() const;
    bool stopped() const { return words_.scanError.has_value(); }
    QString stoppedSymbol() const;
    QString stoppedTitle() const;
    QString stoppedText() const;
    QString quitLabel() const;
    QString messagesName() const;
    CategoriesModel* categories() { return &categories_; }
    MessagesModel* messages() { return &messages_; }

    Q_INVOKABLE void back();
    Q_INVOKABLE void scanAnother();
    /// Opens the category in that row, or closes it when it is open.
    Q_INVOKABLE void toggleCategory(int row);
    Q_INVOKABLE void quit();

  Q_SIGNALS:
    void wordsChanged();
    void quitAsked();

  private:
    struct Revisions {
        std::uint64_t verdicts = 0;
        std::uint64_t folder = 0;
        std::uint64_t expand = 0;
        std::uint64_t approved = 0;

        friend bool operator==(const Revisions&, const Revisions&) = default;
    };
    void refreshLists();
    void resetMessages(const std::vector<CategoryWords>& headers);

    AppState& state_;
    ResultsWords words_;
    std::optional<Revisions> shown_;
    std::vector<CategoryRows> rows_;
    CategoriesModel categories_;
    MessagesModel messages_;
};

}  // namespace brindlet::screens
