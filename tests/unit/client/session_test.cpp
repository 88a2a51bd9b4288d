#include "client/session.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "client/file_path.h"
#include "tests/support/test_folder.h"
#include "tests/unit/client/scripted_object.h"
#include "tests/unit/client/usage_error_text.h"

namespace tallyra::client {
namespace {

// A file that is there for as long as this lives. Its path has no drive, so the driver takes it as it is.
class FileOnDisk {
 public:
  explicit FileOnDisk(const std::string& name) : text_(folder_.file(name)) {
    std::ofstream(file_path(text_)) << "x";
  }

  const std::string& text() const { return text_; }

 private:
  const tests::TestFolder folder_;
  std::string text_;
};

TEST(ConnectionString, IsTakenAsItIsWhenItBeginsWithAKeyword) {
  for (const char* text : {"DSN=stock", "DRIVER={SQLite3};Database=:memory:", "Provider=MSDASQL;DSN=stock",
                           "Data Source=x", "Unknown=x;DSN=stock"})
    EXPECT_EQ(connection_string_for(text), text);
}

TEST(ConnectionString, IsMadeFromThePathOfAFile) {
  for (const char* name : {"client stock.db", "client=stock.db", "仓库.db"}) {
    const FileOnDisk file(name);
    EXPECT_EQ(connection_string_for(file.text()), "DRIVER={SQLite3};Database=" + file.text());
  }
}

// The name of a file may look like the beginning of a connection string.
TEST(ConnectionString, IsMadeFromANameWithAnEqualsSign) {
  const FileOnDisk file("a=b.db");
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(file_path(file.text()).parent_path());
  EXPECT_EQ(connection_string_for("a=b.db"), "DRIVER={SQLite3};Database=a=b.db");
  EXPECT_EQ(usage_error_text([] { connection_string_for("p=q.db"); }).substr(0, 28),
            "--db 'p=q.db': no such file;");
  EXPECT_EQ(connection_string_for("p=q.db", "--db", MissingFile::allowed),
            "DRIVER={SQLite3};Database=p=q.db");
  std::filesystem::current_path(before);
}

TEST(ConnectionString, OfAFileThatIsNotThereIsWrongUsage) {
  const std::string path = testing::TempDir() + "no_such_stock.db";
  EXPECT_EQ(usage_error_text([&] { connection_string_for(path); }),
            "--db '" + path +
                "': no such file; give the path of an SQLite file or a connection string such as "
                "'DRIVER={SQLite3};Database=stock.db'; 'init' makes a new database");
  EXPECT_FALSE(std::filesystem::exists(path));
  EXPECT_THROW(connection_string_for(testing::TempDir()), UsageError);
  EXPECT_THROW(connection_string_for(""), UsageError);
}

TEST(ConnectionString, CannotHoldAPathWithItsOwnSeparators) {
  const FileOnDisk file("client;stock.db");
  EXPECT_EQ(usage_error_text([&] { connection_string_for(file.text()); }),
            "--db '" + file.text() + "': the path of a database file cannot have ';', '{' or '}' in it");
}

class SessionOfAnObject : public testing::Test {
 protected:
  ScriptedObject::Log log_;
  Session session_;
};

TEST_F(SessionOfAnObject, IsSetInAFixedOrder) {
  auto* scripted = new ScriptedObject(log_);
  const automation::Object object(scripted);
  scripted->session_properties();
  session_ = {
      .connection_string = "DSN=x", .user = "ANNA", .language = "zh-CN", .database_kind = "MSSQLSERVER"};
  set_session(object, "X.Y", session_);
  EXPECT_EQ(log_, (ScriptedObject::Log{"put ConnectionString DSN=x", "put UserID ANNA", "put Language zh-CN",
                                       "put SystemDatabase MSSQLSERVER"}));
}

TEST_F(SessionOfAnObject, LeavesWhatWasNotGivenExceptTheDatabaseKind) {
  auto* scripted = new ScriptedObject(log_);
  const automation::Object object(scripted);
  scripted->session_properties();
  set_session(object, "X.Y", session_);
  EXPECT_EQ(log_, (ScriptedObject::Log{"put SystemDatabase MSACCESS"}));
}

TEST_F(SessionOfAnObject, WithoutAPropertyTakesNoOptionForIt) {
  auto* scripted = new ScriptedObject(log_);
  const automation::Object object(scripted);
  scripted->writable("Language");
  session_.language = "en";
  set_session(object, "Lexbank.ErrMsg", session_);
  EXPECT_EQ(log_, (ScriptedObject::Log{"put Language en"}));

  session_.user = "ANNA";
  EXPECT_EQ(usage_error_text([&] { set_session(object, "Lexbank.ErrMsg", session_); }),
            "Lexbank.ErrMsg has no property UserID: leave --user out");
  session_.user.reset();
  session_.kind_given = true;
  EXPECT_EQ(usage_error_text([&] { set_session(object, "Lexbank.ErrMsg", session_); }),
            "Lexbank.ErrMsg has no property SystemDatabase: leave --kind out");
}

}  // namespace
}  // namespace tallyra::client
