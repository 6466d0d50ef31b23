#include "screens/rules/RuleRowsModel.h"

#include <map>
#include <tuple>

#include "screens/QtText.h"
#include "screens/RowChanges.h"
#include "screens/look/Tone.h"
#include "session/AppState.h"
#include "words/MessageWords.h"
#include "words/SpokenWords.h"

namespace brindlet::screens {

/// What one row shows; what it has not, stays empty.
struct RuleRowsModel::Face {
    std::string title;
    std::string detail;
    QString description;
    Mark pill;
    std::string here;
    std::string hits;
    bool canOpen = false;
    bool open = false;
    bool held = false;
    bool ofSession = false;
    bool marked = false;
    std::string tickSymbol;
    std::string tickHelp;
    bool canTick = false;
};

RuleRowsModel::RuleRowsModel(AppState& state, Sections sections)
    : state_(state), sectionsOf_(sections) {}

int RuleRowsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant RuleRowsModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto place = static_cast<std::size_t>(index.row());
    const auto& row = rows_[place];
    switch (role) {
        case RulesRole:
            return QVariant::fromValue(self_);
        case KindRole:
            return row.kind;
        case FirstRole:
            return place == 0 || rows_[place - 1].kind == Heading;
        case LastRole:
            return place + 1 == rows_.size() || rows_[place + 1].kind == Heading;
        default:
            break;
    }
    const auto face = faceOf(row);
    switch (role) {
        case TitleRole:
            return qtText(face.title);
        case DetailRole:
            return qtText(face.detail);
        case DescriptionRole:
            return face.description;
        case PillRole:
            return qtText(face.pill.text);
        case PillToneRole:
            return tones::of(face.pill);
        case PillHelpRole:
            return qtText(face.pill.help);
        case HereRole:
            return qtText(face.here);
        case HitsRole:
            return qtText(face.hits);
        case CanOpenRole:
            return face.canOpen;
        case OpenRole:
            return face.open;
        case HeldRole:
            return face.held;
        case OfSessionRole:
            return face.ofSession;
        case MarkedRole:
            return face.marked;
        case TickSymbolRole:
            return qtText(face.tickSymbol);
        case TickHelpRole:
            return qtText(face.tickHelp);
        case CanTickRole:
            return face.canTick;
        default:
            return {};
    }
}

QHash<int, QByteArray> RuleRowsModel::roleNames() const {
    return {{RulesRole, "rules"},
            {KindRole, "kind"},
            {TitleRole, "title"},
            {DetailRole, "detail"},
            {DescriptionRole, "description"},
            {PillRole, "pill"},
            {PillToneRole, "pillTone"},
            {PillHelpRole, "pillHelp"},
            {HereRole, "here"},
            {HitsRole, "hits"},
            {CanOpenRole, "canOpen"},
            {OpenRole, "open"},
            {HeldRole, "held"},
            {OfSessionRole, "ofSession"},
            {MarkedRole, "marked"},
            {TickSymbolRole, "tickSymbol"},
            {TickHelpRole, "tickHelp"},
            {CanTickRole, "canTick"},
            {FirstRole, "first"},
            {LastRole, "last"}};
}

RuleRowsModel::Face RuleRowsModel::faceOf(const Row& row) const {
    Face face;
    switch (row.kind) {
        case Heading:
            std::tie(face.title, face.detail) = headings_.at(row.key);
            face.description = qtText(face.detail);
            return face;
        case RuleItem:
            return ruleFace(items_.at(row.key));
        case Message:
            return messageFace(row.verdict);
        case Narrow:
            break;
    }
    face.title = RuleControls().narrow;
    return face;
}

RuleRowsModel::Face RuleRowsModel::ruleFace(const Item& item) const {
    const auto words =
        ruleWords(state_.services().locale, item.rule, item.here, marked_.count(item.id) > 0);
    Face face;
    face.title = words.sender;
    face.detail = words.line;
    face.pill = words.verdict;
    face.here = words.here;
    face.hits = words.hits;
    face.canOpen = item.here > 0;
    face.open = face.canOpen && open_.count(item.id) > 0;
    face.held = words.held;
    face.ofSession = words.ofSession;
    face.marked = words.marked;
    face.description = spokenList({words.verdict.text, words.here, words.hits, words.line,
                                   !face.canOpen ? ""
                                   : face.open   ? spoken::expanded
                                                 : spoken::collapsed});
    return face;
}

RuleRowsModel::Face RuleRowsModel::messageFace(std::uint32_t verdict) const {
    // The list may already be a shorter one, while the rows of the former are being taken away.
    if (verdict >= verdicts_.size()) return {};
    const auto words = messageWords(state_, verdicts_[verdict]);
    Face face;
    face.title = words.subject;
    face.detail = words.sender;
    face.tickSymbol = words.tickSymbol;
    face.tickHelp = words.tickHelp;
    face.canTick = words.canTick;
    face.description = spokenList({words.tickHelp});
    return face;
}

void RuleRowsModel::refresh() {
    const Revisions now{state_.rules.all.revision(), state_.rules.session.revision(),
                        state_.verdicts.revision(), state_.movedAlready.revision(),
                        state_.approved.revision()};
    if (shown_ == now) return;
    const bool otherMail =
        !shown_ || shown_->verdicts != now.verdicts || shown_->moved != now.moved;
    const bool otherRules = !shown_ || shown_->all != now.all || shown_->session != now.session;
    shown_ = now;
    if (otherMail) {
        verdicts_ = *state_.verdicts;
        coverage_.setVerdicts(verdicts_, state_.remainingVerdicts());
    }
    if (otherMail || otherRules) {
        takeRules();
        showRows();
    }
    tellChanged(0, rowCount() - 1);
}

void RuleRowsModel::leave() {
    for (const Rule& rule : state_.rules.combined())
        if (marked_.count(rule.id()) > 0) state_.rules.forget(rule);
    marked_.clear();
    open_.clear();
    showRows();
    tellChanged(0, rowCount() - 1);
}

RuleRowsModel::Key RuleRowsModel::keyOf(const std::string& identity) {
    return keys_.try_emplace(identity, static_cast<Key>(keys_.size())).first->second;
}

void RuleRowsModel::takeRules() {
    sections_.clear();
    std::vector<Rule> inOrder;
    // A file may hold a rule twice.
    std::map<std::string, int> occurrences;
    for (auto& section : sectionsOf_(state_)) {
        const auto heading = keyOf(section.label);
        headings_[heading] = {section.label, section.note};
        auto& made = sections_.emplace_back();
        made.heading = heading;
        for (auto& rule : section.rules) {
            auto id = rule.id();
            const auto key =
                keyOf(section.label + "\n" + std::to_string(++occurrences[id]) + "\n" + id);
            made.items.push_back(key);
            items_[key] = {rule, std::move(id), 0, inOrder.size()};
            inOrder.push_back(std::move(rule));
        }
    }
    coverage_.setRules(inOrder);
    for (const auto& section : sections_)
        for (const auto key : section.items) {
            auto& item = items_[key];
            item.here = coverage_.count(item.place);
        }
}

std::vector<RuleRowsModel::Row> RuleRowsModel::makeRows() {
    std::vector<Row> rows;
    for (const auto& section : sections_) {
        if (!headings_[section.heading].first.empty())
            rows.push_back({Heading, section.heading, 0});
        for (const auto key : section.items) {
            const auto& item = items_[key];
            rows.push_back({RuleItem, key, 0});
            if (open_.count(item.id) == 0) continue;
            const auto covered = coverage_.covered(item.place);
            for (const auto position : covered) rows.push_back({Message, key, position});
            if (worthNarrowing(covered.size())) rows.push_back({Narrow, key, 0});
        }
    }
    return rows;
}

void RuleRowsModel::showRows() {
    const auto keysOf = [](const std::vector<Row>& rows) {
        std::vector<std::uint64_t> keys;
        keys.reserve(rows.size());
        for (const auto& row : rows)
            keys.push_back(std::uint64_t{row.key} << 34 |
                           static_cast<std::uint64_t>(row.kind) << 32 | row.verdict);
        return keys;
    };
    const auto fresh = makeRows();
    const auto steps = rowSteps(keysOf(rows_), keysOf(fresh));
    const auto place = [](std::vector<Row>& rows, std::size_t index) {
        return rows.begin() + static_cast<std::ptrdiff_t>(index);
    };
    for (const auto& [first, count] : steps.removals) {
        beginRemoveRows({}, static_cast<int>(first), static_cast<int>(first + count) - 1);
        rows_.erase(place(rows_, first), place(rows_, first + count));
        endRemoveRows();
    }
    for (const auto& [first, count] : steps.insertions) {
        beginInsertRows({}, static_cast<int>(first), static_cast<int>(first + count) - 1);
        rows_.insert(place(rows_, first), fresh.begin() + static_cast<std::ptrdiff_t>(first),
                     fresh.begin() + static_cast<std::ptrdiff_t>(first + count));
        endInsertRows();
    }
}

void RuleRowsModel::tellChanged(int first, int last) {
    if (first <= last) Q_EMIT dataChanged(index(first), index(last));
}

QString RuleRowsModel::listName() const {
    return qtText(spoken::rules);
}

const RuleRowsModel::Item* RuleRowsModel::itemAt(int row) const {
    if (row < 0 || row >= rowCount() || rows_[static_cast<std::size_t>(row)].kind != RuleItem)
        return nullptr;
    return &items_.at(rows_[static_cast<std::size_t>(row)].key);
}

void RuleRowsModel::choose(int row) {
    if (const auto* item = itemAt(row)) {
        setOpen(row, open_.count(item->id) == 0);
        return;
    }
    if (row < 0 || row >= rowCount()) return;
    const auto& [kind, key, verdict] = rows_[static_cast<std::size_t>(row)];
    if (kind != Message || verdict >= verdicts_.size()) return;
    const auto& message = verdicts_[verdict];
    if (message.messageID) state_.toggleMessage(message.id);
}

void RuleRowsModel::setOpen(int row, bool open) {
    const auto* item = itemAt(row);
    if (!item || item->here == 0) return;
    if (open)
        open_.insert(item->id);
    else
        open_.erase(item->id);
    showRows();
    tellChanged(0, rowCount() - 1);
}

int RuleRowsModel::ruleRow(int row) const {
    for (int above = row; above >= 0 && above < rowCount(); --above) {
        const auto kind = rows_[static_cast<std::size_t>(above)].kind;
        if (kind == RuleItem) return above;
        if (kind == Heading) break;
    }
    return row;
}

void RuleRowsModel::flip(int row) {
    if (const auto* item = itemAt(row)) state_.rules.flip(item->rule);
}

void RuleRowsModel::enable(int row) {
    if (const auto* item = itemAt(row)) state_.rules.enable(item->rule);
}

void RuleRowsModel::promote(int row) {
    if (const auto* item = itemAt(row)) state_.rules.promote(item->rule);
}

void RuleRowsModel::toggleMark(int row) {
    const auto* item = itemAt(row);
    if (!item) return;
    if (marked_.erase(item->id) == 0) marked_.insert(item->id);
    tellChanged(row, row);
}

}  // namespace brindlet::screens
