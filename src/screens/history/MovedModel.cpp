#include "screens/history/MovedModel.h"

#include "screens/QtText.h"
#include "words/HistoryWords.h"

namespace brindlet::screens {

int MovedModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(messages_.size());
}

QVariant MovedModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto words = movedWords(messages_[static_cast<std::size_t>(index.row())]);
    switch (role) {
        case SubjectRole:
            return qtText(words.subject);
        case SenderRole:
            return qtText(words.sender);
        default:
            return {};
    }
}

QHash<int, QByteArray> MovedModel::roleNames() const {
    return {{SubjectRole, "subject"}, {SenderRole, "sender"}};
}

void MovedModel::set(const std::vector<ScanRecord::Moved>& messages) {
    if (messages == messages_) return;
    beginResetModel();
    messages_ = messages;
    endResetModel();
}

}  // namespace brindlet::screens
