#include "frame/sql.h"

#include "automation/number_text.h"

namespace tallyra::frame::detail {

void append_piece(std::string& out, std::int32_t number) {
  out += std::to_string(number);
}

void append_piece(std::string& out, double number) {
  automation::append_number(out, number);
}

}  // namespace tallyra::frame::detail
