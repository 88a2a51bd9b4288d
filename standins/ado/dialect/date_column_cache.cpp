#include "standins/ado/dialect/date_column_cache.h"

#include <cstddef>

namespace tallyra::standins::ado::dialect {
namespace {

// Statements with made-up names must not grow the cache for ever.
constexpr std::size_t most_answers = 4096;

void append_upper(std::string& key, std::string_view name) {
  for (const char c : name) key += c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}

}  // namespace

bool DateColumnCache::is_date(std::string_view table, std::string_view column) {
  key_.clear();
  append_upper(key_, table);
  key_ += '\0';
  append_upper(key_, column);
  if (const auto known = answers_.find(key_); known != answers_.end()) return known->second;
  const bool answer = columns_.is_date(table, column);
  if (answers_.size() >= most_answers) answers_.clear();
  answers_.emplace(key_, answer);
  return answer;
}

}  // namespace tallyra::standins::ado::dialect
