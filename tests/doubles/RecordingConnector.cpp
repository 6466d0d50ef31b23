#include "doubles/RecordingConnector.h"

#include <utility>

#include "doubles/SentBytes.h"

namespace brindlet::doubles {
namespace {

class RecordingStream : public TlsStream {
  public:
    explicit RecordingStream(std::shared_ptr<TlsStream> real) : real_(std::move(real)) {}

    Failure connect() override { return real_->connect(); }
    Failure send(std::string_view bytes) override {
        SentBytes::record(bytes);
        return real_->send(bytes);
    }
    Received receive(std::size_t most) override { return real_->receive(most); }
    void cancel() override { real_->cancel(); }

  private:
    const std::shared_ptr<TlsStream> real_;
};

}  // namespace

std::shared_ptr<TlsStream> RecordingConnector::make(const std::string& host, std::uint16_t port) {
    return std::make_shared<RecordingStream>(real_.make(host, port));
}

}  // namespace brindlet::doubles
