#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractListModel>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "session/RuleCoverage.h"
#include "session/VerdictList.h"
#include "words/RuleWords.h"

namespace brindlet {
class AppState;
}

namespace brindlet::screens {

/// Rules in sections, flattened for one list: headings, rules, and under an open rule the messages
/// of the last scan that it covers. It keeps what only the view knows: which rules are open, and
/// which are marked to be forgotten once the view is left. Rows are told apart by what they show,
/// so a change elsewhere moves neither the list nor its current row. Main thread; the session
/// outlives it.
class RuleRowsModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(QString showHelp READ showHelp CONSTANT)
    Q_PROPERTY(QString enableLabel READ enableLabel CONSTANT)
    Q_PROPERTY(QString enableHelp READ enableHelp CONSTANT)
    Q_PROPERTY(QString promoteLabel READ promoteLabel CONSTANT)
    Q_PROPERTY(QString promoteHelp READ promoteHelp CONSTANT)
    Q_PROPERTY(QString markSymbol READ markSymbol CONSTANT)
    Q_PROPERTY(QString markHelp READ markHelp CONSTANT)
    Q_PROPERTY(QString unmarkSymbol READ unmarkSymbol CONSTANT)
    Q_PROPERTY(QString unmarkHelp READ unmarkHelp CONSTANT)
    Q_PROPERTY(QString listName READ listName CONSTANT)

  public:
    enum Kind { Heading, RuleLine, Message, Narrow };
    Q_ENUM(Kind)
    enum Role {
        KindRole = Qt::UserRole + 1,
        TitleRole,        // a heading's label, a rule's sender, a message's subject
        DetailRole,       // a heading's note, the line under a rule, a message's sender
        DescriptionRole,  // what a screen reader adds
        PillRole,
        PillToneRole,
        PillHelpRole,
        HereRole,
        HitsRole,
        CanOpenRole,
        OpenRole,
        HeldRole,
        OfSessionRole,
        MarkedRole,
        TickedRole,
        CanTickRole,
        TickHelpRole,
        FirstRole,  // of its section's card
        LastRole,
    };
    /// What the view shows, asked for whenever the rules changed.
    using Sections = std::vector<RuleSection> (*)(const AppState&);

    RuleRowsModel(AppState& state, Sections sections);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Notifies what differs; looks at the verdicts only when they or the rules changed.
    void refresh();
    /// The view is left: the marked rules are forgotten and everything is closed.
    void leave();

    QString showHelp() const;
    QString enableLabel() const;
    QString enableHelp() const;
    QString promoteLabel() const;
    QString promoteHelp() const;
    QString markSymbol() const;
    QString markHelp() const;
    QString unmarkSymbol() const;
    QString unmarkHelp() const;
    QString listName() const;

    /// Opens or closes a rule, ticks or unticks a message; nothing on other rows.
    Q_INVOKABLE void choose(int row);
    Q_INVOKABLE void setOpen(int row, bool open);
    /// The rule to which a row belongs; the row itself when it belongs to none.
    Q_INVOKABLE int ruleRow(int row) const;
    Q_INVOKABLE void flip(int row);
    Q_INVOKABLE void enable(int row);
    Q_INVOKABLE void promote(int row);
    Q_INVOKABLE void toggleMark(int row);

  private:
    struct Entry {
        Rule rule;
        std::string id;
        /// The same for as long as the model lives.
        std::uint32_t key = 0;
        std::size_t section = 0;
    };
    struct Row {
        Kind kind = Heading;
        /// Into `headings_`, or for all others into `entries_`.
        std::uint32_t subject = 0;
        /// Position of the message.
        std::uint32_t verdict = 0;
        /// Tells which row it is, before and after a change.
        std::uint64_t key = 0;
    };
    struct Revisions {
        std::uint64_t rules = 0;
        std::uint64_t ofSession = 0;
        std::uint64_t verdicts = 0;
        std::uint64_t moved = 0;
        std::uint64_t approved = 0;

        friend bool operator==(const Revisions&, const Revisions&) = default;
    };

    const Row* at(int row, Kind kind) const;
    std::uint32_t keyOf(const std::string& identity);
    void takeRules();
    std::vector<Row> makeRows() const;
    void adoptRows(std::vector<Row> fresh);
    void rebuild();
    QVariant headingData(const Row& row, int role) const;
    QVariant ruleData(const Row& row, int role) const;
    QVariant messageData(const Row& row, int role) const;

    AppState& state_;
    const Sections sections_;
    RuleCoverage coverage_;
    VerdictList verdicts_;
    std::optional<Revisions> shown_;
    std::vector<std::pair<std::string, std::string>> headings_;
    std::vector<Entry> entries_;
    std::vector<Row> rows_;
    std::unordered_map<std::string, std::uint32_t> keys_;
    std::set<std::uint32_t> open_;
    std::set<std::string> marked_;
};

}  // namespace brindlet::screens
