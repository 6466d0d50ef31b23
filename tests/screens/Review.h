#pragma once

#include <QAbstractItemModelTester>
#include <QStringList>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "doubles/Doubles.h"
#include "screens/results/ResultsModel.h"
#include "session/AppState.h"

namespace brindlet::testing {

/// The results of a scan without a window. All messages are ads that were found to be junk and are
/// ticked; their ids count from 1.
class Review {
  public:
    using Model = screens::MessagesModel;
    using Kind = Model::Kind;

    explicit Review(std::vector<Verdict> verdicts, const std::string& folder = "INBOX") {
        state->account.set(MailAccount{"A1", "ada@example.org", "Ada", {}});
        state->folder.set(MailFolder{1, folder, 9, MailFolder::roleForName(folder)});
        IdSet ticked;
        for (auto& verdict : verdicts) {
            verdict.id = ++last_;
            if (verdict.messageID && verdict.isJunk) ticked.insert(verdict.id);
        }
        state->verdicts.set(VerdictList(std::move(verdicts)));
        state->approved.set(ticked);
        state->expand.set(Category::advertisingOrPromotion);
        state->navigate(AppState::Screen::results);
        results.refresh();
    }
    ~Review() { world.retire(); }
    Review(const Review&) = delete;
    Review& operator=(const Review&) = delete;

    static Verdict ad(const std::string& sender, const std::string& subject) {
        Verdict verdict;
        verdict.messageID = "ad@x.com";
        verdict.sender = sender;
        verdict.subject = subject;
        verdict.category = Category::advertisingOrPromotion;
        verdict.isJunk = true;
        return verdict;
    }
    static Verdict withoutID(Verdict verdict) {
        verdict.messageID.reset();
        return verdict;
    }
    static Verdict vetoed(Verdict verdict) {
        verdict.isJunk = false;
        verdict.vetoed = true;
        return verdict;
    }

    QVariant at(int row, Model::Role role) const { return messages.index(row).data(role); }
    QString text(int row, Model::Role role) const { return at(row, role).toString(); }
    QStringList titles() const {
        QStringList all;
        for (int row = 0; row < messages.rowCount(); ++row) all += text(row, Model::TitleRole);
        return all;
    }

    doubles::World& world = doubles::World::lasting();
    std::shared_ptr<AppState> state = AppState::make(world.services(), 1);
    screens::ResultsModel results{*state};
    Model& messages = *results.messages();

  private:
    std::int64_t last_ = 0;
    QAbstractItemModelTester messagesTester_{&messages,
                                             QAbstractItemModelTester::FailureReportingMode::Fatal};
    QAbstractItemModelTester categoriesTester_{
        results.categories(), QAbstractItemModelTester::FailureReportingMode::Fatal};
};

}  // namespace brindlet::testing
