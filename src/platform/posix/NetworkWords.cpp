#include "platform/posix/NetworkWords.h"

#include <netdb.h>

#include <cerrno>
#include <system_error>

namespace brindlet {

std::string describeSocketError(int error) {
    switch (error) {
        case ECONNREFUSED:
            return "the server refused the connection";
        case ETIMEDOUT:
            return "the server did not answer";
        case ENETDOWN:
        case ENETUNREACH:
        case EHOSTDOWN:
        case EHOSTUNREACH:
            return "there is no way to the server over the network";
        case EPIPE:
        case ECONNABORTED:
        case ECONNRESET:
            return "the server broke off the connection";
        case EMFILE:
        case ENFILE:
            return "too many files are open";
        default:
            return "the connection failed: " + std::generic_category().message(error);
    }
}

std::string describeLookupError(int error) {
    switch (error) {
        case EAI_NONAME:
            return "there is no server of that name";
        case EAI_AGAIN:
            return "the server's name cannot be looked up at the moment";
        default:
            return std::string("the server's name cannot be looked up: ") + gai_strerror(error);
    }
}

}  // namespace brindlet
