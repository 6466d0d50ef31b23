#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "models/training/Phrase.h"
#include "models/training/Random.h"

namespace brindlet::training {

/// A made-up message.
struct SampleMail {
    std::string sender;
    std::string subject;
    std::string body;
};

/// The self-written texts that the model learns from. Two kinds of file, both of lines; empty ones
/// and those that begin with "#" count for nothing.
///
/// Word lists: a line "= name" opens a list, each further line is a phrase of it. After "= name,
/// once" the choice is made once a message, so that a sender's name is the same wherever it stands.
///
/// A category: a line "== weight 3, bodies 2-5, dress web" opens a scenario, which is drawn as
/// often as its weight says; then "senders:", "subjects:", "bodies:" and, if wanted, "openings:"
/// and "closings:" open its phrases. A message has one sender, one subject, and for its body one
/// opening, so many different bodies as told in any order, and one closing. The dress says how such
/// mail is sent: "plain", "web" (parts and encodings) or "bulk" (as web, and base64 more often).
/// "language de" tells what the texts are written in where that is not English; it changes nothing
/// about the messages. Word lists may stand between scenarios.
class Grammar {
  public:
    enum class Dress { plain, web, bulk };

    /// Each gives an empty text, or what is wrong and in which line. A slot's list stands before
    /// its use, so words come before categories, and no list leads back to itself. A category may
    /// be added to again and again.
    std::string addWords(std::string_view text);
    std::string addCategory(std::string_view label, std::string_view text);

    /// How wide a category that was added is: its subjects' patterns, each of which goes with the
    /// bodies of its own scenario alone, and its languages.
    struct Breadth {
        std::size_t patterns = 0;
        std::set<std::string, std::less<>> languages;
    };
    Breadth breadth(std::string_view label) const;

    /// A message of a category that was added, before it is dressed; with its dress.
    SampleMail make(std::string_view label, Random& random, Dress& dress) const;

  private:
    struct WordList {
        bool once = false;
        std::vector<Phrase> phrases;
    };
    struct Scenario {
        std::size_t weight = 1;
        std::size_t fewestBodies = 1;
        std::size_t mostBodies = 1;
        Dress dress = Dress::plain;
        std::string language = "en";
        std::vector<Phrase> senders, subjects, bodies, openings, closings;
    };
    /// One message's expansion, with what was chosen once for it.
    class Expansion;

    static std::optional<Scenario> parsedHeading(std::string_view heading);
    /// Opens the list of a line "= name", which is put into `open`; gives what is wrong.
    std::string openList(std::string_view line, std::string& open);
    /// The first slot without a list of words, or which is `open` itself; empty when there is none.
    std::string unknownSlot(const Phrase& phrase, std::string_view open) const;
    std::string addPhrase(std::vector<Phrase>& phrases, std::string_view line,
                          std::string_view open) const;

    std::map<std::string, WordList, std::less<>> words_;
    std::map<std::string, std::vector<Scenario>, std::less<>> categories_;
};

}  // namespace brindlet::training
