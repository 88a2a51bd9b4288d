#pragma once

#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace tallyra::tests::dialect {

// A statement in pieces: words, single signs, and one piece for each thing that the engine does not
// understand by itself. Those have two spellings, the client's and one for the engine that may stand in the
// same places of a statement and in no others, so that the engine itself tells which damaged statements are
// malformed:
//
//   #2024/03/31#   a number, apart from its neighbours
//   Top 1          All
//   Delete *       Delete
//   Delete T.*     Select T.*
class MangledStatement {
 public:
  // Dates between # are one piece; in the SQL Server form they are pieces like any text.
  explicit MangledStatement(std::string_view statement);

  // Takes pieces away, doubles, swaps and replaces them, puts others in between, or cuts the rest off.
  void mangle(std::mt19937& random);

  std::string as_sent() const;
  std::string for_engine() const;

 private:
  struct Piece {
    std::string sent;
    std::string engine;
  };

  static Piece date(std::string_view text);
  static Piece junk(std::mt19937& random);
  void mangle_once(std::mt19937& random);

  std::vector<Piece> pieces_;
};

}  // namespace tallyra::tests::dialect
