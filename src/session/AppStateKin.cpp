#include <utility>

#include "platform/MainQueue.h"
#include "session/AppState.h"
#include "session/Kin.h"

namespace brindlet {

// Only the next search cancels this one. When the offer goes away meanwhile, its results find
// another offer or none, and are dropped.
void AppState::findKin(std::uint32_t position) {
    if (kindTask_) kindTask_->cancel();
    const auto family = families.find(index().key(index().groupOf(position)));
    if (family == families.end()) return;
    kindTask_ = Task::start(
        TaskPriority::utility,
        [weak = weak_from_this(), classifier = classifier_, &queue = services_.mainQueue,
         source = (*verdicts)[position].id,
         questions =
             kinQuestions(position, *verdicts, index(), family->second)](const CancelToken& token) {
            const auto stopped = [&] { return token.cancelled() || weak.expired(); };
            // Looked at again on the main thread, where the next search cancels.
            const auto complete = [&](const KinAnswers& answers) {
                return hop(queue, [&] {
                    const auto self = weak.lock();
                    if (self && !token.cancelled()) self->completeOffer(source, answers);
                });
            };
            KinAnswers answers;
            std::vector<std::string> subjects;
            for (const auto& candidate : questions.candidates)
                subjects.push_back(candidate.subject);
            for (const auto kin : classifier->kinIndices(questions.reference, subjects, token))
                answers.ids.insert(questions.candidates[kin].id);
            if (stopped()) return;
            if (!answers.ids.empty() && !complete(answers)) return;

            subjects.clear();
            for (const auto& shape : questions.shapes) subjects.push_back(shape.subject);
            for (const auto kin : classifier->kinIndices(questions.reference, subjects, token))
                answers.templates.push_back(questions.shapes[kin].templateWords);
            if (!stopped()) complete(answers);
        });
}

void AppState::completeOffer(std::int64_t source, const KinAnswers& answers) {
    if (!*pending || (*pending)->sourceID != source) return;
    auto complete =
        withKin(**pending, answers, *verdicts, index(), familyOf((*pending)->sender), *approved);
    if (complete) pending.set(std::move(complete));
}

}  // namespace brindlet
