#pragma once

#include <cstdint>
#include <string_view>

namespace tallyra::standins::ado::dialect {

// The words that decide where a clause begins or ends. Every other word is a name.
enum class Keyword : std::uint8_t {
  none,
  all,
  alter,
  and_,
  as,
  between,
  by,
  case_,
  create,
  cross,
  default_,
  delete_,
  distinct,
  distinctrow,
  drop,
  else_,
  end,
  except,
  from,
  full,
  group,
  having,
  in,
  indexed,
  inner,
  insert,
  intersect,
  into,
  is,
  join,
  left,
  like,
  limit,
  natural,
  not_,
  offset,
  on,
  or_,
  order,
  outer,
  percent,
  returning,
  right,
  select,
  set,
  then,
  ties,
  top,
  union_,
  update,
  using_,
  values,
  when,
  where,
  window,
  with,
};

// Case does not matter.
Keyword keyword_of(std::string_view word);

// ASCII case does not matter; other characters compare byte by byte, as SQLite compares names.
bool same_name(std::string_view left, std::string_view right);

}  // namespace tallyra::standins::ado::dialect
