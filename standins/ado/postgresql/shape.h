#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tallyra::standins::ado {

// How a literal is written, which is what its type follows from.
enum class LiteralKind : char {
  text = 't',     // 'text': of whatever type its place wants
  integer = 'i',  // up to nine digits, perhaps with a minus sign
  decimal = 'd',  // with a point or an exponent
};

// What a statement leaves to be done again when the transaction goes back to where it was before it.
enum class Repeat : std::uint8_t {
  by_its_text,  // a row of given values
  nothing,      // a query that changes nothing
  unknown,      // anything else
};

// A statement of which the plain literals are taken out: texts that differ in nothing else have one shape.
// Literals that stand for a whole value are plain, in VALUES and beside a comparison with a column; others
// stay, because their being literals may matter to the server.
class Shape {
 public:
  // Takes the place of what was there. False when the text is none that is worth a shape or none that is
  // surely understood; `repeat` holds all the same.
  bool read(std::string_view sql);

  // With $1, $2, ... for the literals.
  const std::string& text() const { return text_; }
  const std::vector<LiteralKind>& kinds() const { return kinds_; }
  // One pointer per literal to its value, without quotes. Valid until the next `read`.
  const std::vector<const char*>& values() const { return values_; }
  // The text with the kinds: what makes the shape.
  const std::string& key() const { return key_; }
  Repeat repeat() const { return repeat_; }

 private:
  friend class ShapeScanner;

  std::string text_;
  std::string key_;
  std::vector<LiteralKind> kinds_;
  std::string data_;
  std::vector<std::size_t> begins_;  // in `data_`
  std::vector<const char*> values_;
  Repeat repeat_ = Repeat::unknown;
};

}  // namespace tallyra::standins::ado
