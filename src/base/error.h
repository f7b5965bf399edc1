#pragma once

#include <exception>
#include <string>

namespace base {

/// The one error of the program: a documented number and a text for people.
/// Thrown by the engine, the ports and the operations; caught where a command enters.
class Error : public std::exception {
 public:
  Error(int number, std::string text) : number_(number), text_(std::move(text)) {}

  int number() const { return number_; }
  const std::string& text() const { return text_; }
  const char* what() const noexcept override { return text_.c_str(); }

 private:
  int number_;
  std::string text_;
};

}  // namespace base
