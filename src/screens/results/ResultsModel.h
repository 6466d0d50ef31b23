#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <cstdint>
#include <optional>
#include <vector>

#include "screens/results/CategoriesModel.h"
#include "screens/results/MessagesModel.h"
#include "screens/results/MoveModel.h"
#include "screens/results/MovedListModel.h"
#include "screens/results/OfferModel.h"
#include "screens/results/UndoModel.h"
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
    Q_PROPERTY(QString rulesSymbol READ rulesSymbol NOTIFY wordsChanged)
    Q_PROPERTY(QString rulesLabel READ rulesLabel NOTIFY wordsChanged)
    Q_PROPERTY(QString historySymbol READ historySymbol NOTIFY wordsChanged)
    Q_PROPERTY(QString historyLabel READ historyLabel NOTIFY wordsChanged)
    Q_PROPERTY(QString automaticSymbol READ automaticSymbol NOTIFY wordsChanged)
    Q_PROPERTY(QString automaticLabel READ automaticLabel NOTIFY wordsChanged)
    Q_PROPERTY(QString nothing READ nothing NOTIFY wordsChanged)
    Q_PROPERTY(bool stopped READ stopped NOTIFY wordsChanged)
    Q_PROPERTY(QString stoppedSymbol READ stoppedSymbol NOTIFY wordsChanged)
    Q_PROPERTY(QString stoppedTitle READ stoppedTitle NOTIFY wordsChanged)
    Q_PROPERTY(QString stoppedText READ stoppedText NOTIFY wordsChanged)
    Q_PROPERTY(QString quitLabel READ quitLabel NOTIFY wordsChanged)
    /// A move took everything.
    Q_PROPERTY(bool allMoved READ allMoved NOTIFY wordsChanged)
    Q_PROPERTY(QString allMovedSymbol READ allMovedSymbol NOTIFY wordsChanged)
    Q_PROPERTY(QString allMovedText READ allMovedText NOTIFY wordsChanged)
    Q_PROPERTY(QString allMovedNext READ allMovedNext NOTIFY wordsChanged)
    Q_PROPERTY(QString messagesName READ messagesName CONSTANT)
    Q_PROPERTY(brindlet::screens::CategoriesModel* categories READ categories CONSTANT)
    Q_PROPERTY(brindlet::screens::MessagesModel* messages READ messages CONSTANT)
    Q_PROPERTY(brindlet::screens::MoveModel* move READ move CONSTANT)
    Q_PROPERTY(brindlet::screens::MovedListModel* moved READ moved CONSTANT)
    Q_PROPERTY(brindlet::screens::UndoModel* undo READ undo CONSTANT)
    Q_PROPERTY(brindlet::screens::OfferModel* offer READ offer CONSTANT)

  public:
    explicit ResultsModel(AppState& state);

    void refresh();
    /// The screen goes: what was open counts as reviewed, and filter and grouping end.
    void leave();

    QString backName() const;
    QString title() const;
    QString summary() const;
    QString scanAnotherLabel() const;
    QString rulesSymbol() const;
    QString rulesLabel() const;
    QString historySymbol() const;
    QString historyLabel() const;
    QString automaticSymbol() const;
    QString automaticLabel() const;
    QString nothing() const;
    bool stopped() const { return words_.scanError.has_value(); }
    QString stoppedSymbol() const;
    QString stoppedTitle() const;
    QString stoppedText() const;
    QString quitLabel() const;
    bool allMoved() const { return words_.allMoved.has_value(); }
    QString allMovedSymbol() const;
    QString allMovedText() const;
    QString allMovedNext() const;
    QString messagesName() const;
    CategoriesModel* categories() { return &categories_; }
    MessagesModel* messages() { return &messages_; }
    MoveModel* move() { return &move_; }
    MovedListModel* moved() { return &moved_; }
    UndoModel* undo() { return &undo_; }
    OfferModel* offer() { return &offer_; }

    Q_INVOKABLE void back();
    Q_INVOKABLE void scanAnother();
    Q_INVOKABLE void openRules();
    Q_INVOKABLE void openHistory();
    Q_INVOKABLE void openAutomatic();
    /// Opens the category in that row, or closes it when it is open.
    Q_INVOKABLE void toggleCategory(int row);
    /// Ticks the whole category in that row, or unticks it when all of it is ticked.
    Q_INVOKABLE void tickCategory(int row);
    /// Opens the category that was reviewed last.
    Q_INVOKABLE void jumpToReviewed();
    Q_INVOKABLE void quit();

  Q_SIGNALS:
    void wordsChanged();
    void quitAsked();
    /// The category in that row should come into sight.
    void jumped(int row);

  private:
    /// Of all that decides which messages stand in which row.
    struct Revisions {
        std::uint64_t verdicts = 0;
        std::uint64_t moved = 0;
        std::uint64_t folder = 0;
        std::uint64_t expand = 0;

        friend bool operator==(const Revisions&, const Revisions&) = default;
    };
    void refreshLists();
    void showOpenCategory();
    void closeCategory();
    void openCategory(std::optional<Category> category);
    const CategoryRows* category(int row) const;

    AppState& state_;
    ResultsWords words_;
    std::optional<Revisions> shown_;
    std::vector<CategoryRows> rows_;
    CategoriesModel categories_;
    MessagesModel messages_;
    MoveModel move_;
    MovedListModel moved_;
    UndoModel undo_;
    OfferModel offer_;
};

}  // namespace brindlet::screens
