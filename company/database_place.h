#pragma once

#include <string>
#include <string_view>

namespace tallyra::company {

// Whether a text is a connection string: one begins with a keyword and '='. "./a=b.db" is a path.
bool is_connection_string(std::string_view text);

// Where a database is, as a person writes it: the path of an SQLite file, or a connection string of ADO,
// unless it is the name of a file that is there.
struct DatabasePlace {
  explicit DatabasePlace(const std::string& text);

  std::string connection_string;
  std::string file;  // of an SQLite database; empty for another engine, or when only a data source knows
};

// Sees to it that the file of an SQLite database is there: an empty file is an empty database. A file that it
// had to make goes again, with the files beside it, unless it is kept.
class PresentFile {
 public:
  // Throws Refusal when the file cannot be made. Does nothing for an empty name.
  explicit PresentFile(const std::string& file);
  ~PresentFile();
  PresentFile(const PresentFile&) = delete;
  PresentFile& operator=(const PresentFile&) = delete;

  void keep() { made_.clear(); }

 private:
  std::string made_;
};

}  // namespace tallyra::company
