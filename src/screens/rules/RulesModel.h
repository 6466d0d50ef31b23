#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "screens/pick/ChoicesModel.h"
#include "screens/rules/CalibrationRowsModel.h"
#include "screens/rules/RuleRowsModel.h"
#include "words/RulesWords.h"

namespace brindlet {
class AppState;
}

namespace brindlet::screens {

/// Everything that was learned. Main thread; the session outlives it.
class RulesModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(QString backName READ backName CONSTANT)
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString counts READ counts NOTIFY changed)
    Q_PROPERTY(QString nothing READ nothing NOTIFY changed)
    Q_PROPERTY(QString forgetAllLabel READ forgetAllLabel NOTIFY changed)
    Q_PROPERTY(bool canForgetAll READ canForgetAll NOTIFY changed)
    /// The first of the two steps is done.
    Q_PROPERTY(bool forgettingAll READ forgettingAll NOTIFY changed)
    Q_PROPERTY(QString prompt READ prompt CONSTANT)
    Q_PROPERTY(QString kindName READ kindName CONSTANT)
    Q_PROPERTY(QString verdictName READ verdictName CONSTANT)
    Q_PROPERTY(QString addLabel READ addLabel CONSTANT)
    Q_PROPERTY(QString note READ note CONSTANT)
    Q_PROPERTY(brindlet::screens::ChoicesModel* kinds READ kinds CONSTANT)
    Q_PROPERTY(brindlet::screens::ChoicesModel* verdicts READ verdicts CONSTANT)
    Q_PROPERTY(brindlet::screens::CalibrationRowsModel* learned READ learned CONSTANT)
    Q_PROPERTY(brindlet::screens::RuleRowsModel* rules READ rules CONSTANT)

  public:
    explicit RulesModel(AppState& state);

    void refresh();
    /// The screen is left, whichever way: the marked rules are forgotten, and what only the screen
    /// knew is as it was at first.
    void leave();

    QString backName() const;
    QString title() const;
    QString counts() const;
    QString nothing() const;
    QString forgetAllLabel() const;
    bool canForgetAll() const { return words_.canForgetAll; }
    bool forgettingAll() const { return forgettingAll_; }
    QString prompt() const;
    QString kindName() const;
    QString verdictName() const;
    QString addLabel() const;
    QString note() const;
    ChoicesModel* kinds() { return &kinds_; }
    ChoicesModel* verdicts() { return &verdicts_; }
    CalibrationRowsModel* learned() { return &learned_; }
    RuleRowsModel* rules() { return &rules_; }

    Q_INVOKABLE void back();
    Q_INVOKABLE void forgetAll();
    Q_INVOKABLE void chooseKind(int row);
    Q_INVOKABLE void chooseVerdict(int row);
    /// False when the text gives no key, and no rule was made.
    Q_INVOKABLE bool add(const QString& sender);

  Q_SIGNALS:
    void changed();

  private:
    void showChoices();

    AppState& state_;
    RulesWords words_;
    bool forgettingAll_ = false;
    /// Into `ruleCategories`.
    std::size_t kind_ = 0;
    Rule::Verdict verdict_ = Rule::Verdict::junk;
    ChoicesModel kinds_;
    ChoicesModel verdicts_;
    CalibrationRowsModel learned_;
    RuleRowsModel rules_;
};

}  // namespace brindlet::screens
