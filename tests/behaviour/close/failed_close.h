#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tests/behaviour/close/closing_company.h"

namespace tallyra::behaviour {

// January is closed and approved, February is to be closed and comes to grief.
class FailedClose : public testing::Test {
 protected:
  FailedClose();

  stage::Outcome close() const { return company.close("2024/02/29"); }
  stage::Outcome remove() const { return company.remove("2024/02/29"); }
  // What February's close has left: documents of departments, of the company, its record.
  std::string left() const;
  // Where a record stands, deletes the close and runs it again; where none stands, runs it again. Nothing can
  // be told afterwards from a close that nothing has disturbed, and January is as it was; then February is
  // open again.
  void expect_mended() const;

  const ClosingCompany company;

 private:
  std::string documents() const;
  bool has_record() const;

  std::string before_;
  std::string undisturbed_;
};

// Which calls of a close left what: a line for each change, with the first call of those that left it.
class StepTable {
 public:
  void add(int step, const std::string& call, const std::string& state);
  const std::string& text() const { return text_; }

 private:
  std::string text_;
  std::string last_;
};

}  // namespace tallyra::behaviour
