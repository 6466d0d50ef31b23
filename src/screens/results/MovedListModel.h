#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractListModel>
#include <QString>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/IdSet.h"
#include "screens/results/RowFilter.h"
#include "session/VerdictList.h"
#include "words/MovedWords.h"

namespace brindlet {
class AppState;
}

namespace brindlet::screens {

/// The messages that have left the folder, and their ticks for the way back. Words are made when a
/// view asks, and a tick is one notification, however many rows there are.
///
/// Whether the section is open and its filter live here, and end with a look at it. Main thread;
/// the session outlives it.
class MovedListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(bool shown READ shown NOTIFY changed)
    Q_PROPERTY(QString symbol READ symbol NOTIFY changed)
    Q_PROPERTY(QString heading READ heading NOTIFY changed)
    Q_PROPERTY(QString badge READ badge NOTIFY changed)
    Q_PROPERTY(int badgeTone READ badgeTone NOTIFY changed)
    /// How many are ticked; empty where none is.
    Q_PROPERTY(QString toPutBack READ toPutBack NOTIFY changed)
    Q_PROPERTY(QString putBackLabel READ putBackLabel NOTIFY changed)
    Q_PROPERTY(bool canPutBack READ canPutBack NOTIFY changed)
    /// What the header shows beside its heading.
    Q_PROPERTY(QString description READ description NOTIFY changed)
    Q_PROPERTY(bool expanded READ expanded WRITE setExpanded NOTIFY changed)
    Q_PROPERTY(QString chevron READ chevron NOTIFY changed)
    Q_PROPERTY(QString listName READ listName CONSTANT)
    Q_PROPERTY(QString hint READ hint CONSTANT)
    Q_PROPERTY(QString filter READ filter WRITE setFilter NOTIFY filterChanged)
    Q_PROPERTY(QString filterSymbol READ filterSymbol CONSTANT)
    Q_PROPERTY(QString filterPrompt READ filterPrompt CONSTANT)
    Q_PROPERTY(QString clearLabel READ clearLabel CONSTANT)
    Q_PROPERTY(QString scrollLine READ scrollLine NOTIFY scrollLineChanged)

  public:
    enum Role { TitleRole = Qt::UserRole + 1, DetailRole, TickSymbolRole };

    explicit MovedListModel(AppState& state) : state_(state) {}

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    void refresh();
    /// The screen goes: the section closes.
    void leave();

    bool shown() const { return words_.has_value(); }
    QString symbol() const;
    QString heading() const;
    QString badge() const;
    int badgeTone() const;
    QString toPutBack() const;
    QString putBackLabel() const;
    bool canPutBack() const { return words_ && words_->ready; }
    QString description() const;
    bool expanded() const { return expanded_; }
    void setExpanded(bool expanded);
    QString chevron() const;
    QString listName() const;
    QString hint() const;
    QString filter() const { return filter_; }
    void setFilter(const QString& text);
    QString filterSymbol() const;
    QString filterPrompt() const;
    QString clearLabel() const;
    QString scrollLine() const;

    /// Ticks the message in that row to be put back, or unticks it.
    Q_INVOKABLE void tick(int row);
    Q_INVOKABLE void putBack();

  Q_SIGNALS:
    void changed();
    void filterChanged();
    void scrollLineChanged();

  private:
    void refreshRows();
    void refreshTicks();
    void refreshScrollLine();
    void refreshWords();
    void makeRows();
    std::optional<int> rowOf(std::uint32_t position) const;
    /// Revisions of the list and of what was moved out of it.
    std::pair<std::uint64_t, std::uint64_t> revisions() const;

    AppState& state_;
    /// Those that the rows show; a list of its own, so that a row never speaks of another message.
    VerdictList verdicts_;
    std::pair<std::uint64_t, std::uint64_t> shownRevisions_;
    RowFilter rowFilter_;
    /// Places in `verdicts_`, ascending: of all moved messages, and of those that the filter
    /// leaves.
    std::vector<std::uint32_t> moved_;
    std::vector<std::uint32_t> rows_;
    QString filter_;
    /// The ticks that were last shown.
    IdSet ticks_;
    bool expanded_ = false;
    std::optional<MovedSectionWords> words_;
    std::string scrollLine_;
    MovedListWords listWords_;
};

}  // namespace brindlet::screens
