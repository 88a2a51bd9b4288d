#pragma once

#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "bench/scenario.h"

namespace tallyra::bench {

// A generated company of two months, of which the first is closed.
struct CompanySize {
  int departments;
  int parts;
  int lines;
};

// "5 x 200 x 5,000"
std::string text_of(const CompanySize& size);

// Companies on SQLite files. Each is made when it is first asked for and kept as it is, so that the scenarios
// of one size share the work of making it; what they do is done on copies.
class Companies {
 public:
  // The folder has to be there; the schema is the path of the create script.
  Companies(std::string folder, std::string schema);

  std::unique_ptr<Company> company(const CompanySize& size);
  // The same company after these statements, in one transaction, under a name that stands for them.
  std::unique_ptr<Company> changed(const CompanySize& size, const std::string& name,
                                   const std::vector<std::string>& statements);
  // The file that a company is copied from; nobody writes to it.
  std::filesystem::path original(const CompanySize& size);

 private:
  std::unique_ptr<Company> copies_of(const std::filesystem::path& original) const;

  std::filesystem::path folder_;
  std::string schema_;
  std::set<std::filesystem::path> made_;
};

}  // namespace tallyra::bench
