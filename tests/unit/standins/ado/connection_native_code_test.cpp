#include <cstdlib>
#include <filesystem>

#include "tests/unit/standins/ado/odbc/plain_odbc.h"
#include "tests/unit/standins/ado/scratch_database.h"

// A real library that SQLite would load into this process stays out of it.
namespace tallyra::standins::ado::test {
namespace {

constexpr std::int32_t permission_denied = -2147217911;
const std::string library = TALLYRA_NATIVE_EXTENSION;

class NativeCodeTest : public ScratchDatabase {
 protected:
  NativeCodeTest() { setenv("TALLYRA_MARKER", marker().c_str(), 1); }
  ~NativeCodeTest() override { unsetenv("TALLYRA_MARKER"); }

  std::string marker() const { return path("marker"); }
  // Whether the library was loaded; asked again it says no.
  bool was_loaded() const { return std::filesystem::remove(marker()); }
};

TEST_F(NativeCodeTest, IsNotLoadedByAFunction) {
  const PlainOdbc plain(odbc_string());
  const Object connection = open_connection();
  for (const std::string function :
       {"load_extension", "LOAD_EXTENSION", "[Load_Extension]", "\"load_extension\"", "`load_extension`",
        "load_extension/*'*/", "load_extension--\n", "load_extension \v", "{fn load_extension"}) {
    const std::string sql =
        "select " + function + "('" + library + "')" + (function.starts_with("{") ? "}" : "");
    plain.run(sql);
    EXPECT_TRUE(was_loaded()) << "harmless, and so no test: " << sql;
    EXPECT_EQ(error_of([&] { execute(connection, sql); }), permission_denied) << sql;
    EXPECT_EQ(error_of([&] { open_recordset(connection, sql); }), permission_denied) << sql;
    EXPECT_FALSE(was_loaded()) << sql;
  }
}

TEST_F(NativeCodeTest, IsNotLoadedByTheConnectionString) {
  for (const std::string& keyword :
       {"LoadExt=" + library, "LOADEXT=" + library, "x={a;loadext=" + library + ";}"}) {
    const std::string text = connection_string() + ";" + keyword;
    { const PlainOdbc plain(odbc_string() + ";" + keyword); }
    EXPECT_TRUE(was_loaded()) << "harmless, and so no test: " << text;
    const Object connection = automation::create("ADODB.Connection");
    for (const std::string& way : {text, "Provider=MSDASQL;Extended Properties=\"" + text + "\""})
      EXPECT_EQ(error_of([&] { connection.call("Open", way); }), permission_denied) << way;
    EXPECT_FALSE(was_loaded()) << text;
  }
  const Object connection = automation::create("ADODB.Connection");
  EXPECT_EQ(error_of([&] { connection.call("Open", connection_string(), "a;LoadExt=" + library + ";"); }),
            permission_denied);
  EXPECT_FALSE(was_loaded());
}

}  // namespace
}  // namespace tallyra::standins::ado::test
