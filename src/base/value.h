#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "base/datetime.h"

namespace base {

/// One field's content: Null, truth, whole number, fraction, date or text (UTF-8).
/// Null is never an empty text: many rules tell the two apart.
class Value {
 public:
  enum class Kind { null, boolean, integer, real, date, text };

  Value() = default;
  Value(bool v) : data_(v) {}                                    // NOLINT(google-explicit-constructor)
  Value(int v) : data_(std::int64_t{v}) {}                       // NOLINT(google-explicit-constructor)
  Value(std::int64_t v) : data_(v) {}                            // NOLINT(google-explicit-constructor)
  Value(double v) : data_(v) {}                                  // NOLINT(google-explicit-constructor)
  Value(DateTime v) : data_(v) {}                                // NOLINT(google-explicit-constructor)
  Value(std::string v) : data_(std::move(v)) {}                  // NOLINT(google-explicit-constructor)
  Value(std::string_view v) : data_(std::string(v)) {}           // NOLINT(google-explicit-constructor)
  Value(const char* v) : data_(std::string(v)) {}                // NOLINT(google-explicit-constructor)

  Kind kind() const { return static_cast<Kind>(data_.index()); }
  bool isNull() const { return kind() == Kind::null; }
  bool isText() const { return kind() == Kind::text; }

  /// The content as another type. Text is read as the dialect reads it ("12", "-1"); a truth is -1 or 0.
  /// Throws Error 94 for Null and 13 for a text that is no number, 6 where it does not fit.
  std::int64_t asInteger() const;
  double asReal() const;
  bool asBoolean() const;
  /// A date, or a text in one of the forms that DateTime::fromText reads.
  DateTime asDate() const;
  /// Text for people and for joining: numbers in decimal, truths as -1 and 0, dates as "dd.mm.yyyy hh:mm:ss".
  /// Throws Error 94 for Null.
  std::string asText() const;
  /// As asText, with Null as the empty text: what the operator & does.
  std::string textOrEmpty() const;
  /// The text itself, without a copy; only for Kind::text.
  const std::string& text() const { return std::get<std::string>(data_); }

  /// Same kind and same content (no collation, Null equals Null): for tests and containers.
  friend bool operator==(const Value&, const Value&) = default;

 private:
  std::variant<std::monostate, bool, std::int64_t, double, DateTime, std::string> data_;
};

}  // namespace base
