#include "client/call_guard.h"

#include <gtest/gtest.h>

#include "tests/support/client_program.h"
#include "tests/support/company_database.h"

// What raw calls tell where the classes are silent.
namespace tallyra::client {
namespace {

class Guarded : public testing::Test {
 protected:
  ExitStatus call(const std::vector<std::string>& words) { return client_.run(words); }
  bool says(const std::string& text) const { return client_.error().find(text) != std::string::npos; }
  std::string lines() const { return company_.rows("SELECT QTY,NOTES FROM STKCHECKDT"); }

  behaviour::CompanyDatabase company_;
  ClientProgram client_{{"--db", company_.connection_string(), "--user", "ADMIN"}};
};

TEST_F(Guarded, WritesNoNumberThatMeansAnother) {
  company_.run({"INSERT INTO PARTS(PARTNO) VALUES('P1')", "INSERT INTO STKCHECKHD(CHECKNO) VALUES('C1')"});
  for (const char* number : {"1,5", "$5", "(5)"}) {
    const std::string word = std::string("QTY=") + number;
    EXPECT_EQ(call({"CCheckDetail", "Insert", "C1", "P1", "CHECKNO=C1", "PARTNO=P1", word}), exit_wrong_usage)
        << client_.all();
    EXPECT_TRUE(says("QTY holds numbers: '" + std::string(number) + "' is no number")) << client_.error();
    EXPECT_TRUE(says("Nothing was written"));
  }
  EXPECT_EQ(lines(), "");
  EXPECT_EQ(call({"CCheckDetail", "Insert", "C1", "P1", "CHECKNO=C1", "PARTNO=P1", "QTY=1.5", "NOTES=1,5"}),
            exit_done)
      << client_.all();
  EXPECT_EQ(lines(), "1.5|1,5\n");
  EXPECT_EQ(call({"CCheckDetail", "Update", "C1", "P1", "qty=(5)"}), exit_wrong_usage);
  EXPECT_EQ(lines(), "1.5|1,5\n");
}

TEST_F(Guarded, TellsThatThereWasNoSuchRow) {
  company_.run({"INSERT INTO DEPARTS(DEPTNO) VALUES('10')", "INSERT INTO PARTS(PARTNO) VALUES('P1')"});
  const std::vector<std::vector<std::string>> calls = {
      {"CRevAddr", "Update", "A9", "ADDRNM=x"},
      {"CRevAddr", "Delete", "A9"},
      {"CTranHead", "Update", "T9", "STK010POREV", "NOTES=x", "t:EDIT"},
      {"CTranHead", "Delete", "T9", "STK010POREV"},
      {"CTranDetail", "Update", "T9", "STK010POREV", "R", "P1", "NOTES=x"},
      {"CTranDetail", "Delete", "T9", "STK010POREV", "R", "P1", "i:3"},
      {"CCheckHead", "Update", "C9", "NOTES=x", "EDIT"},
      {"CCheckHead", "Delete", "C9"},
      {"CCheckDetail", "Delete", "C9", "P1"},
      {"CPartCostSet", "Delete", "i:9"},
      {"CStockClose", "Update", "2024/01/31", "STATUSSN=i:1", "APPROVED"},
      {"CSTKController", "Delete", "S9"},
      {"CStkShipNote", "Delete", "T9"},
  };
  for (const auto& words : calls) {
    EXPECT_EQ(call(words), exit_failed) << words[0] << " " << words[1] << "\n" << client_.all();
    EXPECT_NE(client_.out().find("Result          100"), std::string::npos) << client_.out();
    EXPECT_TRUE(says("no such row: there was none in ")) << words[0] << " " << words[1] << client_.all();
  }
}

TEST_F(Guarded, KeepsSilentAboutARowThatWasThere) {
  company_.add_a_record_of_each_class();
  EXPECT_EQ(call({"CRevAddr", "Update", "X1", "NOTES=x"}), exit_done) << client_.all();
  EXPECT_EQ(call({"CRevAddr", "Delete", "X1"}), exit_done) << client_.all();
  EXPECT_EQ(call({"CStockClose", "Update", "2024/01/31", "STATUSSN=i:1", "APPROVED"}), exit_done)
      << client_.all();
  EXPECT_EQ(client_.error(), "");
}

TEST_F(Guarded, LeavesARefusalToTheClass) {
  company_.run({"DELETE FROM USERRIGHTS"});
  EXPECT_EQ(call({"CRevAddr", "Delete", "A9"}), exit_failed);
  EXPECT_FALSE(says("no such row"));
}

}  // namespace
}  // namespace tallyra::client
