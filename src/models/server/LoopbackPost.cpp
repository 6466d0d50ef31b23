#include "models/server/LoopbackPost.h"

#include <arpa/inet.h>
#include <curl/curl.h>
#include <netinet/in.h>
#include <openssl/crypto.h>
#include <sys/socket.h>

#include <cstddef>
#include <memory>
#include <utility>

namespace brindlet {
namespace {

/// An answer is some hundred bytes, and with a server's statistics some thousand.
constexpr std::size_t mostAnswerBytes = 1024 * 1024;

template <auto free>
struct FreedBy {
    template <class T>
    void operator()(T* object) const {
        free(object);
    }
};

/// libcurl draws random numbers even for plain http, and OpenSSL, which makes them, keeps state for
/// each thread until that ends. A thread that nobody waits for may end after the process's last
/// look at its memory, so it lets go before it tells its result.
struct ThreadState {
    ThreadState() = default;
    ThreadState(const ThreadState&) = delete;
    ThreadState& operator=(const ThreadState&) = delete;
    ~ThreadState() { OPENSSL_thread_stop(); }
};

/// Takes the answer in, up to its bound.
struct Intake {
    std::string body;
    std::size_t left = mostAnswerBytes;

    bool take(std::size_t bytes) {
        if (bytes > left) return false;
        left -= bytes;
        return true;
    }
};

/// Giving back another number than came makes libcurl end the request.
std::size_t takeHead(char*, std::size_t one, std::size_t bytes, void* intake) {
    return static_cast<Intake*>(intake)->take(one * bytes) ? one * bytes : 0;
}

std::size_t takeBody(char* start, std::size_t one, std::size_t bytes, void* intake) {
    auto& to = *static_cast<Intake*>(intake);
    if (!to.take(one * bytes)) return 0;
    to.body.append(start, one * bytes);
    return one * bytes;
}

/// The last word on where a request goes: without a socket there is no connection.
curl_socket_t openLoopbackSocket(void*, curlsocktype, curl_sockaddr* address) {
    if (!isLoopback(address->addr)) return CURL_SOCKET_BAD;
    return ::socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol);
}

void keepToLoopback(CURL* easy) {
    // Unless told so, libcurl obeys http_proxy and ALL_PROXY even for 127.0.0.1.
    curl_easy_setopt(easy, CURLOPT_PROXY, "");
    curl_easy_setopt(easy, CURLOPT_NOPROXY, "*");
    curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "http");
    curl_easy_setopt(easy, CURLOPT_FOLLOWLOCATION, 0L);
    curl_easy_setopt(easy, CURLOPT_DISALLOW_USERNAME_IN_URL, 1L);
    curl_easy_setopt(easy, CURLOPT_NETRC, static_cast<long>(CURL_NETRC_IGNORED));
    curl_easy_setopt(easy, CURLOPT_OPENSOCKETFUNCTION, openLoopbackSocket);
    // No cookies, no remembered "use HTTPS" or "go elsewhere": each is off until it is given a
    // file, and none is given here.
}

/// Runs the request until it has ended or is abandoned.
LoopbackReply::Outcome carryOut(CURLM* multi, CURL* easy, const CancelToken& abandoned) {
    using Outcome = LoopbackReply::Outcome;
    if (curl_multi_add_handle(multi, easy) != CURLM_OK) return Outcome::failed;
    auto outcome = Outcome::failed;
    {
        const auto watch = abandoned.onCancel([multi] { curl_multi_wakeup(multi); });
        // Ends by itself when the time is up.
        constexpr int longestWait = 3'600'000 /* milliseconds */;
        int running = 0;
        CURLMcode step = curl_multi_perform(multi, &running);
        while (step == CURLM_OK && running > 0 && !abandoned.cancelled()) {
            step = curl_multi_poll(multi, nullptr, 0, longestWait, nullptr);
            if (step == CURLM_OK) step = curl_multi_perform(multi, &running);
        }
        if (running > 0) outcome = abandoned.cancelled() ? Outcome::abandoned : Outcome::failed;
    }
    int left = 0;
    if (const CURLMsg* const end = curl_multi_info_read(multi, &left)) {
        long status = 0;
        curl_easy_getinfo(easy, CURLINFO_RESPONSE_CODE, &status);
        if (end->data.result == CURLE_OPERATION_TIMEDOUT) outcome = Outcome::unheard;
        if (end->data.result == CURLE_OK && status == 200) outcome = Outcome::answered;
    }
    curl_multi_remove_handle(multi, easy);
    return outcome;
}

}  // namespace

bool isLoopback(const sockaddr& address) {
    if (address.sa_family == AF_INET) {
        const auto& v4 = reinterpret_cast<const sockaddr_in&>(address);
        return ntohl(v4.sin_addr.s_addr) >> 24U == 127;
    }
    if (address.sa_family == AF_INET6)
        return IN6_IS_ADDR_LOOPBACK(&reinterpret_cast<const sockaddr_in6&>(address).sin6_addr);
    return false;
}

LoopbackReply postOnLoopback(const std::string& url, const std::string& json,
                             std::chrono::milliseconds limit, const CancelToken& abandoned) {
    if (abandoned.cancelled()) return {LoopbackReply::Outcome::abandoned, {}};
    // The first call prepares the library, for the whole process and for good.
    static const CURLcode prepared = curl_global_init(CURL_GLOBAL_DEFAULT);
    const ThreadState ending;
    // Nothing is kept for the next call. A kept connection would save some tens of microseconds,
    // but where the server has let go of it, libcurl would send the request a second time; and
    // servers that give each connection a thread would hold on to four.
    const std::unique_ptr<CURLM, FreedBy<curl_multi_cleanup>> multi(curl_multi_init());
    const std::unique_ptr<CURL, FreedBy<curl_easy_cleanup>> easy(curl_easy_init());
    // Without "Expect" nobody waits for leave to send a long body.
    const std::unique_ptr<curl_slist, FreedBy<curl_slist_free_all>> headers(
        curl_slist_append(nullptr, "Content-Type: application/json"));
    if (prepared != CURLE_OK || !multi || !easy || !headers) return {};
    if (!curl_slist_append(headers.get(), "Expect:")) return {};

    Intake intake;
    keepToLoopback(easy.get());
    const auto set = [&](CURLoption option, auto value) {
        curl_easy_setopt(easy.get(), option, value);
    };
    set(CURLOPT_URL, url.c_str());
    set(CURLOPT_HTTPHEADER, headers.get());
    set(CURLOPT_POSTFIELDS, json.c_str());
    set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(json.size()));
    set(CURLOPT_HEADERFUNCTION, &takeHead);
    set(CURLOPT_HEADERDATA, &intake);
    set(CURLOPT_WRITEFUNCTION, &takeBody);
    set(CURLOPT_WRITEDATA, &intake);
    set(CURLOPT_TIMEOUT_MS, static_cast<long>(limit.count()));
    set(CURLOPT_NOSIGNAL, 1L);
    const auto outcome = carryOut(multi.get(), easy.get(), abandoned);
    if (outcome != LoopbackReply::Outcome::answered) return {outcome, {}};
    return {outcome, std::move(intake.body)};
}

}  // namespace brindlet
