#include "mof/Lexer.h"

#include "model/Utf.h"
#include "mof/Number.h"

#include <algorithm>

namespace cimserver {
namespace {

// The <cctype> functions depend on the locale; MOF does not.
bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}
bool isSign(char c) {
    return c == '+' || c == '-';
}
bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f';
}

/// A code point of the basic plane as UTF-8.
std::string utf8(unsigned code) {
    const Pegasus::Char16 unit(static_cast<Pegasus::Uint16>(code));
    char bytes[3];
    return {bytes, writeUtf8(&unit, 1, bytes)};
}

}  // namespace

char Lexer::peek(std::size_t ahead) const {
    const std::size_t index = _index + ahead;
    return index < _source.text.size() ? _source.text[index] : '\0';
}

char Lexer::take() {
    const char c = _source.text[_index++];
    if (c == '\n')
        _position = {_position.line + 1, 1};
    else
        ++_position.column;
    return c;
}

void Lexer::skipBlanks() {
    while (!atEnd()) {
        if (isBlank(peek()))
            take();
        else if (!skipComment())
            return;
    }
}

bool Lexer::skipComment() {
    if (peek() != '/' || (peek(1) != '/' && peek(1) != '*')) return false;
    const Position at = _position;
    take();
    if (take() == '/') {
        while (!atEnd() && peek() != '\n') take();
        return true;
    }
    while (!atEnd() && !(peek() == '*' && peek(1) == '/')) take();
    if (atEnd()) _source.fail(at, "comment without end");
    take();
    take();
    return true;
}

Token Lexer::token(TokenKind kind, std::size_t start, Position at) const {
    return {kind, std::string(_source.text.substr(start, _index - start)), at};
}

Token Lexer::next() {
    skipBlanks();
    if (atEnd()) return {TokenKind::End, "", _position};
    const char c = peek();
    if (isLetter(c)) return identifier();
    if (startsNumber()) return number();
    if (c == '"') return string();
    if (c == '\'') return character();
    return c == '#' ? pragma() : symbol();
}

bool Lexer::startsNumber() const {
    const std::size_t sign = isSign(peek()) ? 1 : 0;
    return isDigit(peek(sign)) || (peek(sign) == '.' && isDigit(peek(sign + 1)));
}

Token Lexer::identifier() {
    const Position at = _position;
    const std::size_t start = _index;
    while (isLetter(peek()) || isDigit(peek())) take();
    return token(TokenKind::Identifier, start, at);
}

Token Lexer::number() {
    const Position at = _position;
    const std::size_t start = _index;
    char last = take();
    const auto isExponent = [&] { return (last == 'e' || last == 'E') && isSign(peek()); };
    while (isDigit(peek()) || isLetter(peek()) || peek() == '.' || isExponent()) last = take();
    Token result = token(TokenKind::Integer, start, at);
    if (isReal(result.text)) result.kind = TokenKind::Real;
    if (result.kind == TokenKind::Integer && !isInteger(result.text))
        _source.fail(at, "malformed number " + result.text);
    return result;
}

Token Lexer::string() {
    const Position at = _position;
    return {TokenKind::String, quotedText('"'), at};
}

Token Lexer::character() {
    const Position at = _position;
    return {TokenKind::Character, quotedText('\''), at};
}

std::string Lexer::quotedText(char quote) {
    const Position at = _position;
    std::string text;
    take();
    while (peek() != quote) {
        if (atEnd() || peek() == '\n' || peek() == '\0')
            _source.fail(at, std::string("text without closing ") + quote);
        if (peek() == '\\')
            text += escape();
        else
            text += take();
    }
    take();
    return text;
}

std::string Lexer::escape() {
    static constexpr std::string_view letters = "btnfr\"'\\";
    static constexpr std::string_view meanings = "\b\t\n\f\r\"'\\";
    const Position at = _position;
    take();
    const char c = atEnd() ? '\0' : take();
    if (c == 'x' || c == 'X') return hexEscape(at);
    const std::size_t index = letters.find(c);
    if (index == std::string_view::npos) _source.fail(at, "unknown escape sequence");
    return {meanings[index]};
}

std::string Lexer::hexEscape(Position at) {
    unsigned code = 0;
    int digits = 0;
    for (; digits < 4 && hexDigit(peek()) >= 0; ++digits)
        code = code * 16 + static_cast<unsigned>(hexDigit(take()));
    const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
    if (code == 0 || isSurrogate) _source.fail(at, "escape sequence names no character");
    return utf8(code);
}

Token Lexer::pragma() {
    const Position at = _position;
    take();
    Token word = identifier();
    std::transform(word.text.begin(), word.text.end(), word.text.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    if (word.text != "pragma") _source.fail(at, "expected #pragma");
    return {TokenKind::Pragma, "#pragma", at};
}

Token Lexer::symbol() {
    const Position at = _position;
    const char c = take();
    if (std::string_view("{}()[];:,=$").find(c) == std::string_view::npos)
        _source.fail(at, "unexpected character");
    return {TokenKind::Symbol, std::string(1, c), at};
}

}  // namespace cimserver
