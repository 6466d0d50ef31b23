#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "base/EnumInfo.h"
#include "sample/ImapSession.h"

/// What the simulated Gmail server of a sample home is like. It stands as JSON in
/// "gmail-server.json" beside the home's Library, with keys named as the fields:
///
///     {"passwords":{"robin@gmail.example":"abcd efgh ijkl mnop"},
///      "faults":{"delay":0.5,"closesAfterSent":100,"no":3,"certificate":"expired"}}
///
/// An absent key means what the field starts as. Somebody may rewrite the file by hand at any time;
/// the server reads it for each connection anew.
namespace brindlet::sample {

/// What the server shows for itself.
enum class GmailCertificate {
    good,
    expired,
    notYetValid,
    /// Of an authority that nobody has heard of.
    foreign,
    selfSigned,
    wrongHost,
    /// None: the server does not speak TLS at all.
    plainText,
};

struct GmailSettings {
    struct Faults : ImapFaults {
        /// So many seconds go by before each answer, the greeting among them.
        double delay = 0;
        bool splitsEveryByte = false;
        /// Hangs up as soon as so many bytes of the conversation have gone out or come in. What
        /// came in by then is still answered.
        std::optional<std::int64_t> closesAfterSent;
        std::optional<std::int64_t> closesAfterReceived;
        /// Then without the farewell of TLS.
        bool closesAbruptly = false;
        GmailCertificate certificate = GmailCertificate::good;
    };

    /// App passwords by address; blanks in them do not count.
    std::map<std::string, std::string> passwords;
    Faults faults;
};

std::string gmailSettingsPath(const std::string& home);
/// None when the file is missing or damaged.
std::optional<GmailSettings> readGmailSettings(const std::string& home);
/// False when it cannot be written.
bool writeGmailSettings(const std::string& home, const GmailSettings& settings);

/// Sixteen letters in four groups, as Gmail shows them; another one each time.
std::string makeAppPassword();
/// Whether that is the password of the address, in whatever groups; an empty one never is.
bool isAppPassword(const GmailSettings& settings, const std::string& address,
                   const std::string& password);

}  // namespace brindlet::sample

namespace brindlet {

template <>
struct EnumInfo<sample::GmailCertificate> {
    using Certificate = sample::GmailCertificate;
    static constexpr std::array<std::pair<Certificate, std::string_view>, 7> all{{
        {Certificate::good, "good"},
        {Certificate::expired, "expired"},
        {Certificate::notYetValid, "notYetValid"},
        {Certificate::foreign, "foreign"},
        {Certificate::selfSigned, "selfSigned"},
        {Certificate::wrongHost, "wrongHost"},
        {Certificate::plainText, "plainText"},
    }};
};

}  // namespace brindlet
