#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractListModel>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "screens/rules/RuleControlsText.h"
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
    Q_PROPERTY(QString listName READ listName CONSTANT)
    Q_PROPERTY(brindlet::screens::RuleControlsText* controls READ controls CONSTANT)

  public:
    enum Kind { Heading, RuleItem, Message, Narrow };
    Q_ENUM(Kind)
    enum Role {
        RulesRole = Qt::UserRole + 1,  // this model, for the buttons of a row
        KindRole,
        TitleRole,        // a heading's label, a rule's sender, a message's subject, a line
        DetailRole,       // a heading's note, the line under a rule, a message's sender
        DescriptionRole,  // what a screen reader says besides the title
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
        TickSymbolRole,
        TickHelpRole,
        CanTickRole,
        FirstRole,  // under its heading
        LastRole,
    };
    /// What the view shows, asked for whenever the rules changed.
    using Sections = std::vector<RuleSection> (*)(const AppState&);

    RuleRowsModel(AppState& state, Sections sections);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Looks at the verdicts only when they or the rules changed.
    void refresh();
    /// The view is left: the marked rules are forgotten and everything is closed.
    void leave();

    QString listName() const;
    RuleControlsText* controls() { return &controls_; }

    /// Opens or closes a rule, ticks or unticks a message; nothing on other rows.
    Q_INVOKABLE void choose(int row);
    /// Nothing on rows that are no rule, and on rules that cover no mail.
    Q_INVOKABLE void setOpen(int row, bool open);
    /// The row of the rule to which a row belongs; the row itself when there is none.
    Q_INVOKABLE int ruleRow(int row) const;
    Q_INVOKABLE void flip(int row);
    Q_INVOKABLE void enable(int row);
    Q_INVOKABLE void promote(int row);
    Q_INVOKABLE void toggleMark(int row);

  private:
    /// Names a heading or a rule for as long as the model lives.
    using Key = std::uint32_t;
    struct Face;
    struct Item {
        Rule rule;
        std::string id;
        std::int64_t here = 0;
        /// In the coverage.
        std::size_t place = 0;
    };
    struct Section {
        Key heading = 0;
        std::vector<Key> items;
    };
    struct Row {
        Kind kind = Heading;
        /// The heading, or the rule that it is or belongs to.
        Key key = 0;
        /// The message's position.
        std::uint32_t verdict = 0;
    };
    struct Revisions {
        std::uint64_t all = 0;
        std::uint64_t session = 0;
        std::uint64_t verdicts = 0;
        std::uint64_t moved = 0;
        std::uint64_t approved = 0;

        friend bool operator==(const Revisions&, const Revisions&) = default;
    };

    Key keyOf(const std::string& identity);
    void takeRules();
    std::vector<Row> makeRows();
    void showRows();
    void tellChanged(int first, int last);
    const Item* itemAt(int row) const;
    Face faceOf(const Row& row) const;
    Face ruleFace(const Item& item) const;
    Face messageFace(std::uint32_t verdict) const;

    // What `data` hands out though it may not change it itself.
    RuleRowsModel* const self_ = this;
    AppState& state_;
    const Sections sectionsOf_;
    RuleControlsText controls_;
    std::optional<Revisions> shown_;
    VerdictList verdicts_;
    RuleCoverage coverage_;
    std::vector<Section> sections_;
    std::unordered_map<Key, std::pair<std::string, std::string>> headings_;
    // Also of rules that went: a view still asks about a row while it is taken away.
    std::unordered_map<Key, Item> items_;
    std::unordered_map<std::string, Key> keys_;
    std::vector<Row> rows_;
    std::set<std::string> open_;
    std::set<std::string> marked_;
};

}  // namespace brindlet::screens
