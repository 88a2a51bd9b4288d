#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tallyra::standins::ado::dialect {

// A value that a statement spells out.
struct Literal {
  enum class Kind : std::uint8_t {
    text,     // 'it''s'
    integer,  // 12, and -12 where a value begins
    real,     // 1.5, .5, 1e-7, with a sign as above
    null,     // Null where a value begins
    date,     // #2024/3/31#
  };
  std::size_t begin;  // byte offsets into the text, quotes and sign included
  std::size_t end;
  Kind kind;
};

// A text without its values. Texts with the same form differ in nothing else; not every value is one that can
// be given apart, see `LiteralUse`.
struct StatementForm {
  std::string form;  // with the character \x01 in place of each value
  std::vector<Literal> literals;
};

// Takes the values out of `sql` in one pass, reusing the storage of `form`. False for a text that is no
// SELECT, INSERT, UPDATE or DELETE, that is long apart from its values, or that has something in it that the
// pass does not read: comments, names between delimiters, parameters, several statements, blobs, hexadecimal
// numbers and the like. Where it says true it cuts the text as `tokenize` does.
bool scan_literals(std::string_view sql, StatementForm& form);

}  // namespace tallyra::standins::ado::dialect
