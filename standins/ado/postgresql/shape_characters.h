#pragma once

#include "standins/ado/dialect/characters.h"

// Which characters a shape's scanner takes for what.
namespace tallyra::standins::ado {

using dialect::is_blank;
using dialect::is_digit;

// Not the sign before a parameter, which a plain word may contain as well.
inline bool is_name_byte(char c) {
  return c != '$' && dialect::is_name_byte(c);
}

}  // namespace tallyra::standins::ado
