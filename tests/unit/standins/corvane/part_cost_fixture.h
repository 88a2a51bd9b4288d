#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "automation/convert.h"
#include "tests/unit/standins/corvane/company_database.h"

namespace tallyra::standins::corvane::testing {

// A document with one line.
struct Document {
  const char* number;
  const char* type;
  const char* day;  // YYYY/MM/DD, with or without a time
  int status;
  const char* part;
  const char* quantity;  // SQL text, so that Null can be stored
  const char* price;
};

class PartCost : public ::testing::Test {
 protected:
  void store(const std::vector<Document>& documents) {
    std::vector<std::string> statements;
    for (const Document& row : documents) {
      statements.push_back("Insert Into STKTRANHD(TRANNO,TRANTYPE,TRANDT,STATUSSN) Values('" +
                           std::string(row.number) + "','" + row.type + "','" + row.day + "'," +
                           std::to_string(row.status) + ")");
      statements.push_back(line(row.number, row.part, row.quantity, row.price));
    }
    database.run(statements);
  }
  static std::string line(const std::string& number, const std::string& part, const std::string& quantity,
                          const std::string& price) {
    return "Insert Into STKTRANDT(TRANNO,SN,PARTNO,QTY,UPRICE) Values('" + number + "',0,'" + part + "'," +
           quantity + "," + price + ")";
  }

  // The close of March 2024 in the form of the caller's dialect.
  double purchase(const char* member, const char* part, const char* quote = "'") {
    automation::Value close = std::string(quote) + "2024/03/31" + quote;
    automation::Value opened = connection;
    return cost(system.call(member, part, automation::ref(close), std::string(quote) + "2024/02/29" + quote,
                            automation::ref(opened), 1));
  }
  double last(const char* part) { return purchase("GetLastUprice", part); }
  double average(const char* part) { return purchase("GetAvgUprice", part); }
  double produced(const char* part, const char* previous = "'2024/02/29'",
                  const char* until = "'2024/03/31'") {
    automation::Value close = until;
    automation::Value opened = connection;
    automation::Value quantity = 3.0;
    return cost(system.call("GetPartCost", part, automation::ref(close), previous, automation::ref(quantity),
                            automation::ref(opened)));
  }

  CompanyDatabase database;
  automation::Object connection = database.open();
  automation::Object system = database.system();

 private:
  static double cost(const automation::Value& value) {
    EXPECT_TRUE(value.holds<double>());
    return automation::to_double(value);
  }
};

}  // namespace tallyra::standins::corvane::testing
