// The words of a MOF text and where they stand.
#pragma once

#include "mof/MofReader.h"

#include <string>
#include <string_view>

namespace cimserver {

/// A place in a file; both count from 1, the column in bytes.
struct Position {
    int line = 1;
    int column = 1;
};

enum class TokenKind { End, Identifier, Integer, Real, Character, String, Pragma, Symbol };

/// `text` is what the file holds, except that strings and characters come unquoted and unescaped.
struct Token {
    TokenKind kind = TokenKind::End;
    std::string text;
    Position at;
};

/// A MOF text with the name that error messages give it.
struct Source {
    std::string name;
    std::string_view text;

    [[noreturn]] void fail(Position at, const std::string& what) const {
        throw MofError(name + ":" + std::to_string(at.line) + ":" + std::to_string(at.column) +
                       ": " + what);
    }
};

}  // namespace cimserver
