#include <algorithm>

#include "classify/Classifier.h"
#include "classify/WordSplitter.h"

namespace brindlet {

Classifier::Words Classifier::subjectWords(std::string_view subject) {
    WordSplitter splitter;
    const auto& words = splitter.split(subject);
    return {words.begin(), words.end()};
}

bool Classifier::templateOccurs(const Words& templateWords, std::string_view subject) {
    return templateWords.empty() || templateOccurs(templateWords, subjectWords(subject));
}

bool Classifier::templateOccurs(const Words& templateWords, const Words& subjectWords) {
    // An empty run is found at the front, so an empty template occurs even in an empty subject.
    return templateWords.empty() ||
           std::search(subjectWords.begin(), subjectWords.end(), templateWords.begin(),
                       templateWords.end()) != subjectWords.end();
}

}  // namespace brindlet
