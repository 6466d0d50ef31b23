#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "screens/QtText.h"
#include "words/RuleWords.h"

namespace brindlet::screens {

/// What the controls of a rule say, for QML.
class RuleControlsText : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(QString showHelp MEMBER showHelp CONSTANT)
    Q_PROPERTY(QString enable MEMBER enable CONSTANT)
    Q_PROPERTY(QString enableHelp MEMBER enableHelp CONSTANT)
    Q_PROPERTY(QString promote MEMBER promote CONSTANT)
    Q_PROPERTY(QString promoteHelp MEMBER promoteHelp CONSTANT)
    Q_PROPERTY(QString markSymbol MEMBER markSymbol CONSTANT)
    Q_PROPERTY(QString markHelp MEMBER markHelp CONSTANT)
    Q_PROPERTY(QString unmarkSymbol MEMBER unmarkSymbol CONSTANT)
    Q_PROPERTY(QString unmarkHelp MEMBER unmarkHelp CONSTANT)

  public:
    QString showHelp = qtText(RuleControls().showHelp);
    QString enable = qtText(RuleControls().enable);
    QString enableHelp = qtText(RuleControls().enableHelp);
    QString promote = qtText(RuleControls().promote);
    QString promoteHelp = qtText(RuleControls().promoteHelp);
    QString markSymbol = qtText(RuleControls().markSymbol);
    QString markHelp = qtText(RuleControls().markHelp);
    QString unmarkSymbol = qtText(RuleControls().unmarkSymbol);
    QString unmarkHelp = qtText(RuleControls().unmarkHelp);
};

}  // namespace brindlet::screens
