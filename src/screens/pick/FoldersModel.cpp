#include "screens/pick/FoldersModel.h"

#include <algorithm>

#include "screens/QtText.h"
#include "screens/RowChanges.h"
#include "screens/look/Tone.h"

namespace brindlet::screens {

int FoldersModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(folders_.size());
}

QVariant FoldersModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& folder = folders_[static_cast<std::size_t>(index.row())];
    switch (role) {
        case NameRole:
            return qtText(folder.name);
        case TagRole:
            return qtText(folder.tag.text);
        case TagToneRole:
            return tones::of(folder.tag);
        case NoteRole:
            return qtText(folder.note);
        case StatusRole:
            return qtText(folder.status);
        case StatusTagRole:
            return qtText(folder.statusTag.text);
        case StatusToneRole:
            return tones::of(folder.statusTag);
        case SelectableRole:
            return folder.selectable;
        case SelectedRole:
            return folder.selected;
        case DescriptionRole:
            return spokenList({folder.tag.text, folder.note, folder.statusTag.text, folder.status});
        default:
            return {};
    }
}

QHash<int, QByteArray> FoldersModel::roleNames() const {
    return {{NameRole, "name"},
            {TagRole, "tag"},
            {TagToneRole, "tagTone"},
            {NoteRole, "note"},
            {StatusRole, "status"},
            {StatusTagRole, "statusTag"},
            {StatusToneRole, "statusTone"},
            {SelectableRole, "selectable"},
            {SelectedRole, "selected"},
            {DescriptionRole, "description"}};
}

bool FoldersModel::sameFolders(const std::vector<FolderWords>& folders) const {
    return std::equal(folders.begin(), folders.end(), folders_.begin(), folders_.end(),
                      [](const FolderWords& a, const FolderWords& b) { return a.id == b.id; });
}

void FoldersModel::set(const std::vector<FolderWords>& folders) {
    if (sameFolders(folders)) {
        for (const int row : adoptChanged(folders_, folders))
            Q_EMIT dataChanged(index(row), index(row));
    } else {
        beginResetModel();
        folders_ = folders;
        endResetModel();
    }
    const auto selected = std::find_if(folders_.begin(), folders_.end(),
                                       [](const FolderWords& folder) { return folder.selected; });
    const int chosen =
        selected == folders_.end() ? -1 : static_cast<int>(selected - folders_.begin());
    if (chosen == chosen_) return;
    chosen_ = chosen;
    Q_EMIT chosenChanged();
}

}  // namespace brindlet::screens
