#include <filesystem>
#include <fstream>

#include "tests/unit/standins/ado/postgresql/scratch_server.h"

// Getting in, or not.
namespace tallyra::standins::ado::test {
namespace {

class PostgresqlLoginTest : public ScratchServer {
 protected:
  PostgresqlLoginTest() {
    server().administer("postgres", "DROP ROLE IF EXISTS secured");
    server().administer("postgres", "CREATE ROLE secured LOGIN PASSWORD 'right'");
  }

  Object opened(const std::string& text, const char* user = "", const char* password = "") const {
    Object connection = automation::create("ADODB.Connection");
    connection.call("Open", text, user, password);
    return connection;
  }
  std::string as_secured(const std::string& more) const {
    return "Driver={PostgreSQL Unicode};Servername=127.0.0.1;Port=" + std::to_string(server().port()) +
           ";Database=" + database() + ";Username=secured;" + more;
  }
};

TEST_F(PostgresqlLoginTest, APasswordCanStandInTheStringOrBesideItOrInAFile) {
  const tests::TestFolder folder;
  const std::string file = folder.file("passwords");
  std::ofstream(file) << "*:*:*:secured:right\n";
  std::filesystem::permissions(file, std::filesystem::perms::owner_read);
  for (const Object& connection :
       {opened(as_secured("Password=right")), opened(as_secured("pqopt={password=right}")),
        opened(as_secured("pqopt={passfile=" + file + "}")),
        opened(as_secured("PWD=wrong"), "secured", "right")})
    EXPECT_EQ(scalar(connection, "Select current_user"), Value("secured"));
}

TEST_F(PostgresqlLoginTest, ARefusedLoginHasANumberOfItsOwnAndTellsNoPassword) {
  for (const std::string& text : {as_secured("Password=hidden"), as_secured("pqopt={password=hidden}")}) {
    EXPECT_EQ(error_of([&] { opened(text); }), -2147217843);
    EXPECT_EQ(description_of([&] { opened(text); }).find("hidden"), std::string::npos);
  }
}

TEST_F(PostgresqlLoginTest, AServerOrADatabaseThatIsNotThereIsTold) {
  EXPECT_EQ(
      error_of([&] { opened("Driver={PostgreSQL Unicode};Servername=127.0.0.1;Port=1;Database=x;UID=x"); }),
      -2147467259);
  EXPECT_NE(description_of([&] { opened(server().connection_string("nowhere")); }).find("nowhere"),
            std::string::npos);
}

TEST_F(PostgresqlLoginTest, OfSeveralServersTheOneThatIsThereIsFound) {
  const Object connection = opened("Driver={PostgreSQL Unicode};Servername=127.0.0.1,127.0.0.1;Port=1," +
                                   std::to_string(server().port()) + ";Database=" + database() +
                                   ";UID=tallyra;pqopt={target_session_attrs=read-write}");
  EXPECT_EQ(scalar(connection, "Select 1"), Value(1));
}

TEST_F(PostgresqlLoginTest, ReadOnlyReadsOnly) {
  const Object connection = open_connection("ReadOnly=1");
  EXPECT_EQ(scalar(connection, "Select 1"), Value(1));
  EXPECT_NE(error_of([&] { execute(connection, "Create Table T(A integer)"); }), 0);
}

}  // namespace
}  // namespace tallyra::standins::ado::test
