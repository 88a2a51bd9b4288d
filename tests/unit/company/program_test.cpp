#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <string>

#include "tests/unit/company/copied_company.h"

// tallyra-company as a person runs it.
namespace {

using tallyra::tests::generated_company::CopiedCompany;

struct Ended {
  int status;
  std::string text;  // of both outputs
};

Ended run(const std::string& arguments) {
  const std::string command = "\"" TALLYRA_COMPANY "\" " + arguments + " 2>&1";
  std::FILE* const output = ::popen(command.c_str(), "r");
  Ended ended{-1, {}};
  std::array<char, 4096> part;
  while (std::fgets(part.data(), static_cast<int>(part.size()), output)) ended.text += part.data();
  const int status = ::pclose(output);
  if (WIFEXITED(status)) ended.status = WEXITSTATUS(status);
  return ended;
}

TEST(CompanyProgram, CreatesTablesAndSaysSo) {
  const CopiedCompany folder;
  const std::string arguments = "--schema-only --db " + folder.file("new.db");
  const Ended created = run(arguments);
  EXPECT_EQ(created.status, 0);
  EXPECT_EQ(created.text, "created version 2 with 29 tables and indexes\n");
  EXPECT_EQ(run(arguments).text, "is version 2; nothing was missing\n");
}

TEST(CompanyProgram, CopiesADatabaseAndTellsItsRows) {
  const CopiedCompany source;
  const Ended copied = run("--copy " + source.path() + " " + source.file("target.db"));
  EXPECT_EQ(copied.status, 0);
  EXPECT_NE(copied.text.find("PARTS                   2\n"), std::string::npos) << copied.text;
  EXPECT_NE(copied.text.find("TABLEKEYS               2\n"), std::string::npos) << copied.text;
  EXPECT_TRUE(copied.text.ends_with("\ncopied, compared row by row, the same\n")) << copied.text;
  // Progress is for a person who watches.
  EXPECT_EQ(copied.text.find('\r'), std::string::npos) << copied.text;
}

TEST(CompanyProgram, ARefusalIsOneLineAndStatusOne) {
  const CopiedCompany source;
  const Ended refused = run("--copy " + source.path() + " " + source.path());
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.text, "tallyra-company: '" + source.path() + "' cannot be copied into itself\n");
}

TEST(CompanyProgram, WhatDoesNotGoTogetherIsRefused) {
  const CopiedCompany source;
  for (const std::string arguments :
       {"", "--copy a.db", "--schema-only", "--copy a.db b.db --db c.db", "--copy a.db b.db --schema-only"}) {
    const Ended refused = run(arguments);
    EXPECT_GT(refused.status, 1) << arguments << "\n" << refused.text;
  }
}

}  // namespace
