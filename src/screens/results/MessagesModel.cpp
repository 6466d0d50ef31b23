#include "screens/results/MessagesModel.h"

#include "screens/QtText.h"
#include "screens/look/Tone.h"
#include "session/AppState.h"

namespace brindlet::screens {

int MessagesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant MessagesModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& row = rows_[static_cast<std::size_t>(index.row())];
    if (role == HeadingRole) return row.heading;
    if (row.heading) {
        if (role == SubjectRole) return qtText(heading_);
        if (role == CanTickRole) return false;
        return role == MarkToneRole ? QVariant(tones::Plain) : QVariant(QString());
    }
    // The list may already be a shorter one, in the moment before the refresh that tells of it.
    if (row.verdict >= state_.verdicts->size()) return {};
    const auto words = messageWords(state_, (*state_.verdicts)[row.verdict]);
    switch (role) {
        case SubjectRole:
            return qtText(words.subject);
        case SenderRole:
            return qtText(words.sender);
        case TickSymbolRole:
            return qtText(words.tickSymbol);
        case DescriptionRole:
            return spokenList({words.mark.text, words.tickHelp});
        case CanTickRole:
            return words.canTick;
        case MarkRole:
            return qtText(words.mark.text);
        case MarkToneRole:
            return tones::of(words.mark);
        default:
            return {};
    }
}

QHash<int, QByteArray> MessagesModel::roleNames() const {
    return {{HeadingRole, "heading"},
            {SubjectRole, "subject"},
            {SenderRole, "sender"},
            {TickSymbolRole, "tickSymbol"},
            {DescriptionRole, "description"},
            {CanTickRole, "canTick"},
            {MarkRole, "mark"},
            {MarkToneRole, "markTone"}};
}

void MessagesModel::reset(const CategoryRows& rows, const std::string& heading) {
    beginResetModel();
    heading_ = heading;
    rows_.clear();
    rows_.reserve(rows.rows.size() + 1);
    for (std::size_t i = 0; i < rows.rows.size(); ++i) {
        if (i == rows.firstProtected && !heading.empty()) rows_.push_back({true, 0});
        rows_.push_back({false, rows.rows[i]});
    }
    endResetModel();
}

void MessagesModel::clear() {
    if (rows_.empty()) return;
    beginResetModel();
    rows_.clear();
    endResetModel();
}

void MessagesModel::ticksChanged() {
    if (rows_.empty()) return;
    Q_EMIT dataChanged(index(0), index(static_cast<int>(rows_.size()) - 1), {TickSymbolRole});
}

}  // namespace brindlet::screens
