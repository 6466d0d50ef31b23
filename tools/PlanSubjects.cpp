#include "PlanSubjects.h"

#include <algorithm>
#include <vector>

#include "base/Json.h"
#include "base/Utf8.h"
#include "classify/Classifier.h"
#include "classify/TemplatePlan.h"
#include "stores/Rules.h"

namespace brindlet::tools {
namespace {

struct Mail {
    std::vector<std::string> senders;
    std::vector<std::string> subjects;

    explicit Mail(std::string_view lines) {
        while (!lines.empty()) {
            const auto line = repairedUtf8(lines.substr(0, lines.find('\n')));
            lines.remove_prefix(std::min(lines.size(), lines.find('\n')));
            if (!lines.empty()) lines.remove_prefix(1);
            const auto tab = line.find('\t');
            senders.push_back(line.substr(0, tab));
            subjects.push_back(tab == std::string::npos ? "" : line.substr(tab + 1));
        }
    }

    std::vector<TemplatePlan::Message> messages() const {
        std::vector<TemplatePlan::Message> all;
        for (std::size_t i = 0; i < senders.size(); ++i) all.push_back({senders[i], subjects[i]});
        return all;
    }
};

void write(JsonWriter& out, std::size_t number) {
    out.value(static_cast<std::int64_t>(number));
}
void write(JsonWriter& out, const std::string& text) {
    out.value(text);
}
void write(JsonWriter& out, bool flag) {
    out.value(flag);
}
void write(JsonWriter& out, const TemplatePlan::Cluster& cluster);

template <class T>
void write(JsonWriter& out, const std::vector<T>& values) {
    out.beginArray();
    for (const auto& value : values) write(out, value);
    out.endArray();
}

template <class T>
void member(JsonWriter& out, std::string_view name, const T& content) {
    out.key(name);
    write(out, content);
}

void write(JsonWriter& out, const TemplatePlan::Cluster& cluster) {
    out.beginObject();
    member(out, "probes", cluster.probes);
    member(out, "members", cluster.members);
    out.endObject();
}

}  // namespace

std::string planSubjects(std::string_view lines) {
    const Mail mail(lines);
    const auto plan = TemplatePlan::make(mail.messages());
    std::vector<Classifier::Words> words;
    std::vector<bool> veto;
    for (const auto& subject : mail.subjects) {
        words.push_back(Classifier::subjectWords(subject));
        veto.push_back(Classifier::isVetoed(subject));
    }
    std::vector<std::string> senderKeys;
    for (const auto& sender : mail.senders) senderKeys.push_back(Rules::senderKey(sender));

    JsonWriter out;
    out.beginObject();
    member(out, "probes", plan.probes);
    member(out, "clusters", plan.clusters);
    member(out, "templates", Classifier::mineTemplates(mail.subjects));
    member(out, "words", words);
    member(out, "senderKeys", senderKeys);
    member(out, "veto", veto);
    out.endObject();
    return std::move(out).text();
}

}  // namespace brindlet::tools
