#include <gtest/gtest.h>

#include "automation/convert.h"
#include "tests/support/company_database.h"
#include "tests/support/record_methods.h"

// Receiving addresses and stock controllers on a real database.
namespace tallyra::behaviour {
namespace {

using automation::Date;
using automation::Null;
using automation::Object;
using automation::ref;
using stage::done;
using stage::Fields;
using stage::Outcome;

struct KeyRecord {
  const char* class_name;
  const char* table;
  const char* key;
  const char* name;
  const char* system_database;
};

class KeyRecordOnEachEngine : public testing::TestWithParam<KeyRecord> {
 protected:
  Outcome play(const char* method, const char* key, Fields& fields, const char* user = "ADMIN") {
    return stage::play_record(company.client(GetParam().class_name, user), method, key, fields);
  }
  Outcome remove(const char* key, const char* user = "ADMIN") {
    return stage::play_record(company.client(GetParam().class_name, user), "Delete", key);
  }
  std::string stored() {
    return company.rows(std::string("SELECT ") + GetParam().key + "," + GetParam().name +
                        ",NOTES,ADDBY,ADDDT FROM " + GetParam().table + " ORDER BY 1");
  }
  Fields row(const char* key, const char* user = "ADMIN") {
    return {{GetParam().key, key},
            {GetParam().name, "O'Neil 中文 😀"},
            {"NOTES", Null{}},
            {"ADDBY", user},
            {"ADDDT", Date{45358.5}}};
  }

  CompanyDatabase company{GetParam().system_database};
};

INSTANTIATE_TEST_SUITE_P(Classes, KeyRecordOnEachEngine,
                         testing::Values(KeyRecord{"CRevAddr", "REVADDR", "ADDRNO", "ADDRNM", "MSACCESS"},
                                         KeyRecord{"CRevAddr", "REVADDR", "ADDRNO", "ADDRNM", "MSSQLSERVER"},
                                         KeyRecord{"CSTKController", "STKCONTROLLER", "CONTROLLERNO",
                                                   "CONTROLLERNM", "MSACCESS"}),
                         [](const auto& param) {
                           return std::string(param.param.class_name) + "_" + param.param.system_database;
                         });

TEST_P(KeyRecordOnEachEngine, ARowLivesItsWholeLife) {
  Fields fields = row("A1");
  EXPECT_EQ(play("Insert", "A1", fields), done);
  EXPECT_EQ(stored(), "A1|O'Neil 中文 😀|NULL|ADMIN|2024/03/07 12:00:00\n");

  Fields read;
  EXPECT_EQ(play("Read", "A1", read), done);
  EXPECT_NE(read.text().find("='O'Neil 中文 😀'"), std::string::npos) << read.text();
  EXPECT_NE(read.text().find("NOTES=Null"), std::string::npos);
  EXPECT_NE(read.text().find("ADDDT=2024/03/07 12:00:00"), std::string::npos);

  Fields change{{"NOTES", "new"}};
  EXPECT_EQ(play("Update", "A1", change), done);
  EXPECT_EQ(stored(), "A1|O'Neil 中文 😀|new|ADMIN|2024/03/07 12:00:00\n");

  EXPECT_EQ(play("Insert", "A1", fields).number, 10000004);
  EXPECT_EQ(remove("A1"), done);
  EXPECT_EQ(stored(), "");
  EXPECT_EQ(remove("A1"), done);
  Fields nothing;
  EXPECT_EQ(play("Read", "A1", nothing).number, 10000003);
  EXPECT_EQ(nothing.text(), "");
}

TEST_P(KeyRecordOnEachEngine, AnOwnerEndsInTheTrapAndChangesNothing) {
  company.grant("OWNER", "OWNER");
  Fields fields = row("A1", "OWNER");
  ASSERT_EQ(play("Insert", "A1", fields), done);
  const std::string before = stored();
  Fields change{{"NOTES", "new"}};
  for (const Outcome& outcome : {play("Update", "A1", change, "OWNER"), remove("A1", "OWNER"),
                                 play("Update", "NONE", change, "OWNER"), remove("NONE", "OWNER")}) {
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.number, 3705) << outcome.description;
  }
  EXPECT_EQ(stored(), before);
}

TEST_P(KeyRecordOnEachEngine, WhoHasNoRightIsRefused) {
  company.grant("AUDITOR", "CANFINISHED");
  Fields fields = row("A1");
  ASSERT_EQ(play("Insert", "A1", fields), done);
  const std::string before = stored();
  for (const char* user : {"AUDITOR", "NOBODY"}) {
    EXPECT_EQ(play("Insert", "A2", fields, user).number, 10000016);
    EXPECT_EQ(play("Update", "A1", fields, user).number, 10000016);
    EXPECT_EQ(remove("A1", user).number, 10000016);
  }
  EXPECT_EQ(stored(), before);
}

TEST_P(KeyRecordOnEachEngine, BadInputIsToldAndLosesNothing) {
  Fields fields = row("A1");
  ASSERT_EQ(play("Insert", "A1", fields), done);
  const std::string before = stored();

  Fields unknown{{GetParam().key, "A2"}, {"NOSUCHCOLUMN", 1}};
  Outcome outcome = play("Insert", "A2", unknown);
  EXPECT_EQ(outcome.result, 0);
  EXPECT_NE(outcome.description.find("NOSUCHCOLUMN"), std::string::npos) << outcome.description;

  Fields wrong_type{{"ADDDT", "not a date"}};
  outcome = play("Update", "A1", wrong_type);
  EXPECT_EQ(outcome.result, 0);
  EXPECT_NE(outcome.description.find("ADDDT"), std::string::npos) << outcome.description;

  outcome = play("Update", "A'1", fields);
  EXPECT_EQ(outcome.result, 0) << "a key is not escaped, so this one breaks the statement";
  EXPECT_EQ(outcome.number, stage::narrowed(-2147217900.0)) << outcome.description;
  EXPECT_NE(outcome.description, "");

  EXPECT_EQ(stored(), before);
}

TEST_P(KeyRecordOnEachEngine, AMissingTableIsTold) {
  company.run({std::string("DROP TABLE ") + GetParam().table});
  Fields fields = row("A1");
  for (const Outcome& outcome : {play("Read", "A1", fields), play("Insert", "A1", fields),
                                 play("Update", "A1", fields), remove("A1")}) {
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.number, stage::narrowed(-2147217865.0)) << outcome.description;
    EXPECT_TRUE(names(outcome.description, GetParam().table)) << outcome.description;
  }
}

TEST_P(KeyRecordOnEachEngine, AnUnreachableDatabaseIsTold) {
  Fields fields = row("A1");
  const Object object = company.client(GetParam().class_name);
  object.put("ConnectionString", "DRIVER={SQLite3};Database=/no/such/folder/company.db");
  for (const char* method : {"Read", "Insert", "Update"}) {
    const Outcome outcome =
        stage::outcome_of(object, object.call(method, "A1", ref(fields.names), ref(fields.values)));
    EXPECT_EQ(outcome.result, 0) << method;
    EXPECT_EQ(outcome.number, stage::narrowed(-2147467259.0)) << method << " " << outcome.description;
    EXPECT_NE(outcome.description, "") << method;
  }
}

}  // namespace
}  // namespace tallyra::behaviour
