#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/EnumInfo.h"

/// What the simulated mail program of a sample home is like. It stands as JSON in
/// "mail-program.json" beside the home's Library, with keys named as the fields:
///
///     {"accounts":[{"id":"3B1F7C52-…","name":"Fernhill","scheme":"imap",
///       "addresses":["robin@fernhill.example"],"enabled":true,"gmail":false}],
///      "behaviour":{"secondsPerEvent":0.2,"slowServer":2,"moveMenu":"entryMissing",
///       "gate":{"fifo":"/some/fifo","beforeMove":3}}}
///
/// An absent key means what the field starts as. Somebody may rewrite the file by hand at any time;
/// the program reads it as it starts, and a script host starts it anew for each script.
namespace brindlet::sample {

/// What becomes of the first attempts to select messages in a viewer.
enum class SelectionDrops { never, once, always };
/// What the "Move to" menu shows of the folder that a script looks for.
enum class MoveMenu { open, entryMissing, entryDisabled };

struct MailSettings {
    struct Account {
        /// The one in its mailboxes' URLs.
        std::string id;
        std::string name;
        std::string scheme = "imap";
        /// The first one is the account's own; may be empty.
        std::vector<std::string> addresses;
        /// One that is not shows neither mailboxes nor a place in menus.
        bool enabled = true;
        /// Folders are labels: moving into one only adds it, but for Spam and the bin; moving by
        /// hand, as the menu does, takes the old one off.
        bool gmail = false;
    };

    /// The script host waits here until somebody lets it on. It opens the FIFO for reading, which
    /// blocks until somebody opens it for writing; so whoever's opening succeeds knows that the
    /// host waits. It goes on when they close it.
    struct Gate {
        std::string fifo;
        /// Counted from 1 over one run; 0 for never.
        std::int64_t beforeEvent = 0;
        /// The same for `move` commands.
        std::int64_t beforeMove = 0;
    };

    struct Behaviour {
        /// How much virtual time a request takes. `delay` takes what it says.
        double secondsPerEvent = 0.2;
        /// How much of the virtual time really passes; 0 does everything at once.
        double pace = 0;
        /// So long after a move was asked for, the message leaves its folder.
        double slowServer = 0;
        /// So long after a message came into a folder that this run has made, the server puts it
        /// back where it was; 0 for never.
        double undoesFreshFolder = 0;
        /// Answers so many requests of one run and is gone then.
        std::optional<std::int64_t> quitsAfterEvents;
        /// Nobody may script the mail program, or work its menus.
        bool refusesAutomation = false;
        bool refusesInterfaceScripting = false;
        /// Ids of messages, without brackets, that cannot be moved.
        std::vector<std::string> immovable;
        /// Paths of mailboxes that cannot tell their names.
        std::vector<std::string> nameless;
        SelectionDrops selection = SelectionDrops::never;
        MoveMenu moveMenu = MoveMenu::open;
        /// One click in the menu moves no more than so many.
        std::optional<std::int64_t> menuMovesAtMost;
        /// Windows that are open at the start.
        std::int64_t viewers = 1;
        Gate gate;
    };

    std::vector<Account> accounts;
    Behaviour behaviour;
};

/// The environment variable by which a script host learns which home is its mail's. Whoever starts
/// one can give it nothing but a script and the script's arguments; so it is inherited.
inline constexpr const char* sampleHomeVariable = "BRINDLET_SAMPLE_HOME";

std::string mailSettingsPath(const std::string& home);
/// None when the file is missing or damaged.
std::optional<MailSettings> readMailSettings(const std::string& home);
/// False when it cannot be written.
bool writeMailSettings(const std::string& home, const MailSettings& settings);

}  // namespace brindlet::sample

namespace brindlet {

template <>
struct EnumInfo<sample::SelectionDrops> {
    using Drops = sample::SelectionDrops;
    static constexpr std::array<std::pair<Drops, std::string_view>, 3> all{{
        {Drops::never, "never"},
        {Drops::once, "once"},
        {Drops::always, "always"},
    }};
};

template <>
struct EnumInfo<sample::MoveMenu> {
    using Menu = sample::MoveMenu;
    static constexpr std::array<std::pair<Menu, std::string_view>, 3> all{{
        {Menu::open, "open"},
        {Menu::entryMissing, "entryMissing"},
        {Menu::entryDisabled, "entryDisabled"},
    }};
};

}  // namespace brindlet
