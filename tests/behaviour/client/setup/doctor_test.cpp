#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

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

TEST_F(Doctor, AdvisesCommandsThatCanBePasted) {
  client_.environment["TALLYRA_DB"] = company_.connection_string();
  look({"--user", "ANN SMITH"});
  EXPECT_TRUE(says("\n    tallyra-client grant 'ANN SMITH' '*' all\n")) << client_.out();
  client_.show_in(60);
  const std::string db = company_.connection_string();
  look({"--user", "NOBODY", "--db", db});
  // Within quotes a shell takes a quote for their end.
  const std::string quoted = std::regex_replace(db, std::regex("'"), "'\\''");
  EXPECT_TRUE(says("\n    tallyra-client grant NOBODY '*' all --db '" + quoted + "'\n")) << client_.out();
}

TEST_F(Doctor, TellsWhetherADocumentCouldGetANumber) {
  const auto look_at_all = [&] {
    return look({"--user", "ADMIN", "--csv", "--db", company_.connection_string()});
  };
  if (!company_.is_sqlite()) {
    EXPECT_EQ(look_at_all(), exit_done) << client_.all();
    EXPECT_TRUE(says("\ngood,document numbers,the counters in table TABLEKEYS can be read and written,"))
        << client_.out();
    company_.run({"DROP TABLE TABLEKEYS"});
    EXPECT_EQ(look_at_all(), exit_failed);
    EXPECT_TRUE(says("\ndoubtful,document numbers,")) << client_.out();
    return;
  }
  const std::string counters = company_.file().string() + ".keys";
  EXPECT_EQ(look_at_all(), exit_done) << client_.all();
  EXPECT_TRUE(says("\ngood,document numbers,the first one makes the counters in " + counters))
      << client_.out();
  EXPECT_FALSE(std::filesystem::exists(counters)) << "it only looks";
  std::filesystem::create_directory(counters);
  EXPECT_EQ(look_at_all(), exit_failed);
  EXPECT_TRUE(says("\nBAD,document numbers," + counters + " is a folder")) << client_.out();
  std::filesystem::remove(counters);
  std::filesystem::create_symlink("elsewhere", counters);
  EXPECT_EQ(look_at_all(), exit_failed);
  EXPECT_TRUE(says(counters + " is a symbolic link")) << client_.out();
  std::filesystem::remove(counters);
  std::ofstream(counters) << "this is a letter, no database, and long enough to be looked into by the engine";
  EXPECT_EQ(look_at_all(), exit_failed);
  EXPECT_TRUE(says("\nBAD,document numbers," + counters + ": error ")) << client_.out();
}

TEST_F(Doctor, UsesNoNumberUp) {
  if (!company_.is_sqlite()) GTEST_SKIP() << "no file";
  const std::string counters = company_.file().string() + ".keys";
  const auto sql = "DRIVER={SQLite3};NoCreat=0;Database=" + counters;
  {
    const Reader writer(sql, "MSACCESS");
    writer.execute("Create Table TABLEKEYS(SERIES varchar(40) Not Null Primary Key,LASTNO integer Not Null)");
    writer.execute("Insert Into TABLEKEYS(SERIES,LASTNO) Values('S',7)");
  }
  EXPECT_EQ(look({"--user", "ADMIN", "--csv", "--db", company_.connection_string()}), exit_done)
      << client_.all();
  EXPECT_TRUE(says("\ngood,document numbers,the counters in " + counters + " can be read and written,"))
      << client_.out();
  EXPECT_EQ(Reader(sql, "MSACCESS").count("Select LASTNO As N From TABLEKEYS"), 7);
}

TEST_F(Doctor, AdvisesNothingThatWouldBeRefused) {
  EXPECT_EQ(look({"--user", "x'y", "--csv", "--db", company_.connection_string()}), exit_failed);
  EXPECT_TRUE(says("BAD,rights of x'y,a user's name cannot have an apostrophe")) << client_.out();
  EXPECT_FALSE(says("tallyra-client grant")) << client_.out();
  client_.run(
      {"CRevAddr", "Insert", "A1", "ADDRNO=A1", "--user", "x'y", "--db", company_.connection_string()});
  EXPECT_FALSE(says("tallyra-client grant")) << client_.all();
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
  client_.environment["TALLYRA_DB"] = company_.connection_string();
  for (const std::size_t columns : {60U, 80U}) {
    client_.show_in(columns);
    EXPECT_EQ(look({"--user", "NOBODY"}), exit_failed);
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
