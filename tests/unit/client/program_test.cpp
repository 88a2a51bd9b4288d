#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <nlohmann/json.hpp>

#include "tests/support/company_database.h"

// The built program as a person or a script runs it, on a real database.
namespace tallyra::client {
namespace {

struct Ended {
  int status;
  std::string output;  // of both kinds, in the order it was written
};

Ended run(const std::string& arguments) {
  const std::string command = std::string(TALLYRA_CLIENT) + " " + arguments + " 2>&1";
  std::FILE* pipe = popen(command.c_str(), "r");
  Ended result{-1, {}};
  char buffer[4096];
  for (std::size_t read = 0; (read = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
    result.output.append(buffer, read);
  result.status = WEXITSTATUS(pclose(pipe));
  return result;
}

class Program : public testing::Test {
 protected:
  Ended on_company(const std::string& arguments) {
    return run("--db " + company.file().string() + " --user ADMIN " + arguments);
  }
  behaviour::CompanyDatabase company;
};

TEST_F(Program, KeepsAnAddress) {
  EXPECT_EQ(on_company("CRevAddr Insert A1 ADDRNO=A1 'ADDRNM=Harbour 港口' ADDBY=ADMIN").status, 0);
  const Ended read = on_company("CRevAddr Read A1");
  EXPECT_EQ(read.status, 0);
  EXPECT_NE(read.output.find("ADDRNM   text  Harbour 港口\n"), std::string::npos) << read.output;
  EXPECT_EQ(on_company("Tallyra.crevaddr delete A1").status, 0);
  EXPECT_EQ(on_company("CRevAddr Read A1").status, 1);
}

TEST_F(Program, WritesJsonThatCanBeReadBack) {
  on_company("CRevAddr Insert A1 ADDRNO=A1 ADDDT=d:2024/03/07");
  const auto json = nlohmann::json::parse(on_company("--json CRevAddr Read A1").output);
  EXPECT_EQ(json.at("result"), 100);
  EXPECT_EQ(json.at("errNumber"), 0);
  EXPECT_EQ(json.at("fields").at("ADDRNO"), "A1");
  EXPECT_EQ(json.at("fields").at("ADDDT"), "2024/03/07");
  EXPECT_TRUE(json.at("fields").at("NOTES").is_null());
}

TEST_F(Program, TellsWhatWasRefused) {
  const Ended refused =
      run("--db " + company.file().string() + " --user NOBODY CRevAddr Insert A1 ADDRNO=A1");
  EXPECT_EQ(refused.status, 1);
  EXPECT_NE(refused.output.find("10000016"), std::string::npos) << refused.output;
}

TEST_F(Program, TellsTheVerdictOfAGuardWhoseQueryFailed) {
  const std::string failed = "the call failed with error 438: ";
  for (const char* date : {"\"2024/03/31#'\"", "2024/02/30", "31/01/2024"})
    for (const char* kind : {"MSACCESS", "MSSQLSERVER"})
      for (const char* head : {"CTranHead", "CCheckHead"}) {
        const Ended ended = on_company("--kind " + std::string(kind) + " " + head + " ValidCloseDT " + date);
        EXPECT_EQ(ended.status, 1) << ended.output;
        EXPECT_NE(ended.output.find(failed), std::string::npos) << ended.output;
        const char* number = head == std::string_view("CTranHead") ? "10000112" : "-21472179";
        EXPECT_NE(ended.output.find(std::string("ErrNumber       ") + number), std::string::npos)
            << ended.output;
      }
}

// The trigger stands for a time in which no number is issued.
TEST_F(Program, TellsWhenAnApprovalHasGotNoNumber) {
  company.run({"INSERT INTO DEPARTS(DEPTNO,DEPTNM) VALUES('10','Store')",
               "INSERT INTO STKCHECKHD(CHECKNO,CHECKDT,DEPTNO) VALUES('C1','2024-03-31 00:00:00','10')",
               "INSERT INTO STKCHECKDT(CHECKNO,PARTNO,QTY) VALUES('C1','P1',5)"});
  const std::string complaint = "header of type STKCHECKISS with an empty TRANNO";
  const Ended numbered = on_company("CCheckHead Update C1 STATUSSN=i:1 APPROVED");
  EXPECT_EQ(numbered.output.find(complaint), std::string::npos) << numbered.output;

  on_company("CCheckHead Update C1 STATUSSN=i:0 UNAPPROVED");
  company.run(
      {"CREATE TRIGGER NO_NUMBER AFTER INSERT ON STKTRANHD WHEN NEW.TRANNO<>'' "
       "BEGIN UPDATE STKTRANHD SET TRANNO='' WHERE TRANNO=NEW.TRANNO; END"});
  const Ended unnumbered = on_company("CCheckHead Update C1 STATUSSN=i:1 APPROVED");
  EXPECT_EQ(unnumbered.status, 1);
  EXPECT_NE(unnumbered.output.find("1 " + complaint), std::string::npos) << unnumbered.output;
  EXPECT_NE(unnumbered.output.find("un-approve all stocktakings"), std::string::npos) << unnumbered.output;
  const Ended refused =
      run("--db " + company.file().string() + " --user NOBODY CCheckHead Update C1 STATUSSN=i:1 APPROVED");
  EXPECT_NE(refused.output.find("10000016"), std::string::npos) << refused.output;
  EXPECT_EQ(refused.output.find(complaint), std::string::npos) << "a refused approval has posted nothing";
  const Ended plain = on_company("CCheckHead Update C1 STATUSSN=i:1 CANCEL");
  EXPECT_EQ(plain.output.find(complaint), std::string::npos) << "looked for after approvals alone";
}

TEST_F(Program, TellsWhatIsWrongWithTheCall) {
  const struct {
    const char* arguments;
    const char* word;
  } rows[] = {{"CNoSuchClass Read A1", "CNoSuchClass"},
              {"CRevAddr NoSuchMember A1", "NoSuchMember"},
              {"CRevAddr Delete", "cAddrNo"},
              {"CRevAddr Delete A1 surplus", "Delete"},
              {"CRevAddr", "no member"},
              {"CRevAddr UserID", "cannot be called"},
              {"--no-such-option CRevAddr Read A1", "--no-such-option"},
              {"CStockClose Delete d:2024/02/30", "2024/02/30"}};
  for (const auto& [arguments, word] : rows) {
    const Ended wrong = on_company(arguments);
    EXPECT_EQ(wrong.status, 2) << arguments << "\n" << wrong.output;
    EXPECT_NE(wrong.output.find(word), std::string::npos) << arguments << "\n" << wrong.output;
  }
  const Ended no_file = run("--db /no/such/file.db CRevAddr Read A1");
  EXPECT_EQ(no_file.status, 2);
  EXPECT_NE(no_file.output.find("/no/such/file.db"), std::string::npos);
}

TEST_F(Program, ExplainsItself) {
  const Ended help = run("--help");
  EXPECT_EQ(help.status, 0);
  for (const char* word : {"--db", "--kind", "--json", "COLUMN=value", "Examples", "CStockClose"})
    EXPECT_NE(help.output.find(word), std::string::npos) << word;
}

TEST_F(Program, TellsThatItsOutputCouldNotBeWritten) {
  const Ended full = run("help 2>&1 >/dev/full; echo ended with $?");
  EXPECT_NE(full.output.find("ended with 1"), std::string::npos) << full.output;
  EXPECT_NE(full.output.find("the output could not be written"), std::string::npos) << full.output;
}

}  // namespace
}  // namespace tallyra::client
