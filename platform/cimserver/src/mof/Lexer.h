// Cuts a MOF text into tokens.
#pragma once

#include "mof/Token.h"

namespace cimserver {

class Lexer {
  public:
    /// The source must outlive the lexer.
    explicit Lexer(const Source& source) : _source(source) {}

    /// The next token, in the end one of kind End. Throws MofError.
    Token next();

  private:
    bool atEnd() const { return _index >= _source.text.size(); }
    char peek(std::size_t ahead = 0) const;
    char take();
    void skipBlanks();
    bool skipComment();
    Token token(TokenKind kind, std::size_t start, Position at) const;

    bool startsNumber() const;
    Token identifier();
    Token number();
    Token string();
    Token character();
    Token pragma();
    Token symbol();
    std::string quotedText(char quote);
    std::string escape();
    std::string hexEscape(Position at);

    const Source& _source;
    std::size_t _index = 0;
    Position _position;
};

}  // namespace cimserver
