#pragma once

#include <string_view>

namespace brindlet {

/// The three texts that a prompt is about. Views into the prompt.
struct MailText {
    std::string_view sender;
    std::string_view subject;
    std::string_view body;
};

/// Takes a prompt apart at its labels "FROM: ", "SUBJECT: " and "BODY:", each at the start of a
/// line, the first of each in this order. A text with none of them is all body; a label that is
/// missing leaves its text empty. Only the first 512 bytes of sender and subject and the first 6000
/// of the body are given, so the size of a prompt bounds no work: one character of a message can be
/// a hundred thousand bytes long.
MailText splitPrompt(std::string_view prompt);

}  // namespace brindlet
