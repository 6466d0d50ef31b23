#pragma once

#include <chrono>
#include <string>

#include "base/Cancel.h"

struct sockaddr;

namespace brindlet {

/// What became of a request.
struct LoopbackReply {
    enum class Outcome {
        answered,
        /// Nobody there, hung up, another status than 200, too much, or not for this machine.
        failed,
        /// The time ran out.
        unheard,
        abandoned,
    };
    Outcome outcome = Outcome::failed;
    /// Of an answer alone.
    std::string body;
};

/// Posts JSON to a server on this machine, over a connection of its own, and blocks for the answer.
/// Whatever the address and the environment say, only loopback is ever connected to: no proxy, no
/// redirect, and each socket's address is looked at before there is one. Nothing is sent twice, and
/// nothing but the request goes out: no cookies, no passwords. Head and body of an answer may have
/// 1 MiB together. Any thread.
LoopbackReply postOnLoopback(const std::string& url, const std::string& json,
                             std::chrono::milliseconds limit, const CancelToken& abandoned);

/// Of 127.0.0.0/8, or ::1.
bool isLoopback(const sockaddr& address);

}  // namespace brindlet
