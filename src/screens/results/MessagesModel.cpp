#include "screens/results/MessagesModel.h"

#include <utility>
#include <vector>

#include "screens/QtText.h"
#include "screens/look/Tone.h"
#include "session/AppState.h"
#include "words/MessageWords.h"
#include "words/SpokenWords.h"

namespace brindlet::screens {
namespace {

/// What a row that has no such thing gives; a view's properties want something of each type.
QVariant blank(int role) {
    switch (role) {
        case MessagesModel::IndentRole:
        case MessagesModel::CanTickRole:
        case MessagesModel::ExpandedRole:
            return false;
        case MessagesModel::NoteToneRole:
            return tones::Plain;
        case MessagesModel::TitleRole:
        case MessagesModel::DetailRole:
        case MessagesModel::TickSymbolRole:
        case MessagesModel::TickHelpRole:
        case MessagesModel::CountRole:
        case MessagesModel::ChevronRole:
        case MessagesModel::NoteRole:
        case MessagesModel::NoteHelpRole:
        case MessagesModel::OpenHelpRole:
        case MessagesModel::ReviewedRole:
        case MessagesModel::ReviewedHelpRole:
        case MessagesModel::DescriptionRole:
            return QString();
        default:
            return {};
    }
}

}  // namespace

int MessagesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant MessagesModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto row = rows_.at(static_cast<std::size_t>(index.row()));
    switch (row.kind) {
        case MessageRows::Kind::message:
            return messageData(verdicts_[row.at], row.indented, role);
        case MessageRows::Kind::sender:
            return senderData(row.at, role);
        case MessageRows::Kind::heading:
            break;
    }
    return headingData(role);
}

QVariant MessagesModel::messageData(const Verdict& verdict, bool indented, int role) const {
    if (role == KindRole) return Message;
    if (role == IndentRole) return indented;
    const auto words = messageWords(state_, verdict);
    switch (role) {
        case TitleRole:
            return qtText(words.subject);
        case DetailRole:
            return qtText(words.sender);
        case TickSymbolRole:
            return qtText(words.tickSymbol);
        case TickHelpRole:
            return qtText(words.tickHelp);
        case CanTickRole:
            return words.canTick;
        case NoteRole:
            return qtText(words.note.text);
        case NoteToneRole:
            return tones::of(words.note);
        case NoteHelpRole:
            return qtText(words.note.help);
        case OpenHelpRole:
            return qtText(words.openHelp);
        case DescriptionRole:
            return spokenList({words.note.help, words.tickHelp});
        default:
            return blank(role);
    }
}

QVariant MessagesModel::senderData(std::size_t sender, int role) const {
    if (role == KindRole) return Sender;
    if (role == ExpandedRole) return rows_.openSender() == sender;
    const auto about = facts(sender);
    const auto words = senderWords(state_, about);
    switch (role) {
        case TitleRole:
            return qtText(words.title);
        case DetailRole:
            return qtText(words.detail);
        case TickSymbolRole:
            return qtText(words.tickSymbol);
        case TickHelpRole:
            return qtText(words.tickHelp);
        case CanTickRole:
            return words.canTick;
        case CountRole:
            return qtText(words.count);
        case ChevronRole:
            return qtText(words.chevron);
        case ReviewedRole:
            return qtText(words.reviewed.text);
        case ReviewedHelpRole:
            return qtText(words.reviewed.help);
        case DescriptionRole:
            return spokenList({words.count, words.reviewed.text, words.tickHelp,
                               about.expanded ? spoken::expanded : spoken::collapsed});
        default:
            return blank(role);
    }
}

QVariant MessagesModel::headingData(int role) const {
    if (role == KindRole) return Heading;
    return role == TitleRole ? QVariant(qtText(words_.stayPut)) : blank(role);
}

SenderFacts MessagesModel::facts(std::size_t sender) const {
    const auto members = rows_.senders().members(sender);
    const auto& ids = tickable(sender);
    SenderFacts about;
    about.key = rows_.senders().key(sender);
    about.firstSender = verdicts_[members.front()].sender;
    about.messages = static_cast<std::int64_t>(members.size());
    about.ticks = {static_cast<std::int64_t>(ids.countCommon(*state_.approved)),
                   static_cast<std::int64_t>(ids.size())};
    about.expanded = rows_.openSender() == sender;
    return about;
}

const IdSet& MessagesModel::tickable(std::size_t sender) const {
    const auto [found, fresh] = tickable_.try_emplace(sender);
    if (fresh) {
        std::vector<std::int64_t> ids;
        for (const auto position : rows_.senders().members(sender))
            if (verdicts_[position].messageID) ids.push_back(verdicts_[position].id);
        found->second = IdSet(std::move(ids));
    }
    return found->second;
}

QHash<int, QByteArray> MessagesModel::roleNames() const {
    return {{KindRole, "kind"},
            {IndentRole, "indent"},
            {TitleRole, "title"},
            {DetailRole, "detail"},
            {TickSymbolRole, "tickSymbol"},
            {TickHelpRole, "tickHelp"},
            {CanTickRole, "canTick"},
            {CountRole, "count"},
            {ChevronRole, "chevron"},
            {ExpandedRole, "expanded"},
            {NoteRole, "note"},
            {NoteToneRole, "noteTone"},
            {NoteHelpRole, "noteHelp"},
            {OpenHelpRole, "openHelp"},
            {ReviewedRole, "reviewed"},
            {ReviewedHelpRole, "reviewedHelp"},
            {DescriptionRole, "description"}};
}

QString MessagesModel::filterSymbol() const {
    return qtText(words_.filterSymbol);
}

QString MessagesModel::filterPrompt() const {
    return qtText(words_.filterPrompt);
}

QString MessagesModel::clearLabel() const {
    return qtText(spoken::clear);
}

QString MessagesModel::matchLine() const {
    return qtText(matchLine_);
}

QString MessagesModel::tickAllLabel() const {
    return qtText(words_.tickAll);
}

QString MessagesModel::untickAllLabel() const {
    return qtText(words_.untickAll);
}

QString MessagesModel::bySenderSymbol() const {
    return qtText(words_.bySenderSymbol);
}

QString MessagesModel::bySenderLabel() const {
    return qtText(words_.bySender);
}

QString MessagesModel::bySenderHelp() const {
    return qtText(words_.bySenderHelp);
}

QString MessagesModel::scrollLine() const {
    return qtText(scrollLine_);
}

}  // namespace brindlet::screens
