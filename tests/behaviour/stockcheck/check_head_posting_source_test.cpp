#include <gtest/gtest.h>

#include <tuple>

#include "tests/behaviour/stockcheck/counting_company.h"
#include "tests/support/data_source.h"
#include "tests/support/record_methods.h"

// Approvals of stocktakings over connection strings that name neither the driver nor the database: the
// posting gets its number while the approval is writing the database.
namespace tallyra::behaviour {
namespace {

using automation::Object;
using stage::Fields;

struct Form {
  const char* name;
  std::string (*connection_string)(const std::string& data_source, const std::string& database);
};

const Form forms[] = {
    {"DataSource", [](const std::string& source, const std::string&) { return "DSN=" + source; }},
    {"DataSourceOfTheProvider",
     [](const std::string& source, const std::string&) { return "Provider=MSDASQL;Data Source=" + source; }},
    {"ExtendedDataSource",
     [](const std::string& source, const std::string&) {
       return "Provider=MSDASQL;Extended Properties=\"DSN=" + source + "\"";
     }},
    {"ExtendedDriver",
     [](const std::string&, const std::string& database) {
       return "Provider=MSDASQL;Extended Properties=\"DRIVER={SQLite3};Database=" + database +
              ";SyncPragma=OFF;Timeout=200\"";
     }},
    {"DriverOfTheProvider",
     [](const std::string&, const std::string& database) {
       return "Provider=MSDASQL.1;DRIVER={SQLite3};Database=" + database + ";SyncPragma=OFF;Timeout=200";
     }},
};

class CheckPostingSource : public testing::TestWithParam<std::tuple<const char*, Form>> {
 protected:
  void SetUp() override {
    if (!company.is_sqlite()) GTEST_SKIP() << "its forms of a source are those of a file";
  }

  const std::string kind = std::get<0>(GetParam());
  CountingCompany company{kind};
  const std::string file = company.file().generic_string();
  const tests::DataSource source{"Driver=SQLite3\nDatabase=" + file + "\nTimeout=200\nSyncPragma=OFF\n"};
  const std::string connection_string = std::get<1>(GetParam()).connection_string(source.name(), file);

  stage::Outcome approve(const char* number) {
    Fields fields{{"STATUS", "APPROVED"}, {"STATUSSN", 1}};
    const Object head = company.client("CCheckHead");
    head.put("ConnectionString", connection_string);
    return stage::play_record(head, "Update", number, fields, "APPROVED");
  }
};

INSTANTIATE_TEST_SUITE_P(Forms, CheckPostingSource,
                         testing::Combine(testing::Values("MSACCESS", "MSSQLSERVER"),
                                          testing::ValuesIn(forms)),
                         [](const auto& param) {
                           return std::string(std::get<0>(param.param)) + std::get<1>(param.param).name;
                         });

TEST_P(CheckPostingSource, ThePostingBearsItsNumber) {
  company.check("S1", "2024-03-31", "10");
  company.counted("S1", "P1", "5");
  company.check("S2", "2024-03-31", "10");
  company.counted("S2", "P2", "7");
  expect_posted(approve("S1"));
  expect_posted(approve("S2"));
  EXPECT_EQ(company.rows("SELECT H.TRANNO,H.REFERENCE,L.PARTNO,L.QTY FROM STKTRANHD H "
                         "JOIN STKTRANDT L ON L.TRANNO=H.TRANNO ORDER BY H.rowid"),
            "CHECKISS2404050001|S1|P1|5\nCHECKISS2404050002|S2|P2|7\n");
  EXPECT_TRUE(std::filesystem::exists(file + ".keys"));
}

}  // namespace
}  // namespace tallyra::behaviour
