#include "tests/unit/standins/ado/postgresql/scratch_server.h"

// A session in which a backslash escapes reads other texts than this layer judges.
namespace tallyra::standins::ado::test {
namespace {

constexpr std::int32_t not_plain = -2147467259;

class PlainTextsTest : public ScratchServer {
 protected:
  // Of the administrator's making: a key has no way to it.
  PlainTextsTest()
      : ScratchServer({"CREATE FUNCTION loosen() RETURNS text LANGUAGE sql AS "
                       "$$SELECT set_config('standard_conforming_strings','off',false)$$"}) {}

  Object connection = open_connection();
};

TEST_F(PlainTextsTest, AreOutOfReachOfAKey) {
  EXPECT_EQ(error_of([&] {
              execute(connection,
                      "Update pg_settings Set setting='off' Where name='standard_conforming_strings'");
            }),
            -2147217911);
  EXPECT_EQ(scalar(connection, "Show standard_conforming_strings"), Value("on"));
}

TEST_F(PlainTextsTest, ThatAreNoneAnyMoreEndTheUseOfTheSession) {
  execute(connection, "Select loosen()");
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(error_of([&] { execute(connection, "Select 1"); }), not_plain);
    EXPECT_EQ(description_of([&] { execute(connection, "Select 1"); }),
              "The server takes a backslash in a text for an escape");
  }
}

TEST_F(PlainTextsTest, ComeBackWithARollback) {
  connection.call("BeginTrans");
  execute(connection, "Select loosen()");
  EXPECT_EQ(error_of([&] { execute(connection, "Select 1"); }), not_plain);
  connection.call("RollbackTrans");
  EXPECT_EQ(scalar(connection, "Select 1"), Value(1));
}

}  // namespace
}  // namespace tallyra::standins::ado::test
