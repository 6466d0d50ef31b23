#include "screens/rules/CalibrationRowsModel.h"

#include <algorithm>

#include "screens/QtText.h"
#include "screens/RowChanges.h"
#include "screens/look/Tone.h"
#include "session/AppState.h"
#include "words/SpokenWords.h"

namespace brindlet::screens {

int CalibrationRowsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant CalibrationRowsModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& row = rows_[static_cast<std::size_t>(index.row())];
    switch (role) {
        case RowsRole:
            return QVariant::fromValue(self_);
        case BadgeRole:
            return qtText(row.badge.text);
        case BadgeToneRole:
            return tones::of(row.badge);
        case CategoryRole:
            return qtText(row.label);
        case LineRole:
            return qtText(row.line);
        case StoppingRole:
            return stopping_ == row.category;
        case StopDescriptionRole:
            return spokenList(
                {row.label, stopping_ == row.category ? spoken::expanded : spoken::collapsed});
        default:
            return {};
    }
}

QHash<int, QByteArray> CalibrationRowsModel::roleNames() const {
    return {{RowsRole, "rows"},
            {BadgeRole, "badge"},
            {BadgeToneRole, "badgeTone"},
            {CategoryRole, "category"},
            {LineRole, "line"},
            {StoppingRole, "stopping"},
            {StopDescriptionRole, "stopDescription"}};
}

void CalibrationRowsModel::refresh() {
    std::vector<CalibrationWords> fresh;
    for (const auto& row : state_.calibration.rows())
        fresh.push_back(calibrationWords(state_.services().locale, row));
    const bool same =
        std::equal(fresh.begin(), fresh.end(), rows_.begin(), rows_.end(),
                   [](const auto& a, const auto& b) { return a.category == b.category; });
    if (same) {
        for (const int row : adoptChanged(rows_, std::move(fresh)))
            Q_EMIT dataChanged(index(row), index(row));
        return;
    }
    beginResetModel();
    rows_ = std::move(fresh);
    endResetModel();
    Q_EMIT countChanged();
}

void CalibrationRowsModel::leave() {
    stopping_.reset();
    tellAll();
}

QString CalibrationRowsModel::label() const {
    return qtText(CalibrationControls().label);
}

QString CalibrationRowsModel::note() const {
    return qtText(CalibrationControls().note);
}

QString CalibrationRowsModel::stopLabel() const {
    return qtText(CalibrationControls().stop);
}

QString CalibrationRowsModel::muteLabel() const {
    return qtText(CalibrationControls().mute);
}

QString CalibrationRowsModel::forgetLabel() const {
    return qtText(CalibrationControls().forget);
}

std::optional<Category> CalibrationRowsModel::categoryAt(int row) const {
    if (row < 0 || row >= rowCount()) return std::nullopt;
    return rows_[static_cast<std::size_t>(row)].category;
}

void CalibrationRowsModel::toggleStop(int row) {
    const auto category = categoryAt(row);
    if (!category) return;
    stopping_ = stopping_ == category ? std::nullopt : category;
    tellAll();
}

void CalibrationRowsModel::mute(int row) {
    if (const auto category = categoryAt(row)) state_.calibration.mute(*category);
}

void CalibrationRowsModel::forget(int row) {
    if (const auto category = categoryAt(row)) state_.calibration.forget(*category);
}

void CalibrationRowsModel::tellAll() {
    if (!rows_.empty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), {StoppingRole, StopDescriptionRole});
}

}  // namespace brindlet::screens
