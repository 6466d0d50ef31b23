#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/ThreadSafety.h"
#include "platform/TlsStream.h"

namespace brindlet::doubles {

/// A conversation with a server, step by step.
class Transcript {
  public:
    struct Step {
        /// `ends`, `fails` and `blocks` happen to whatever the client does next.
        enum class Kind { accepts, hears, says, ends, fails, blocks };
        Kind kind = Kind::accepts;
        std::string text = {};
    };

    /// The connection stands.
    Transcript& accepts() { return add(Step::Kind::accepts); }
    /// The client sends just this line; its end is added.
    Transcript& hears(const std::string& line) { return add(Step::Kind::hears, line + "\r\n"); }
    /// What comes in one receive, or in more where it is cut. Nothing at all is a receive, too.
    Transcript& says(std::string bytes) { return add(Step::Kind::says, std::move(bytes)); }
    /// The last `says` came with the end beside it, or just the end comes.
    Transcript& ends() { return add(Step::Kind::ends); }
    Transcript& fails(std::string words) { return add(Step::Kind::fails, std::move(words)); }
    /// Until it is cancelled.
    Transcript& blocks() { return add(Step::Kind::blocks); }

    const std::vector<Step>& steps() const { return steps_; }
    /// All that the server says.
    std::size_t saidBytes() const;

  private:
    Transcript& add(Step::Kind kind, std::string text = {}) {
        steps_.push_back({kind, std::move(text)});
        return *this;
    }
    std::vector<Step> steps_;
};

/// Makes connections that each play one transcript. A client that strays from it hears a failure,
/// and `strayed` tells. Every byte that is sent goes into the `SentBytes`.
class TranscriptConnector : public TlsConnector {
  public:
    /// Where a receive stops short, in bytes of what the server says in all.
    using Cut = std::function<bool(std::size_t position)>;

    explicit TranscriptConnector(std::vector<Transcript> transcripts);
    explicit TranscriptConnector(Transcript transcript)
        : TranscriptConnector(std::vector{std::move(transcript)}) {}

    std::shared_ptr<TlsStream> make(const std::string& host, std::uint16_t port) override;

    /// Another conversation, after those that are waiting.
    void add(Transcript transcript);
    void setCut(Cut cut) { cut_ = std::move(cut); }
    /// Blocks until a client is blocked by its transcript.
    void waitForBlock();
    /// What any other thread may do to the connection made last, while the client has it.
    void cancelLast();

    /// "host:port" of each connection made.
    std::vector<std::string> made() const;
    /// The most that each receive asked for.
    std::vector<std::size_t> asked() const;
    /// How often a connection was cancelled, in the order in which they were made.
    std::vector<int> cancels() const;
    /// How many connections somebody still holds.
    int held() const;
    /// Empty when every client kept to its transcript, up to its end.
    std::string strayed() const;

  private:
    class Stream;
    struct Conversation {
        Transcript transcript;
        std::size_t step = 0;
        std::size_t said = 0;
        /// Of the present step.
        std::size_t saidOfStep = 0;
        int cancels = 0;
        /// What happens at the present step has happened.
        bool met = false;
        bool over = false;
        std::weak_ptr<TlsStream> stream = {};
    };

    mutable Mutex mutex_;
    Condition changed_;
    Cut cut_;
    std::deque<Conversation> conversations_ BRINDLET_GUARDED_BY(mutex_);
    std::size_t begun_ BRINDLET_GUARDED_BY(mutex_) = 0;
    std::vector<std::string> made_ BRINDLET_GUARDED_BY(mutex_);
    std::vector<std::size_t> asked_ BRINDLET_GUARDED_BY(mutex_);
    int blocked_ BRINDLET_GUARDED_BY(mutex_) = 0;
    std::string strayed_ BRINDLET_GUARDED_BY(mutex_);
};

/// Has the same conversation over and over: in one piece, cut in two at every position, and byte by
/// byte.
void eachCut(const Transcript& transcript,
             const std::function<void(TranscriptConnector&)>& converse);

}  // namespace brindlet::doubles
