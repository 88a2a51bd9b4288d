#include <filesystem>

#include "tests/unit/standins/ado/scratch_database.h"

namespace tallyra::standins::ado::test {
namespace {

class ReachingKeywordsTest : public ScratchDatabase {
 protected:
  std::string file() const { return path("written"); }
  std::int32_t open(const std::string& more) const {
    const Object connection = automation::create("ADODB.Connection");
    return error_of([&] { connection.call("Open", connection_string() + ";" + more); });
  }
};

TEST_F(ReachingKeywordsTest, OfAConnectionStringAreRefused) {
  for (const std::string keyword : {"Tracefile", "TRACEFILE", " tracefile ", "FileDSN", "SaveFile", "LoadExt",
                                    ";;loadext", "{LoadExt", "X={a;LoadExt"}) {
    EXPECT_EQ(open(keyword + "=" + file()), -2147217911) << keyword;
    EXPECT_FALSE(std::filesystem::exists(file())) << keyword;
  }
  for (const std::string more : {"ConnSettings=Select 1", "a6={Select 1}", "CommLog=1", "Debug={2}", "B2=1",
                                 "B3=y", "CX=1c305008b", "pqopt={host=a sslkey=engine:x}",
                                 "X={;pqopt=options='-c Local_Preload_Libraries=x'}", "D5='service=x'"})
    EXPECT_EQ(open(more), -2147217911) << more;
  EXPECT_EQ(description_of([&] {
              automation::create("ADODB.Connection")
                  .call("Open", "SaveFile={" + file() + "};" + connection_string());
            }),
            "The connection string reaches beyond the database: SaveFile");
}

TEST_F(ReachingKeywordsTest, AreNoneWhenTheyAreValues) {
  for (const std::string harmless : {"JournalMode=WAL", "Description=LoadExt", "LoadExtra=1", "bare word",
                                     "ConnSettings={};CommLog=0;Debug=0", "pqopt={sslkey=/etc/key}"})
    EXPECT_EQ(open(harmless), 0) << harmless;
}

}  // namespace
}  // namespace tallyra::standins::ado::test
