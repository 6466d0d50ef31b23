#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <optional>

#include "screens/LinesModel.h"
#include "words/GmailNoticeWords.h"

namespace brindlet {
class AppState;
}

namespace brindlet::screens {

/// What stands on the picker about a Gmail account. Main thread; the session outlives it.
class GmailNoticeModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(bool shown READ shown NOTIFY wordsChanged)
    Q_PROPERTY(bool connected READ connected NOTIFY wordsChanged)
    Q_PROPERTY(QString symbol READ symbol NOTIFY wordsChanged)
    /// A `Tone`.
    Q_PROPERTY(int tone READ tone NOTIFY wordsChanged)
    Q_PROPERTY(QString title READ title NOTIFY wordsChanged)
    Q_PROPERTY(QString text READ text NOTIFY wordsChanged)
    Q_PROPERTY(QString control READ control NOTIFY wordsChanged)
    /// Whether it tells what the permission means.
    Q_PROPERTY(bool expanded READ expanded NOTIFY expandedChanged)
    Q_PROPERTY(QString disclosure READ disclosure NOTIFY expandedChanged)
    Q_PROPERTY(QString disclosureSymbol READ disclosureSymbol NOTIFY expandedChanged)
    Q_PROPERTY(QString disclosureState READ disclosureState NOTIFY expandedChanged)
    Q_PROPERTY(brindlet::screens::LinesModel* lines READ lines CONSTANT)

  public:
    explicit GmailNoticeModel(AppState& state);

    void refresh();
    /// The screen goes.
    void leave();

    bool shown() const { return words_.has_value(); }
    bool connected() const { return words_ && words_->connected; }
    QString symbol() const;
    int tone() const;
    QString title() const;
    QString text() const;
    QString control() const;
    bool expanded() const { return expanded_; }
    QString disclosure() const;
    QString disclosureSymbol() const;
    /// For a screen reader.
    QString disclosureState() const;
    LinesModel* lines() { return &lines_; }

    /// Connects, or disconnects.
    Q_INVOKABLE void press();
    Q_INVOKABLE void toggle();

  Q_SIGNALS:
    void wordsChanged();
    void expandedChanged();

  private:
    void setExpanded(bool expanded);

    AppState& state_;
    std::optional<GmailNoticeWords> words_;
    const GmailPermissionWords permission_;
    LinesModel lines_;
    bool expanded_ = false;
};

}  // namespace brindlet::screens
