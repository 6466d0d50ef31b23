#pragma once

#include <optional>
#include <string>
#include <vector>

#include "session/SessionFixture.h"

namespace brindlet {

/// A session with results to review, made by hand: no scan ran.
class ReviewTest : public SessionTest {
  protected:
    ReviewTest();
    ~ReviewTest() override;

    /// One more message, not yet on show. Its id counts from 1, its Message-ID is "<id>@example".
    Verdict& addVerdict(const std::string& sender, const std::string& subject,
                        Category category = Category::newsletterOrDigest);
    void addVerdicts(int count, const std::string& sender, const std::string& subject);
    /// Junk as the category has it by default.
    void show(MailFolder::Role role = MailFolder::Role::inbox);
    /// The same with a record of the scan and its file, as the end of a scan leaves them.
    void showRecorded(MailFolder::Role role = MailFolder::Role::inbox);
    /// Lets the search for like messages end.
    void finishSearch();
    /// Lets what was to be saved be saved.
    void settle();
    bool ticked(std::int64_t id) const { return state->approved->contains(id); }

    std::vector<Verdict> list;
};

/// What a saved scan says of a message that stands at this place.
ScanRecord::Saved savedFrom(const Verdict& verdict, std::optional<bool> approved);

using Words = Classifier::Words;
using Numbers = std::vector<std::int64_t>;

}  // namespace brindlet
