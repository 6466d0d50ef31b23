#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "doubles/Doubles.h"
#include "doubles/MailHome.h"
#include "session/AppState.h"

namespace brindlet {

/// A session over doubles and a small mail folder, with one mailbox to scan.
class SessionTest : public testing::Test {
  protected:
    SessionTest();
    ~SessionTest() override;

    /// Makes the session, once the mail folder is as the test wants it.
    AppState& open();
    /// Adds a message whose Message-ID is "m<n>@example"; the newer the later added.
    std::int64_t add(const std::string& sender, const std::string& subject,
                     const std::string& body = "Hello");
    std::int64_t addUnreadable(const std::string& sender, const std::string& subject);
    /// Adds so many messages of as many senders, so that each goes to the model by itself.
    void addMany(int count, int from = 0);

    MailAccount account() const;
    MailFolder inbox() const;

    /// Starts a scan of the inbox and pumps until it has ended.
    void scan();
    /// Pumps until the running scan's task has returned.
    void finishTask();
    /// Answers by the first subject that contains one of the words.
    void answerBySubject(std::vector<std::pair<std::string, std::string>> categories);
    const Verdict* verdictOf(std::int64_t id) const;

    doubles::World& world;
    doubles::MailHome home;
    std::int64_t mailbox;
    MailFolder::Role role = MailFolder::Role::inbox;
    std::shared_ptr<AppState> state;

  private:
    int added_ = 0;
};

}  // namespace brindlet
