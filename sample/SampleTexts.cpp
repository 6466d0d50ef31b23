#include "sample/SampleTexts.h"

#include <algorithm>
#include <utility>

#include "sample/MimeText.h"

namespace brindlet::resources {
extern const std::string_view sampleWords;
extern const std::string_view sampleContacts;
extern const std::string_view sampleCards;
extern const std::string_view sampleStyle;
extern const std::string_view sampleAdvertising;
extern const std::string_view sampleNewsletters;
extern const std::string_view sampleSocial;
extern const std::string_view sampleReceipts;
extern const std::string_view sampleBills;
extern const std::string_view sampleSecurity;
extern const std::string_view sampleAccounts;
extern const std::string_view samplePersonal;
extern const std::string_view sampleOthers;
}  // namespace brindlet::resources

namespace brindlet::sample {
namespace {

/// Between a subject and its own opening, and between a card's title and its text.
constexpr std::string_view separator = " :: ";

/// Takes the first word off the line.
std::string_view takeWord(std::string_view& line) {
    const std::size_t end = std::min(line.find(' '), line.size());
    const std::string_view word = line.substr(0, end);
    line.remove_prefix(std::min(end + 1, line.size()));
    return word;
}

template <class F>
void eachLine(std::string_view text, F&& use) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.empty() || line.front() == '#') continue;
        const std::string_view word = takeWord(line);
        use(word, line);
    }
}

/// "Name <address>".
Person personFrom(std::string_view text) {
    const std::size_t open = text.find(" <");
    if (open == std::string_view::npos) return {"", std::string(text)};
    const std::size_t close = std::min(text.find('>', open), text.size());
    return {std::string(text.substr(0, open)),
            std::string(text.substr(open + 2, close - open - 2))};
}

std::uint64_t numberFrom(std::string_view text) {
    std::uint64_t number = 0;
    for (const char c : text)
        if (c >= '0' && c <= '9') number = number * 10 + static_cast<std::uint64_t>(c - '0');
    return number;
}

}  // namespace

bool Family::marked(std::string_view mark) const {
    return std::find(marks.begin(), marks.end(), mark) != marks.end();
}

SampleTexts::SampleTexts() : words_(resources::sampleWords) {
    for (const std::string_view text :
         {resources::sampleAdvertising, resources::sampleNewsletters, resources::sampleSocial,
          resources::sampleReceipts, resources::sampleBills, resources::sampleSecurity,
          resources::sampleAccounts, resources::samplePersonal, resources::sampleOthers})
        readFamilies(text);
    readCards(resources::sampleCards);
    eachLine(resources::sampleContacts, [&](std::string_view word, std::string_view rest) {
        if (word == "person") contacts_.push_back(personFrom(rest));
        if (word == "colleague") colleagues_.push_back(personFrom(rest));
        if (word == "more") addInvented(rest, contacts_);
    });
}

void SampleTexts::readFamilies(std::string_view text) {
    eachLine(text, [&](std::string_view word, std::string_view rest) {
        if (word == "family") {
            Family family;
            family.category = takeWord(rest);
            while (!rest.empty()) family.marks.emplace_back(takeWord(rest));
            families_.push_back(std::move(family));
            return;
        }
        if (families_.empty()) return;
        Family& family = families_.back();
        if (word != "from" && !isAscii(rest)) family.ascii = false;
        if (word == "more") addInvented(rest, family.senders);
        if (word == "weight") family.weight = numberFrom(rest);
        if (word == "from") family.senders.push_back(personFrom(rest));
        if (word == "subject") {
            const std::size_t divide = rest.find(separator);
            SubjectLine line{Template(rest.substr(0, divide), words_), std::nullopt};
            if (divide != std::string_view::npos)
                line.opening.emplace(rest.substr(divide + separator.size()), words_);
            family.subjects.push_back(std::move(line));
        }
        if (word == "open") family.openings.emplace_back(rest, words_);
        if (word == "say") family.sayings.emplace_back(rest, words_);
        if (word == "end") family.endings.emplace_back(rest, words_);
    });
}

void SampleTexts::readCards(std::string_view text) {
    std::vector<Card>* list = nullptr;
    eachLine(text, [&](std::string_view word, std::string_view rest) {
        if (word == "cards") list = &cards_[std::string(rest)];
        const std::size_t divide = rest.find(separator);
        if (word != "card" || !list || divide == std::string_view::npos) return;
        list->push_back({Template(rest.substr(0, divide), words_),
                         Template(rest.substr(divide + separator.size()), words_)});
    });
}

/// "30 {maker} Goods <hello@{maker}.example>": so many senders with words from lists in their
/// names.
void SampleTexts::addInvented(std::string_view line, std::vector<Person>& people) const {
    const std::uint64_t count = numberFrom(takeWord(line));
    const Template pattern(line, words_);
    const Person nobody;
    for (std::uint64_t i = 0; i < count; ++i) {
        Person person = personFrom(pattern.filled({words_, i, nobody, nobody, 0}));
        for (char& c : person.address)
            if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
        const bool known = std::any_of(people.begin(), people.end(), [&](const Person& other) {
            return other.address == person.address;
        });
        if (!known) people.push_back(std::move(person));
    }
}

const std::vector<Card>& SampleTexts::cards(const Family& family) const {
    std::string_view kind = family.fromContact() ? "letter" : "service";
    if (family.category == "advertisingOrPromotion") kind = "shop";
    if (family.category == "newsletterOrDigest") kind = "article";
    if (family.category == "socialMediaBlast") kind = "post";
    return cards_.find(kind)->second;
}

std::string_view SampleTexts::style() const {
    return resources::sampleStyle;
}

}  // namespace brindlet::sample
