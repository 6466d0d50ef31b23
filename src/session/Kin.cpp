#include "session/Kin.h"

#include <algorithm>
#include <set>
#include <utility>

namespace brindlet {
namespace {

using Words = Classifier::Words;

constexpr std::size_t mostCandidates = 12;
constexpr std::size_t mostShapes = 10;

/// Those shapes that are worth a question: the likest where there is something to be like.
void narrow(std::vector<KinQuestions::Shape>& shapes, const Words& words) {
    if (words.empty()) {
        if (shapes.size() > mostShapes) shapes.resize(mostShapes);
        return;
    }
    std::vector<Words> others;
    for (const auto& shape : shapes) others.push_back(shape.templateWords);
    std::vector<KinQuestions::Shape> kept;
    for (const auto& sibling : Classifier::siblingSubjects(words, others, mostShapes)) {
        const auto index = std::find(others.begin(), others.end(), sibling) - others.begin();
        kept.push_back(std::move(shapes[static_cast<std::size_t>(index)]));
    }
    shapes = std::move(kept);
}

std::string joined(const Words& words) {
    std::string text;
    for (const auto& word : words) {
        if (!text.empty()) text += ' ';
        text += word;
    }
    return text;
}

}  // namespace

KinQuestions kinQuestions(std::uint32_t position, const VerdictList& verdicts,
                          const VerdictIndex& index, const FamilyTemplates& family) {
    const Verdict& source = verdicts[position];
    KinQuestions questions;
    questions.reference = source.subject;
    auto& candidates = questions.candidates;
    const auto& sourceTemplate = templateOf(source.id, family);
    std::set<Words> shapesMet{{}, sourceTemplate};
    for (const auto other : index.members(index.groupOf(position))) {
        const Verdict& verdict = verdicts[other];
        if (other == position || verdict.category != source.category) continue;
        const auto sameSubject = [&](const auto& known) {
            return known.subject == verdict.subject;
        };
        if (candidates.size() < mostCandidates &&
            std::none_of(candidates.begin(), candidates.end(), sameSubject))
            candidates.push_back({verdict.id, verdict.subject});
        const auto& words = templateOf(verdict.id, family);
        if (shapesMet.insert(words).second) questions.shapes.push_back({words, verdict.subject});
    }
    narrow(questions.shapes, sourceTemplate);
    return questions;
}

std::optional<PendingRule> withKin(const PendingRule& offer, const KinAnswers& answers,
                                   const VerdictList& verdicts, const VerdictIndex& index,
                                   const FamilyTemplates& family, const IdSet& approved) {
    std::vector<std::int64_t> kin;
    IdSet met;
    const auto add = [&](std::int64_t id) {
        if (met.insert(id)) kin.push_back(id);
    };
    for (const auto id : offer.members) add(id);
    for (const auto id : offer.everything) add(id);

    const auto& templates = answers.templates;
    const auto answered = [&](const Verdict& verdict) {
        return answers.ids.contains(verdict.id) ||
               std::find(templates.begin(), templates.end(), templateOf(verdict.id, family)) !=
                   templates.end();
    };
    if (const auto group = index.groupWithKey(offer.sender))
        for (const auto position : index.members(*group)) {
            const Verdict& verdict = verdicts[position];
            if (verdict.messageID && verdict.id != offer.sourceID &&
                verdict.category == offer.category &&
                approved.contains(verdict.id) != offer.wantApproved && answered(verdict))
                add(verdict.id);
        }
    if (kin.size() <= std::max(offer.members.size(), offer.everything.size())) return std::nullopt;

    auto complete = offer;
    complete.kin = std::move(kin);
    complete.kinWhat = joined(offer.templateWords);
    return complete;
}

}  // namespace brindlet
