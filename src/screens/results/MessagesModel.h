#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractListModel>
#include <QString>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>

#include "base/IdSet.h"
#include "classify/Verdict.h"
#include "screens/results/MessageRows.h"
#include "screens/results/RowFilter.h"
#include "session/VerdictList.h"
#include "words/CategoryWords.h"
#include "words/ListWords.h"
#include "words/SenderWords.h"

namespace brindlet {
class AppState;
}

namespace brindlet::screens {

/// The rows of the open category, flattened: messages, or senders of whom one at a time is open,
/// and last those that protection kept. Words are made when a view asks, so fifty thousand rows
/// cost nothing until they are scrolled to. Built by hand instead of on a proxy: one reset is
/// cheaper than thousands of row signals.
///
/// The filter, the grouping and the open sender live here, and end when the category closes. Main
/// thread; the session outlives it.
class MessagesModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(QString filter READ filter WRITE setFilter NOTIFY filterChanged)
    Q_PROPERTY(QString filterSymbol READ filterSymbol CONSTANT)
    Q_PROPERTY(QString filterPrompt READ filterPrompt CONSTANT)
    Q_PROPERTY(QString clearLabel READ clearLabel CONSTANT)
    /// Empty without a filter.
    Q_PROPERTY(QString matchLine READ matchLine NOTIFY linesChanged)
    Q_PROPERTY(QString tickAllLabel READ tickAllLabel CONSTANT)
    Q_PROPERTY(QString untickAllLabel READ untickAllLabel CONSTANT)
    Q_PROPERTY(bool bySender READ bySender WRITE setBySender NOTIFY bySenderChanged)
    Q_PROPERTY(QString bySenderSymbol READ bySenderSymbol CONSTANT)
    Q_PROPERTY(QString bySenderLabel READ bySenderLabel CONSTANT)
    Q_PROPERTY(QString bySenderHelp READ bySenderHelp CONSTANT)
    Q_PROPERTY(QString scrollLine READ scrollLine NOTIFY linesChanged)

  public:
    enum Kind { Message, Sender, Heading };
    Q_ENUM(Kind)

    enum Role {
        KindRole = Qt::UserRole + 1,
        IndentRole,
        TitleRole,
        DetailRole,
        TickSymbolRole,
        TickHelpRole,
        CanTickRole,
        CountRole,
        ChevronRole,
        ExpandedRole,
        NoteRole,
        NoteToneRole,
        NoteHelpRole,
        OpenHelpRole,
        ReviewedRole,
        ReviewedHelpRole,
        /// All that a row shows beside its title, its detail and its tick.
        DescriptionRole,
    };

    explicit MessagesModel(AppState& state) : state_(state) {}

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    QString filter() const { return filter_; }
    void setFilter(const QString& text);
    QString filterSymbol() const;
    QString filterPrompt() const;
    QString clearLabel() const;
    QString matchLine() const;
    QString tickAllLabel() const;
    QString untickAllLabel() const;
    bool bySender() const { return bySender_; }
    void setBySender(bool grouped);
    QString bySenderSymbol() const;
    QString bySenderLabel() const;
    QString bySenderHelp() const;
    QString scrollLine() const;

    /// A message: ticks or unticks it, unless it has no id. A sender: ticks all of its messages, or
    /// unticks them when all are ticked.
    Q_INVOKABLE void tick(int row);
    /// For senders; opening one closes the other.
    Q_INVOKABLE void setExpanded(int row, bool expanded);
    Q_INVOKABLE void toggleExpanded(int row);
    /// A sender's own row, or that of the sender whom a message stands below; -1 for all others.
    Q_INVOKABLE int senderRow(int row) const;
    Q_INVOKABLE void openInMail(int row);
    /// What the filter leaves.
    Q_INVOKABLE void tickAll();
    Q_INVOKABLE void untickAll();
    /// Leads to the sender that was reviewed last, if it is in the list.
    Q_INVOKABLE void jumpToReviewed();

    /// The one that the rows are of.
    std::optional<Category> category() const;
    /// Other verdicts, or another category; for the same category, filter and grouping stay.
    void show(const CategoryRows& rows);
    /// The category closes: its open sender counts as reviewed.
    void close();
    /// Other ticks or other review marks on the same messages.
    void refresh();

  Q_SIGNALS:
    void filterChanged();
    void bySenderChanged();
    void linesChanged();
    void jumped(int row);

  private:
    QVariant messageData(const Verdict& verdict, bool indented, int role) const;
    QVariant senderData(std::size_t sender, int role) const;
    QVariant headingData(int role) const;
    SenderFacts facts(std::size_t sender) const;
    /// A sender's messages that can be ticked.
    const IdSet& tickable(std::size_t sender) const;
    /// The sender whose row stands for the message at that position, in a grouped list.
    std::optional<std::size_t> senderOf(std::uint32_t position) const;

    /// None for a row that is not there, or is of verdicts that the session has no more.
    std::optional<MessageRows::Row> present(int row) const;
    bool isCurrent() const;
    void rebuild();
    void makeRows();
    void openGroup(std::size_t sender);
    void closeGroup();
    void forgetGroup();
    void refreshLines();
    void refreshTicks();
    void refreshReviewed();
    void tickMatches(bool tick);
    void notify(std::size_t first, std::size_t last, const QList<int>& roles);

    AppState& state_;
    /// Those that the rows show; a list of its own, so that a row never speaks of another message.
    VerdictList verdicts_;
    std::uint64_t verdictsRevision_ = 0;
    std::optional<CategoryRows> category_;
    RowFilter rowFilter_;
    QString filter_;
    bool bySender_ = false;
    /// The key of the open sender.
    std::optional<std::string> open_;
    MessageRows rows_;
    std::size_t matched_ = 0;
    mutable std::unordered_map<std::size_t, IdSet> tickable_;
    /// What the view was last told of.
    IdSet ticks_;
    std::string lastReviewed_;
    std::string matchLine_;
    std::string scrollLine_;
    ListWords words_;
};

}  // namespace brindlet::screens
