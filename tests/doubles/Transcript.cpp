#include "doubles/Transcript.h"

#include <optional>

#include "doubles/SentBytes.h"

namespace brindlet::doubles {

using Kind = Transcript::Step::Kind;

std::size_t Transcript::saidBytes() const {
    std::size_t bytes = 0;
    for (const Step& step : steps_)
        if (step.kind == Kind::says) bytes += step.text.size();
    return bytes;
}

/// All state stands in the connector, where the test can see it when the client has let go.
class TranscriptConnector::Stream : public TlsStream {
  public:
    Stream(TranscriptConnector& connector, std::size_t index)
        : connector_(connector), index_(index) {}

    Failure connect() override {
        Lock lock(connector_.mutex_);
        if (auto failure = trouble()) return failure;
        if (!next(Kind::accepts)) return stray("connects");
        ++mine().step;
        return std::nullopt;
    }

    Failure send(std::string_view bytes) override {
        Lock lock(connector_.mutex_);
        if (auto failure = trouble()) return failure;
        SentBytes::record(bytes);
        const auto* const step = next(Kind::hears);
        if (!step || step->text != bytes) return stray("sends " + std::string(bytes));
        ++mine().step;
        return std::nullopt;
    }

    Received receive(std::size_t most) override {
        Lock lock(connector_.mutex_);
        connector_.asked_.push_back(most);
        if (auto failure = trouble()) return {{}, false, std::move(failure)};
        if (ending()) return {{}, true, {}};
        const auto* const step = next(Kind::says);
        if (!step) return {{}, false, stray("waits")};
        Conversation& one = mine();
        Received received;
        while (one.saidOfStep < step->text.size() && received.bytes.size() < most) {
            received.bytes += step->text[one.saidOfStep++];
            if (connector_.cut_ && connector_.cut_(++one.said)) break;
        }
        if (one.saidOfStep == step->text.size()) {
            ++one.step;
            one.saidOfStep = 0;
            received.ended = ending();
        }
        return received;
    }

    void cancel() override {
        Lock lock(connector_.mutex_);
        ++mine().cancels;
        mine().over = true;
        connector_.changed_.notifyAll();
    }

  private:
    Conversation& mine() BRINDLET_REQUIRES(connector_.mutex_) {
        return connector_.conversations_[index_];
    }
    /// The step that comes next, if it is one of this kind.
    const Transcript::Step* next(Kind kind) BRINDLET_REQUIRES(connector_.mutex_) {
        const auto& steps = mine().transcript.steps();
        const auto at = mine().step;
        return at < steps.size() && steps[at].kind == kind ? &steps[at] : nullptr;
    }
    bool ending() BRINDLET_REQUIRES(connector_.mutex_) {
        const bool ends = next(Kind::ends);
        mine().met = mine().met || ends;
        return ends;
    }
    /// What keeps the client from doing anything at all.
    Failure trouble() BRINDLET_REQUIRES(connector_.mutex_) {
        if (next(Kind::blocks) && !mine().over) {
            mine().met = true;
            ++connector_.blocked_;
            connector_.changed_.notifyAll();
            while (!mine().over) connector_.changed_.wait(connector_.mutex_);
        }
        if (mine().over) return "cancelled";
        const auto* const step = next(Kind::fails);
        if (!step) return std::nullopt;
        mine().met = true;
        return step->text;
    }
    std::string stray(const std::string& what) BRINDLET_REQUIRES(connector_.mutex_) {
        connector_.strayed_ += "at step " + std::to_string(mine().step) + " of connection " +
                               std::to_string(index_ + 1) + " the client " + what + "\n";
        return "not in the transcript";
    }

    TranscriptConnector& connector_;
    const std::size_t index_;
};

TranscriptConnector::TranscriptConnector(std::vector<Transcript> transcripts) {
    Lock lock(mutex_);
    for (Transcript& transcript : transcripts) conversations_.push_back({std::move(transcript)});
}

void TranscriptConnector::add(Transcript transcript) {
    Lock lock(mutex_);
    conversations_.push_back({std::move(transcript)});
}

std::shared_ptr<TlsStream> TranscriptConnector::make(const std::string& host, std::uint16_t port) {
    Lock lock(mutex_);
    made_.push_back(host + ':' + std::to_string(port));
    if (begun_ == conversations_.size()) conversations_.emplace_back();  // where anything strays
    const auto stream = std::make_shared<Stream>(*this, begun_);
    conversations_[begun_++].stream = stream;
    return stream;
}

void TranscriptConnector::waitForBlock() {
    Lock lock(mutex_);
    while (blocked_ == 0) changed_.wait(mutex_);
}

void TranscriptConnector::cancelLast() {
    std::shared_ptr<TlsStream> stream;
    {
        Lock lock(mutex_);
        stream = conversations_[begun_ - 1].stream.lock();
    }
    if (stream) stream->cancel();
}

std::vector<std::string> TranscriptConnector::made() const {
    Lock lock(mutex_);
    return made_;
}

std::vector<std::size_t> TranscriptConnector::asked() const {
    Lock lock(mutex_);
    return asked_;
}

std::vector<int> TranscriptConnector::cancels() const {
    Lock lock(mutex_);
    std::vector<int> cancels;
    for (std::size_t i = 0; i < begun_; ++i) cancels.push_back(conversations_[i].cancels);
    return cancels;
}

int TranscriptConnector::held() const {
    Lock lock(mutex_);
    int held = 0;
    for (const Conversation& conversation : conversations_)
        if (!conversation.stream.expired()) ++held;
    return held;
}

std::string TranscriptConnector::strayed() const {
    Lock lock(mutex_);
    std::string words = strayed_;
    for (const Conversation& conversation : conversations_) {
        const auto& steps = conversation.transcript.steps();
        const std::size_t played = conversation.step + (conversation.met ? 1 : 0);
        if (played < steps.size()) words += "left off at step " + std::to_string(played) + "\n";
    }
    return words;
}

void eachCut(const Transcript& transcript,
             const std::function<void(TranscriptConnector&)>& converse) {
    const auto with = [&](TranscriptConnector::Cut cut) {
        TranscriptConnector connector(transcript);
        connector.setCut(std::move(cut));
        converse(connector);
    };
    with(nullptr);
    with([](std::size_t) { return true; });
    for (std::size_t at = 1; at < transcript.saidBytes(); ++at)
        with([at](std::size_t position) { return position == at; });
}

}  // namespace brindlet::doubles
