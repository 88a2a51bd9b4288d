#include "tests/unit/standins/ado/dialect/mangled_statement.h"

#include <array>
#include <regex>
#include <utility>

namespace tallyra::tests::dialect {
namespace {

constexpr auto junk_texts = std::to_array<std::string_view>(
    {"'",    "\"",     "[",         "]",      "`",       "(",         ")",      ",",          ".",     ";",
     "--",   "/*",     "*/",        "#",      "##",      "''",        "'a'",    "[a]",        "\"a\"", "5",
     "1.5",  "x",      "=",         "<",      "+",       "-",         "||",     " ",          "\n",    "?",
     "@",    ":a",     " Select ",  " From ", " Where ", " And ",     " Or ",   " Not ",      " As ",  "In",
     "Max",  "Values", " Union ",   " Set ",  " Case ",  " When ",    " Then ", " Order By ", " Is ",  "On",
     "Into", " Like ", " Between ", " Null ", " Join ",  " Group By "});

}  // namespace

MangledStatement::Piece MangledStatement::date(std::string_view text) {
  return {'#' + std::string(text) + '#', " 45382.5 "};
}

MangledStatement::MangledStatement(std::string_view statement) {
  // One sign each for what is one piece.
  static const std::pair<std::regex, Piece> wholes[] = {
      {std::regex("^top \\d+ ", std::regex::icase), {"", "All "}},
      {std::regex("^delete \\*", std::regex::icase), {"", "Delete "}},
      {std::regex("^delete STKTRANDT\\.\\*", std::regex::icase), {"", "Select STKTRANDT.*"}},
      {std::regex("^#[^#]*#"), {"", " 45382.5 "}},
      {std::regex("^[A-Za-z0-9_]+"), {"", ""}},
      {std::regex("^[^A-Za-z0-9_]"), {"", ""}},
  };
  while (!statement.empty()) {
    for (const auto& [pattern, piece] : wholes) {
      std::cmatch match;
      if (!std::regex_search(statement.data(), statement.data() + statement.size(), match, pattern)) continue;
      const std::string sent = match.str();
      statement.remove_prefix(sent.size());
      pieces_.push_back({sent, piece.engine.empty() ? sent : piece.engine});
      break;
    }
  }
}

MangledStatement::Piece MangledStatement::junk(std::mt19937& random) {
  switch (random() % 8) {
    case 0: return date("2024/3/31");
    case 1: return {"Top (5)", "All "};
    default: {
      const std::string text(junk_texts[random() % junk_texts.size()]);
      return {text, text};
    }
  }
}

void MangledStatement::mangle(std::mt19937& random) {
  for (auto left = 1 + random() % 3; left > 0; --left) mangle_once(random);
}

void MangledStatement::mangle_once(std::mt19937& random) {
  if (pieces_.empty()) return;
  const std::size_t at = random() % pieces_.size();
  const auto piece = pieces_.begin() + static_cast<std::ptrdiff_t>(at);
  const Piece whole = *piece;
  switch (random() % 8) {
    case 0:
    case 1: pieces_.erase(piece); break;
    case 2: pieces_.insert(piece, whole); break;
    case 3: std::swap(pieces_[at], pieces_[random() % pieces_.size()]); break;
    case 4: *piece = junk(random); break;
    case 5: pieces_.erase(piece, pieces_.end()); break;
    default: pieces_.insert(piece, junk(random)); break;
  }
}

std::string MangledStatement::as_sent() const {
  std::string text;
  for (const Piece& piece : pieces_) text += piece.sent;
  return text;
}

std::string MangledStatement::for_engine() const {
  std::string text;
  for (const Piece& piece : pieces_) text += piece.engine;
  return text;
}

}  // namespace tallyra::tests::dialect
