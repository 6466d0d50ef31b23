#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sample/Templates.h"

namespace brindlet::sample {

/// A subject, and the opening that goes with it alone where it has one.
struct SubjectLine {
    Template subject;
    std::optional<Template> opening;
};

/// Messages of one making: some senders that write the same kinds of mail.
struct Family {
    /// The raw word of the category that its mail is meant to be.
    std::string category;
    /// Words that steer where it turns up: "scam", "work", "travel", "friends".
    std::vector<std::string> marks;
    std::uint64_t weight = 1;
    /// Empty where the mail comes from one of the person's contacts.
    std::vector<Person> senders;
    std::vector<SubjectLine> subjects;
    /// A text is one opening, some of the sayings in their order, and one ending. There may be no
    /// openings where each subject has its own.
    std::vector<Template> openings;
    std::vector<Template> sayings;
    std::vector<Template> endings;
    /// False when some of its own text is not ASCII.
    bool ascii = true;

    /// It comes from one of the person's contacts.
    bool fromContact() const { return senders.empty(); }
    bool marked(std::string_view mark) const;
};

/// A short piece that fills a long message: a product, an article, a post, a note on service.
struct Card {
    Template title;
    Template text;
};

/// All that the sample's messages say, read from the texts that are built in. Constant after
/// construction; any thread may read it.
class SampleTexts {
  public:
    SampleTexts();

    const WordLists& words() const { return words_; }
    const std::vector<Family>& families() const { return families_; }
    /// Whom the owner of the sample mail knows: friends and family, and people at work.
    const std::vector<Person>& contacts() const { return contacts_; }
    const std::vector<Person>& colleagues() const { return colleagues_; }
    /// The cards that suit a family; never empty.
    const std::vector<Card>& cards(const Family& family) const;
    std::string_view style() const;

  private:
    void readFamilies(std::string_view text);
    void readCards(std::string_view text);
    void addInvented(std::string_view line, std::vector<Person>& people) const;

    WordLists words_;
    std::vector<Family> families_;
    std::vector<Person> contacts_;
    std::vector<Person> colleagues_;
    std::map<std::string, std::vector<Card>, std::less<>> cards_;
};

}  // namespace brindlet::sample
