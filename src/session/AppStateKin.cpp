#include <set>
#include <utility>

#include "platform/MainQueue.h"
#include "session/AppState.h"
#include "session/Kin.h"

namespace brindlet {
namespace {

/// Which of the asked are of the reference's kind, as indices. Blocks.
template <class Asked>
std::set<std::size_t> kinAmong(const std::vector<Asked>& asked, const std::string& reference,
                               const Classifier& classifier, const CancelToken& token) {
    // With nothing to compare there is no need to ask about the reference either.
    if (asked.empty()) return {};
    std::vector<std::string> subjects;
    for (const auto& each : asked) subjects.push_back(each.subject);
    return classifier.kinIndices(reference, subjects, token);
}

}  // namespace

// Only the next search cancels this one. When the offer goes away meanwhile, the results find
// another offer or none, and are dropped.
void AppState::findKin(std::uint32_t position) {
    if (kindTask_) kindTask_->cancel();
    const auto family = families.find(index().key(index().groupOf(position)));
    if (family == families.end()) return;
    auto search = [weak = weak_from_this(), classifier = classifier_, &queue = services_.mainQueue,
                   source = (*verdicts)[position].id,
                   questions = kinQuestions(position, *verdicts, index(), family->second)](
                      const CancelToken& token) {
        const auto stopped = [&] { return token.cancelled() || weak.expired(); };
        const auto complete = [&](const KinAnswers& answers) {
            return hop(queue, [&] {
                const auto self = weak.lock();
                // The next search may have begun while this was on its way.
                if (self && !token.cancelled()) self->completeOffer(source, answers);
            });
        };
        KinAnswers answers;
        for (const auto i : kinAmong(questions.candidates, questions.reference, *classifier, token))
            answers.ids.insert(questions.candidates[i].id);
        if (stopped()) return;
        if (!answers.ids.empty() && !complete(answers)) return;
        for (const auto i : kinAmong(questions.shapes, questions.reference, *classifier, token))
            answers.templates.push_back(questions.shapes[i].templateWords);
        if (!stopped()) complete(answers);
    };
    kindTask_ = Task::start(TaskPriority::utility, std::move(search));
}

void AppState::completeOffer(std::int64_t source, const KinAnswers& answers) {
    if (!*pending || (*pending)->sourceID != source) return;
    auto complete =
        withKin(**pending, answers, *verdicts, index(), familyOf((*pending)->sender), *approved);
    if (complete) pending.set(std::move(complete));
}

}  // namespace brindlet
