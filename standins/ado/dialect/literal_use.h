#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "standins/ado/dialect/findings.h"
#include "standins/ado/dialect/literal_scan.h"
#include "standins/ado/dialect/token.h"

namespace tallyra::standins::ado::dialect {

// Whether a statement means the same when one of its values is given apart from it.
struct LiteralUse {
  enum class Place : std::uint8_t {
    fixed,   // no: the value is part of the statement, may be part of an expression or count rows or columns
    stored,  // yes: it is the whole value of a column, in VALUES or in SET
    compared,  // as a text or date that a WHERE or ON compares with a column. A number is not: the engine may
               // plan by its size
  };
  enum class Text : std::uint8_t { unknown, plain, date };

  Place place = Place::fixed;
  // What the column makes of a text there; known once a text has stood there.
  Text text = Text::unknown;
};

// The uses of `literals`, found by `scan_literals` in the text that `tokens` cut and `findings` describe; one
// each, in their order.
void find_literal_uses(const Tokens& tokens, const Findings& findings, const std::vector<Literal>& literals,
                       std::vector<LiteralUse>& uses);

// Whether a value of the kind can be given apart where it is used so.
inline bool can_be_apart(Literal::Kind kind, const LiteralUse& use) {
  const bool text_or_date = kind == Literal::Kind::text || kind == Literal::Kind::date;
  return use.place == LiteralUse::Place::stored || (use.place == LiteralUse::Place::compared && text_or_date);
}

}  // namespace tallyra::standins::ado::dialect
