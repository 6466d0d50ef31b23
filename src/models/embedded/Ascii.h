#pragma once

namespace brindlet::ascii {

constexpr bool isLower(char c) {
    return c >= 'a' && c <= 'z';
}
constexpr bool isUpper(char c) {
    return c >= 'A' && c <= 'Z';
}
constexpr bool isLetter(char c) {
    return isLower(c) || isUpper(c);
}
constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
constexpr bool isAlphanumeric(char c) {
    return isLetter(c) || isDigit(c);
}
constexpr bool isControlOrBlank(char c) {
    return static_cast<unsigned char>(c) <= ' ';
}
constexpr char lower(char c) {
    return isUpper(c) ? static_cast<char>(c - 'A' + 'a') : c;
}
constexpr char upper(char c) {
    return isLower(c) ? static_cast<char>(c - 'a' + 'A') : c;
}

}  // namespace brindlet::ascii
