#pragma once

#include <string>

namespace tallyra::company {

// The file in which a database grows before it takes its place; removed again unless put in place. The files
// beside a database (journal files of the engine, counted document numbers and their journal files) belong to
// it.
class GrowingFile {
 public:
  // Throws Refusal when the database or a file beside it exists and `replace` is false, or when the folder is
  // not there.
  GrowingFile(const std::string& database, bool replace);
  ~GrowingFile();
  GrowingFile(const GrowingFile&) = delete;
  GrowingFile& operator=(const GrowingFile&) = delete;

  const std::string& path() const { return growing_; }

  // Removes what is replaced and renames the file. The database must be closed.
  void put_in_place();

 private:
  std::string database_;
  std::string growing_;
};

// Removes a database with the files beside it, as far as that can be done.
void remove_database_quietly(const std::string& database) noexcept;

}  // namespace tallyra::company
