#include "automation/convert.h"
#include "tests/support/data_source.h"
#include "tests/unit/standins/ado/scratch_database.h"

// What a connection says about what it leads to.
namespace tallyra::standins::ado::test {
namespace {

class PropertiesTest : public ScratchDatabase {};

Object property(const Object& connection, const Value& name_or_index) {
  return automation::to_object(connection.call("Properties", name_or_index));
}

std::string text(const Object& connection, std::string_view name) {
  return automation::to_text(property(connection, name).get("Value"));
}

TEST_F(PropertiesTest, TellTheEngineWhateverTheConnectionStringSays) {
  const tests::DataSource source("Driver=SQLite3\nDatabase=" + path("test.db") + "\nTimeout=700\n");
  for (const std::string& connection_string :
       {connection_string(), "DSN=" + source.name(), "Provider=MSDASQL;Data Source=" + source.name(),
        "Provider=MSDASQL;Extended Properties=\"DSN=" + source.name() + "\""}) {
    const Object connection = automation::create("ADODB.Connection");
    connection.call("Open", connection_string);
    EXPECT_EQ(text(connection, "DBMS Name"), "SQLite") << connection_string;
    EXPECT_EQ(text(connection, "Current Catalog"), path("test.db")) << connection_string;
    EXPECT_NE(text(connection, "DBMS Version"), "") << connection_string;
    EXPECT_NE(text(connection, "Driver Name"), "") << connection_string;
  }
}

TEST_F(PropertiesTest, TellWhatTheDataSourceGives) {
  const tests::DataSource source("Driver=SQLite3\nDatabase=" + path("test.db") + "\nTimeout=700\n");
  const Object connection = automation::create("ADODB.Connection");
  connection.call("Open", "DSN=" + source.name() + ";PWD=secret", "", "hidden");
  EXPECT_EQ(text(connection, "Data Source Name"), source.name());
  const std::string completed = text(connection, "Extended Properties");
  EXPECT_NE(completed.find("Timeout=700;"), std::string::npos) << completed;
  EXPECT_NE(completed.find("Database=" + path("test.db") + ";"), std::string::npos) << completed;
  EXPECT_EQ(completed.find("secret"), std::string::npos) << completed;
  EXPECT_EQ(completed.find("hidden"), std::string::npos) << completed;
}

TEST_F(PropertiesTest, AreACollectionOfObjectsThatCannotBeWritten) {
  const Object connection = open_connection();
  const Object properties = automation::to_object(connection.get("Properties"));
  const std::int32_t count = number(properties.get("Count"));
  ASSERT_GT(count, 0);
  for (std::int32_t i = 0; i < count; ++i) {
    const Object by_index = automation::to_object(properties.call("Item", i));
    const Object by_name = automation::to_object(properties.call("item", by_index.get("Name")));
    EXPECT_EQ(by_index.get("Value"), by_name.get("Value"));
    EXPECT_EQ(by_index.get("Type"), Value(8));
    EXPECT_EQ(by_index.get("Attributes"), Value(0x200));
    EXPECT_EQ(error_of([&] { by_index.put("Value", "x"); }), 3251);
  }
  EXPECT_EQ(text(connection, "dbms NAME"), "SQLite");
  for (const Value& unknown : {Value(count), Value(-1), Value("Colour"), Value("")})
    EXPECT_EQ(error_of([&] { properties.call("Item", unknown); }), 3265);
}

TEST_F(PropertiesTest, ComeAndGoWithTheConnection) {
  const Object connection = automation::create("ADODB.Connection");
  const Object properties = automation::to_object(connection.get("Properties"));
  EXPECT_EQ(properties.get("Count"), Value(0));
  EXPECT_EQ(error_of([&] { properties.call("Item", "DBMS Name"); }), 3265);
  connection.call("Open", connection_string());
  const Object name = automation::to_object(properties.call("Item", "DBMS Name"));
  connection.call("Close");
  EXPECT_EQ(properties.get("Count"), Value(0));
  EXPECT_EQ(name.get("Value"), Value("SQLite")) << "as it was when it was asked for";
}

TEST_F(PropertiesTest, HoldTheirConnection) {
  Object connection = open_connection();
  const Object properties = automation::to_object(connection.get("Properties"));
  connection = {};
  EXPECT_EQ(automation::to_object(properties.call("Item", "DBMS Name")).get("Value"), Value("SQLite"));
}

}  // namespace
}  // namespace tallyra::standins::ado::test
