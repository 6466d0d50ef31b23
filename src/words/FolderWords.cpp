#include "words/FolderWords.h"

#include "platform/Clock.h"
#include "platform/Locale.h"
#include "session/AppState.h"

namespace brindlet {
namespace {

constexpr double justNow = 60;

Mark folderTag(MailFolder::Role role) {
    switch (role) {
        case MailFolder::Role::inbox:
            return {"START HERE", Tone::green, {}};
        case MailFolder::Role::archive:
            return {"CAREFUL", Tone::orange, {}};
        case MailFolder::Role::junk:
            return {"JUNK", Tone::plain, {}};
        case MailFolder::Role::sent:
        case MailFolder::Role::drafts:
        case MailFolder::Role::trash:
        case MailFolder::Role::custom:
            break;
    }
    return {};
}

/// A scan that seems to lie ahead, because the clock was set back, counts as just now.
std::string sortedWhen(std::optional<Date> last, Date now, const Locale& locale) {
    if (!last) return "never sorted";
    if (now - *last < justNow) return "sorted just now";
    return "sorted " + locale.relative(*last, now);
}

Mark leftToDo(std::int64_t count, std::int64_t seen, const Locale& locale) {
    if (count < 1) return {"empty", Tone::plain, {}};
    if (seen >= count) return {"all sorted", Tone::green, {}};
    return {locale.grouped(count - seen) + " new", Tone::plain, {}};
}

}  // namespace

std::string_view folderNote(MailFolder::Role role) {
    switch (role) {
        case MailFolder::Role::inbox:
            return "what's sitting in your inbox now";
        case MailFolder::Role::junk:
            return "already filtered out";
        case MailFolder::Role::archive:
            return "everything ever received, including what you filed on purpose";
        case MailFolder::Role::sent:
            return "mail you sent";
        case MailFolder::Role::drafts:
            return "unsent drafts";
        case MailFolder::Role::trash:
            return "already deleted";
        case MailFolder::Role::custom:
            break;
    }
    return "a folder you made";
}

FolderWords folderWords(const AppState& state, const MailFolder& folder,
                        const std::map<std::string, Date>& lastScans) {
    const auto& services = state.services();
    const std::string label = *state.account ? (*state.account)->displayLabel() : std::string();
    const auto last = lastScans.find(label + "|" + folder.name);

    FolderWords words;
    words.id = folder.id;
    words.name = folder.name;
    words.tag = folderTag(folder.role);
    words.note = folderNote(folder.role);
    words.status = sortedWhen(last == lastScans.end() ? std::nullopt : std::optional(last->second),
                              services.clock.now(), services.locale);
    words.selectable = folder.count > 0;
    words.statusTag = leftToDo(
        folder.count, words.selectable ? state.seen.count(label, folder.name) : 0, services.locale);
    words.selected = *state.folder && (*state.folder)->id == folder.id;
    return words;
}

}  // namespace brindlet
