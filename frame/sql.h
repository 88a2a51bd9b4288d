#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include "automation/convert.h"

namespace tallyra::frame {

// The text of a statement with a hole "{}" for each value; a call with more or fewer values does not compile.
template <std::size_t Holes>
struct SqlText {
  std::string_view text;
  std::array<std::size_t, Holes + 1> holes{};

  consteval SqlText(const char* literal) : text(literal) {
    std::size_t count = 0;
    for (std::size_t at = text.find("{}"); at != std::string_view::npos; at = text.find("{}", at + 2)) {
      if (count == Holes) throw "the statement has more holes than values are given";
      holes[count++] = at;
    }
    if (count != Holes) throw "the statement has fewer holes than values are given";
    holes[Holes] = text.size();
  }
};

namespace detail {

inline void append_piece(std::string& out, std::string_view piece) {
  out += piece;
}
void append_piece(std::string& out, std::int32_t number);
void append_piece(std::string& out, double number);
void append_piece(std::string& out, const std::same_as<automation::Value> auto& value) {
  automation::append_concatenated(out, value);
}
// A number of another width would be a mistake about its text.
void append_piece(std::string& out, std::floating_point auto) = delete;

}  // namespace detail

// Appends the statement with the values in the holes, as they stand: nothing is quoted or escaped here.
template <class... Pieces>
void append_sql(std::string& out, std::type_identity_t<SqlText<sizeof...(Pieces)>> statement,
                const Pieces&... pieces) {
  const char* text = statement.text.data();
  out.append(text, statement.holes[0]);
  [[maybe_unused]] std::size_t hole = 0;
  [[maybe_unused]] const auto fill = [&](const auto& piece) {
    detail::append_piece(out, piece);
    const std::size_t from = statement.holes[hole] + 2;
    out.append(text + from, statement.holes[++hole] - from);
  };
  (fill(pieces), ...);
}

template <class... Pieces>
std::string sql(std::type_identity_t<SqlText<sizeof...(Pieces)>> statement, const Pieces&... pieces) {
  std::string out;
  append_sql(out, statement, pieces...);
  return out;
}

// What a value is in the hole of a statement: Null is no text at all.
std::string text_of(const automation::Value& value);

}  // namespace tallyra::frame
