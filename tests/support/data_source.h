#pragma once

#include <cstdlib>
#include <fstream>
#include <optional>
#include <random>
#include <string>

#include "tests/support/test_folder.h"

namespace tallyra::tests {

// An ODBC data source of the user, as long as it lives; one at a time. Its name is new each time, because the
// driver manager remembers what it has read. Under Wine the driver manager is a library of the machine, which
// sees only the environment that the process was started with: there the data sources are where ODBCINI
// already says.
class DataSource {
 public:
  // `keywords` are lines, "Driver=SQLite3\nDatabase=...\n".
  explicit DataSource(const std::string& keywords)
      : name_("tallyra-test-" + std::to_string(std::random_device()())) {
    std::ofstream(file()) << '[' << name_ << "]\n" << keywords;
  }
  ~DataSource() {
#ifndef _WIN32
    if (before_)
      ::setenv(variable, before_->c_str(), 1);
    else
      ::unsetenv(variable);
#endif
  }
  DataSource(const DataSource&) = delete;
  DataSource& operator=(const DataSource&) = delete;

  const std::string& name() const {
    return name_;
  }

 private:
  static constexpr const char* variable = "ODBCINI";

  std::string file() {
    const char* const set = std::getenv(variable);
#ifdef _WIN32
    return set ? set : "";
#else
    if (set) before_ = set;
    const std::string own = folder_.file("odbc.ini");
    ::setenv(variable, own.c_str(), 1);
    return own;
#endif
  }

  TestFolder folder_;
  std::optional<std::string> before_;
  std::string name_;
};

}  // namespace tallyra::tests
