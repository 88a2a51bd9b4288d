#include "automation/local/local_classes.h"
#include "client/setup/examination/examination.h"
#include "tests/behaviour/client/setup/new_database.h"

namespace tallyra::client {
namespace {

TEST_F(NewDatabase, NeedsEveryLibraryAndIsToldWhichIsNotThere) {
  db_ = registered_.connection_string();
  EXPECT_EQ(run({"doctor", "--csv"}), exit_done) << client_.all();
  for (const char* library : {"ADO", "Lexbank", "Corvane", "Tallyra"})
    EXPECT_TRUE(says(std::string("\ngood,library ") + library + ",")) << client_.out();
  EXPECT_TRUE(says("2 classes, from this program")) << client_.out();
  {
    const automation::local::ScopedClass hidden("Lexbank.CPartF", nullptr);
    EXPECT_EQ(run({"doctor", "--csv"}), exit_failed);
  }
  EXPECT_TRUE(says("\nBAD,library Lexbank,Lexbank.CPartF: error 429: ")) << client_.out();
  EXPECT_TRUE(says("register Lexbank.dll of the suite, or the stand-in")) << client_.out();
}

}  // namespace
}  // namespace tallyra::client
