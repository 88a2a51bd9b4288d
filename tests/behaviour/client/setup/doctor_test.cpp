#include <gtest/gtest.h>

#include "client/database/reader.h"
#include "client/display_width.h"
#include "tests/support/client_program.h"
#include "tests/support/company_database.h"

// What the doctor says of a database that is well, and of one that is not.
namespace tallyra::client {
namespace {

class Doctor : public testing::Test {
 protected:
  ExitStatus look(std::vector<std::string> words) {
    words.insert(words.begin(), "doctor");
    return client_.run(std::move(words));
  }
  ExitStatus look_impatiently() {
    return look({"--user", "ADMIN", "--csv", "--db",
                 "DRIVER={SQLite3};Timeout=50;Database=" + company_.file().string()});
  }
  bool says(const std::string& text) const { return client_.all().find(text) != std::string::npos; }

  behaviour::CompanyDatabase company_;
  ClientProgram client_;
};

TEST_F(Doctor, HasWhoeverFindsALockWaitForIt) {
  if (!company_.is_sqlite()) GTEST_SKIP() << "there who reads waits for nobody who writes";
  const Reader other(company_.connection_string(), "MSACCESS");
  other.execute("PRAGMA journal_mode=DELETE");
  for (const char* lock : {"BEGIN EXCLUSIVE", "BEGIN IMMEDIATE"}) {
    other.execute(lock);
    EXPECT_EQ(look_impatiently(), exit_failed);
    EXPECT_TRUE(says("database is locked,")) << client_.out();
    EXPECT_TRUE(says("wait until the one who holds the lock has ended ('status' tells who")) << client_.out();
    EXPECT_FALSE(says("backup")) << client_.out();
    other.execute("ROLLBACK");
  }
}

// The words of a text, whatever blanks and line ends are between them.
std::string words_of(const std::string& text) {
  std::istringstream in(text);
  std::string words;
  for (std::string word; in >> word;) words.append(words.empty() ? "" : " ").append(word);
  return words;
}

TEST_F(Doctor, LosesNoWordOnATerminal) {
  company_.run({"DROP TABLE REVADDR", "ALTER TABLE STKTRANDT DROP COLUMN VQTY"});
  for (const std::size_t columns : {60U, 80U}) {
    client_.show_in(columns);
    EXPECT_EQ(look({"--user", "NOBODY", "--db", company_.connection_string()}), exit_failed);
    EXPECT_EQ(client_.out().find("…"), std::string::npos) << client_.out();
    EXPECT_NE(words_of(client_.out()).find("table REVADDR: 'upgrade' adds it; 'init' in an empty database"),
              std::string::npos)
        << client_.out();
    std::istringstream lines(client_.out());
    for (std::string line; std::getline(lines, line);) EXPECT_LE(display_width(line), columns) << line;
  }
}

}  // namespace
}  // namespace tallyra::client
