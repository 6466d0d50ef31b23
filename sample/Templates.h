#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace brindlet::sample {

/// A name and an address; either may be empty.
struct Person {
    std::string name;
    std::string address;

    /// The first word of the name.
    std::string_view firstName() const;
    /// What follows the "@".
    std::string_view domain() const;
    /// "name <address>", or the bare address without a name.
    std::string shown() const;
};

/// Lists of words by name, for the places in templates. In a word "*" stands for a digit from 1 to
/// 9,
/// "#" for any digit, "^" for a capital letter.
class WordLists {
  public:
    /// Reads lines of the form "name: word|word|word"; blank lines and those with "#" are left out.
    explicit WordLists(std::string_view text);

    /// -1 for a name that is not there.
    int find(std::string_view name) const;
    /// The word that a message's key chooses. One key gives one word for one list and turn.
    std::string word(int list, int turn, std::uint64_t key) const;

  private:
    std::map<std::string, int, std::less<>> numbers_;
    std::vector<std::vector<std::string>> lists_;
};

/// What the places of one message's templates stand for. Plain references; it lives for one call.
struct Filling {
    const WordLists& words;
    std::uint64_t key;
    const Person& sender;
    const Person& recipient;
    /// Seconds since 1970.
    std::int64_t moment;
};

/// A line of text with places: "{product}" takes a word from the list of that name, "{product2}" a
/// second one; "{brand}", "{domain}", "{me}" (the sender's first name), "{you}" (the recipient's),
/// "{today}", "{soon}" (some days later), "{month}" (the one that ended last), "{season}" and
/// "{year}" come from the message itself.
class Template {
  public:
    /// A place that nothing is known of stays as it is written, so that a test can find it.
    Template(std::string_view text, const WordLists& words);

    void appendTo(std::string& out, const Filling& filling) const;
    std::string filled(const Filling& filling) const;

  private:
    enum class Place { none, word, brand, domain, me, you, today, soon, month, season, year };
    struct Piece {
        std::string literal;
        Place place = Place::none;
        int list = 0;
        int turn = 0;
    };
    std::vector<Piece> pieces_;
};

/// "14 March", in UTC.
std::string dayAndMonth(std::int64_t moment);

}  // namespace brindlet::sample
