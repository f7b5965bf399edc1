#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/sql/ast.h"

namespace engine::sql {

enum class TokenKind { end, word, bracketed, number, text, date, symbol };

/// One token of a statement. A word is as it was written; a bracketed name and a text are without their
/// marks; numbers, texts and dates have their value.
struct Token {
  TokenKind kind = TokenKind::end;
  Place place;
  std::uint32_t end = 0;  ///< offset behind the last byte
  std::string_view raw;   ///< the bytes of the statement; a bracketed name without the brackets
  Value value;

  bool isSymbol(std::string_view symbol) const { return kind == TokenKind::symbol && raw == symbol; }
  /// Whether this is the word `upper`, in any case; `upper` is plain ASCII in upper case.
  bool isWord(std::string_view upper) const;
};

/// All tokens, the last one TokenKind::end. Throws 3075; the views point into `text`.
std::vector<Token> tokenize(std::string_view text);

/// Throws 3075: `message`, then line, column (in characters, from 1) and what stands there.
[[noreturn]] void syntaxError(std::string_view text, Place place, std::string_view message);

/// Whether a name can stand without brackets wherever a name is wanted.
bool isPlainName(std::string_view name);
/// Words that can not be a bare name, in upper case: they open or close clauses, or are operators or
/// literals.
bool isReserved(std::string_view word);

}  // namespace engine::sql
