#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "screens/history/BinModel.h"
#include "screens/history/ScansModel.h"
#include "screens/rules/RuleRowsModel.h"
#include "words/HistoryWords.h"

namespace brindlet {
class AppState;
}

namespace brindlet::screens {

/// What was done: the rules that were taught, the past scans and the bin. What only the view knows,
/// the open rows, the rules marked to go and the first of two steps, ends when the view is left.
/// Main thread; the session outlives it.
class HistoryModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(QString backName READ backName CONSTANT)
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString count READ count NOTIFY wordsChanged)
    Q_PROPERTY(QString nothing READ nothing NOTIFY wordsChanged)
    Q_PROPERTY(QString rulesTitle READ rulesTitle CONSTANT)
    Q_PROPERTY(QString scansName READ scansName CONSTANT)
    Q_PROPERTY(QString movedName READ movedName CONSTANT)
    Q_PROPERTY(QString putOnScreenLabel READ putOnScreenLabel CONSTANT)
    Q_PROPERTY(QString deleteLabel READ deleteLabel CONSTANT)
    Q_PROPERTY(QString deleteSymbol READ deleteSymbol CONSTANT)
    Q_PROPERTY(QString forgetLabel READ forgetLabel NOTIFY wordsChanged)
    Q_PROPERTY(QString forgetNote READ forgetNote NOTIFY wordsChanged)
    Q_PROPERTY(QString binTitle READ binTitle CONSTANT)
    Q_PROPERTY(QString binNote READ binNote NOTIFY wordsChanged)
    Q_PROPERTY(QString binName READ binName CONSTANT)
    Q_PROPERTY(QString emptyLabel READ emptyLabel NOTIFY emptyAskedChanged)
    /// The next press of the button empties the bin.
    Q_PROPERTY(bool emptyAsked READ emptyAsked NOTIFY emptyAskedChanged)
    Q_PROPERTY(QString putBackLabel READ putBackLabel CONSTANT)
    Q_PROPERTY(QString purgeHelp READ purgeHelp CONSTANT)
    Q_PROPERTY(brindlet::screens::RuleRowsModel* rules READ rules CONSTANT)
    Q_PROPERTY(brindlet::screens::ScansModel* scans READ scans CONSTANT)
    Q_PROPERTY(brindlet::screens::BinModel* bin READ bin CONSTANT)

  public:
    explicit HistoryModel(AppState& state);

    void refresh();
    /// The view is left: the marked rules are forgotten.
    void leave();

    QString backName() const;
    QString title() const;
    QString count() const;
    QString nothing() const;
    QString rulesTitle() const;
    QString scansName() const;
    QString movedName() const;
    QString putOnScreenLabel() const;
    QString deleteLabel() const;
    QString deleteSymbol() const;
    QString forgetLabel() const;
    QString forgetNote() const;
    QString binTitle() const;
    QString binNote() const;
    QString binName() const;
    QString emptyLabel() const;
    bool emptyAsked() const { return emptyStep_ == Step::second; }
    QString putBackLabel() const;
    QString purgeHelp() const;
    RuleRowsModel* rules() { return &rules_; }
    ScansModel* scans() { return &scans_; }
    BinModel* bin() { return &bin_; }

    Q_INVOKABLE void back();
    Q_INVOKABLE void setOpen(int scan, bool open);
    Q_INVOKABLE void putOnScreen(int scan);
    Q_INVOKABLE void deleteScan(int scan);
    Q_INVOKABLE void forgetSorted();
    /// The first press asks, the second empties.
    Q_INVOKABLE void emptyBin();
    Q_INVOKABLE void putBack(int binned);
    /// The first press asks, the second deletes for good.
    Q_INVOKABLE void purge(int binned);

  Q_SIGNALS:
    void wordsChanged();
    void emptyAskedChanged();

  private:
    void setEmptyStep(Step step);

    AppState& state_;
    HistoryWords words_;
    Step emptyStep_ = Step::first;
    RuleRowsModel rules_;
    ScansModel scans_;
    BinModel bin_;
};

}  // namespace brindlet::screens
