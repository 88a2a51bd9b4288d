#include "frame/sql.h"

#include "automation/number_text.h"

namespace tallyra::frame {
namespace detail {

void append_piece(std::string& out, std::int32_t number) {
  out += std::to_string(number);
}

void append_piece(std::string& out, double number) {
  automation::append_number(out, number);
}

}  // namespace detail

std::string text_of(const automation::Value& value) {
  std::string text;
  automation::append_concatenated(text, value);
  return text;
}

}  // namespace tallyra::frame
