#pragma once

#include <chrono>
#include <cstdint>
#include <stdexcept>
#include <string>

namespace tallyra::company {

// What the caller of the generator can choose. The same options give the same database content on every
// machine.
struct Options {
  std::string database;  // path of the database file to create
  std::string schema;    // path of another create script than the built-in one; may be empty
  int departments = 6;
  int parts = 300;
  int lines = 20'000;  // exact number of stock movement lines
  int months = 3;
  std::chrono::year_month start{std::chrono::year{2024}, std::chrono::January};
  std::uint64_t seed = 1;
  bool replace = false;  // replace an existing database with its side files
};

inline constexpr int min_departments = 2, max_departments = 50;
inline constexpr int min_parts = 30, max_parts = 20'000;
inline constexpr int min_lines = 100, max_lines = 1'000'000;
inline constexpr int min_months = 1, max_months = 36;

// A reason to stop that the person at the keyboard can act on.
struct Refusal : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Reads "YYYY-MM"; throws Refusal for anything else.
std::chrono::year_month parse_month(const std::string& text);

}  // namespace tallyra::company
