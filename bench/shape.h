#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tallyra::bench {

struct Literal {
  enum class Kind { text, integer, real } kind;
  std::size_t begin = 0;  // text: where it lies in Shape::texts, without its quotes
  std::size_t size = 0;
  std::int64_t integer = 0;
  double real = 0;
};

// What texts have in common that differ in plain literals only.
struct Shape {
  std::string sql;  // with "?" for each of the literals
  std::vector<Literal> literals;
  std::string texts;

  std::string_view text(const Literal& literal) const {
    return std::string_view(texts).substr(literal.begin, literal.size);
  }
};

// Finds the shape of one text after the other, in room that is used again. What is bound is every literal
// among VALUES, and elsewhere one that directly follows a comparison or an assignment; there an empty text
// stays as it is, because SQLite recognises a partial index by it. A text with a comment or with "?" of its
// own, or one that neither reads nor changes rows, is its own shape.
class ShapeReader {
 public:
  // Valid until the next call.
  const Shape& read(std::string_view sql);

 private:
  bool copy_quoted_name();
  void read_text();
  bool read_number();
  void copy_word();
  void copy_character();
  bool is_wanted() const;

  std::string_view sql_;
  std::size_t position_ = 0;
  char before_ = ' ';  // the last character that is no blank
  bool among_values_ = false;
  Shape shape_;
};

}  // namespace tallyra::bench
