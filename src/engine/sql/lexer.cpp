#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "base/text.h"
#include "engine/sql/date_literal.h"
#include "engine/sql/token.h"

namespace engine::sql {
namespace {

constexpr std::size_t maxStatementBytes = 1024 * 1024;

char upperAscii(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
bool isDigit(char c) {
  return c >= '0' && c <= '9';
}
bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}
/// Bytes of characters beyond ASCII all count as letters.
bool startsWord(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80;
}
bool continuesWord(char c) {
  return startsWord(c) || isDigit(c) || c == '$';
}

class Lexer {
 public:
  explicit Lexer(std::string_view text) : text_(text) {}

  std::vector<Token> run() {
    std::vector<Token> tokens;
    for (;;) {
      while (at_ < text_.size() && isBlank(text_[at_])) ++at_;
      tokens.push_back(next());
      if (tokens.back().kind == TokenKind::end) return tokens;
    }
  }

 private:
  char peek(std::size_t ahead = 0) const { return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0'; }
  Place here() const { return Place{static_cast<std::uint32_t>(at_)}; }

  Token finish(TokenKind kind, std::size_t start, Value value = {}) const {
    return Token{kind, Place{static_cast<std::uint32_t>(start)}, static_cast<std::uint32_t>(at_),
                 text_.substr(start, at_ - start), std::move(value)};
  }

  Token next() {
    const std::size_t start = at_;
    const char c = peek();
    if (at_ == text_.size()) return finish(TokenKind::end, start);
    if (startsWord(c)) return word();
    if (isDigit(c) || (c == '.' && isDigit(peek(1)))) return number();
    if (c == '\'' || c == '"') return quoted(c);
    if (c == '[') return bracketed();
    if (c == '#') return date();
    return symbol();
  }

  Token word() {
    const std::size_t start = at_;
    while (at_ < text_.size() && continuesWord(text_[at_])) ++at_;
    return finish(TokenKind::word, start);
  }

  Token number() {
    const std::size_t start = at_;
    bool whole = true;
    const auto digits = [&] {
      while (isDigit(peek())) ++at_;
    };
    digits();
    if (peek() == '.' && !startsWord(peek(1))) {
      whole = false;
      ++at_;
      digits();
    }
    const char afterE = peek(1) == '+' || peek(1) == '-' ? peek(2) : peek(1);
    if (upperAscii(peek()) == 'E' && isDigit(afterE)) {
      whole = false;
      at_ += isDigit(peek(1)) ? 1 : 2;
      digits();
    }
    return finish(TokenKind::number, start, numberValue(start, whole));
  }

  Value numberValue(std::size_t start, bool whole) const {
    const char* first = text_.data() + start;
    const char* last = text_.data() + at_;
    std::int64_t integer = 0;
    if (whole && std::from_chars(first, last, integer).ec == std::errc{}) return integer;
    double real = 0;
    // "5." is a number of the dialect, and from_chars leaves its point alone.
    if (std::from_chars(first, last, real).ec != std::errc{} || !std::isfinite(real))
      syntaxError(text_, Place{static_cast<std::uint32_t>(start)}, "The number is out of range");
    return real;
  }

  /// A text in single or double quotes; the quote itself is written twice.
  Token quoted(char quote) {
    const std::size_t start = at_++;
    std::string content;
    for (;;) {
      const std::size_t close = text_.find(quote, at_);
      if (close == std::string_view::npos)
        syntaxError(text_, Place{static_cast<std::uint32_t>(start)}, "The text has no closing quote");
      content.append(text_, at_, close - at_);
      at_ = close + 1;
      if (peek() != quote) return finish(TokenKind::text, start, std::move(content));
      content += quote;
      ++at_;
    }
  }

  Token bracketed() {
    const std::size_t start = at_;
    const std::size_t close = text_.find_first_of("[]", start + 1);
    if (close == std::string_view::npos || text_[close] == '[')
      syntaxError(text_, here(), "The name has no closing bracket");
    if (close == start + 1) syntaxError(text_, here(), "The name is empty");
    at_ = close + 1;
    Token token = finish(TokenKind::bracketed, start);
    token.raw = text_.substr(start + 1, close - start - 1);
    return token;
  }

  Token date() {
    const std::size_t start = at_;
    const std::size_t close = text_.find('#', start + 1);
    if (close == std::string_view::npos) syntaxError(text_, here(), "The date has no closing '#'");
    const auto when = readDateLiteral(text_.substr(start + 1, close - start - 1));
    if (!when) syntaxError(text_, here(), "This is no date");
    at_ = close + 1;
    return finish(TokenKind::date, start, *when);
  }

  Token symbol() {
    const std::size_t start = at_;
    const std::string_view two = text_.substr(at_, 2);
    if (two == "<=" || two == ">=" || two == "<>")
      at_ += 2;
    else if (std::string_view("+-*/\\^&=<>(),.;!").find(peek()) != std::string_view::npos)
      ++at_;
    else
      syntaxError(text_, here(), "Unexpected character");
    return finish(TokenKind::symbol, start);
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

// Sorted for the binary search below.
constexpr std::array reserved = {
    "AND",    "AS",   "ASC",   "BETWEEN", "BY",     "DESC",  "DISTINCT", "DISTINCTROW", "EQV",   "EXISTS",
    "FALSE",  "FROM", "GROUP", "HAVING",  "IMP",    "IN",    "INNER",    "INTO",        "IS",    "JOIN",
    "LEFT",   "LIKE", "MOD",   "NO",      "NOT",    "NULL",  "ON",       "OR",          "ORDER", "RIGHT",
    "SELECT", "SET",  "TRUE",  "UNION",   "VALUES", "WHERE", "XOR",      "YES"};
static_assert(std::is_sorted(reserved.begin(), reserved.end(),
                             [](std::string_view a, std::string_view b) { return a < b; }));

std::string upperWord(std::string_view word) {
  std::string upper(word);
  std::transform(upper.begin(), upper.end(), upper.begin(), upperAscii);
  return upper;
}

}  // namespace

bool Token::isWord(std::string_view upper) const {
  return kind == TokenKind::word && std::equal(raw.begin(), raw.end(), upper.begin(), upper.end(),
                                               [](char a, char b) { return upperAscii(a) == b; });
}

bool isReserved(std::string_view word) {
  return std::binary_search(reserved.begin(), reserved.end(), upperWord(word),
                            [](std::string_view a, std::string_view b) { return a < b; });
}

bool isPlainName(std::string_view name) {
  return !name.empty() && startsWord(name.front()) && std::all_of(name.begin(), name.end(), continuesWord) &&
         !isReserved(name);
}

std::vector<Token> tokenize(std::string_view text) {
  if (text.size() > maxStatementBytes)
    throw Error(errors::syntax, "Syntax error: the statement is longer than 1 MiB.");
  if (!base::isUtf8(text))
    throw Error(errors::syntax, "Syntax error: the statement is not valid UTF-8 text.");
  if (const auto nul = text.find('\0'); nul != std::string_view::npos)
    syntaxError(text, Place{static_cast<std::uint32_t>(nul)}, "The statement holds a NUL character");
  return Lexer(text).run();
}

void syntaxError(std::string_view text, Place place, std::string_view message) {
  constexpr std::size_t shownCharacters = 30;
  const std::string_view before = text.substr(0, place.offset);
  const auto line = 1 + std::count(before.begin(), before.end(), '\n');
  const std::size_t lineStart = before.rfind('\n') == std::string_view::npos ? 0 : before.rfind('\n') + 1;
  const std::size_t column = 1 + base::length(before.substr(lineStart));

  std::string_view rest = text.substr(place.offset);
  std::string near;
  if (rest.empty()) {
    near = "at the end";
  } else {
    std::size_t end = 0;
    while (end < rest.size() && continuesWord(rest[end])) ++end;
    if (end == 0) end = std::min(rest.find_first_of(" \t\r\n", 1), rest.size());
    near = "near '" +
           base::left(rest.substr(0, std::min<std::size_t>(end, 4 * shownCharacters)), shownCharacters) + "'";
  }
  throw Error(errors::syntax, "Syntax error: " + std::string(message) + " (line " + std::to_string(line) +
                                  ", column " + std::to_string(column) + ", " + near + ").");
}

}  // namespace engine::sql
