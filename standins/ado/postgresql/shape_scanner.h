#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "standins/ado/postgresql/shape.h"

namespace tallyra::standins::ado {

// One pass over a text that makes its shape.
class ShapeScanner {
 public:
  ShapeScanner(std::string_view sql, Shape& shape) : sql_(sql), shape_(shape) {}

  // False for a text with something that is not surely understood: a comment, an escape, a parameter.
  bool scan();

  // Whether the server should see only the shape. Not of a query that groups: it reads much, and its way is
  // worth looking for with the values at hand.
  bool is_worth_a_shape() const { return verb_ != Verb::other && !groups_; }
  Repeat repeat() const;

 private:
  enum class Verb : std::uint8_t { other, insert, select, update, delete_ };
  // What the token before was.
  enum class Before : std::uint8_t { other, name, comparison, value_place };

  bool text();
  bool number();
  bool word();
  bool name();
  bool punctuation();
  bool comparison();
  void follow_word(std::string_view word);
  bool is_value_place() const;
  bool ends_value(std::size_t from) const;
  void bind(std::size_t begin, LiteralKind kind);
  void leave(std::size_t begin);
  char at(std::size_t index) const { return index < sql_.size() ? sql_[index] : '\0'; }
  std::size_t skip_blanks(std::size_t from) const;

  std::string_view sql_;
  Shape& shape_;
  std::size_t here_ = 0;
  std::size_t copied_ = 0;  // up to here the text is in the shape
  Verb verb_ = Verb::other;
  Before before_ = Before::other;
  bool first_word_ = true;
  bool in_values_ = false;  // behind VALUES
  int depth_ = 0;
  int rows_ = 0;
  bool groups_ = false;
  bool plain_ = true;  // every value of the row is a literal
  bool pure_ = true;   // calls nothing that may change anything, and locks nothing
};

}  // namespace tallyra::standins::ado
