#include "client/month_end/finding.h"

#include "tests/behaviour/client/month_end/closing_client.h"

namespace tallyra::client {
namespace {

TEST_F(ClosingClient, CountsAllRowsOfALookAndKeepsTheFirst) {
  std::vector<std::string> addresses;
  for (const char* number : {"A1", "A2", "A3", "A4", "A5", "A6", "A7"})
    addresses.push_back("INSERT INTO REVADDR(ADDRNO,ADDRNM) VALUES('" + std::string(number) + "  ',NULL)");
  sql(addresses);
  const Reader reader(company_.connection_string(), "MSACCESS");
  const Found found =
      found_rows(reader, "Select ADDRNO,ADDRNM From REVADDR Order By ADDRNO", {"address", "name"});
  EXPECT_EQ(found.count, 7);
  ASSERT_EQ(found.first.size(), first_rows);
  EXPECT_EQ(found.first.front(), "address A1, name (none)");
}

TEST_F(ClosingClient, GathersWhatACloseWouldWrite) {
  sql({"INSERT INTO STKTRANDT(TRANNO,SN,PARTNO,QTY) VALUES('R1',9,'frame',-50),('R1',9,'odd',NULL)"});
  const Reader reader(company_.connection_string(), "MSACCESS");
  CloseCase close = close_case(reader, *automation::parse_date("2024/01/31"));
  EXPECT_EQ(close.gathered.plan.lines(), 0U) << "nothing before it is asked for";
  gather(close);
  EXPECT_EQ(close.gathered.negative, std::vector<std::string>{"department 10, part frame: -50"});
  EXPECT_EQ(close.gathered.unknown, std::vector<std::string>{"department 10, part odd"});
  EXPECT_EQ(close.gathered.plan.departments.size(), 2U);
  EXPECT_EQ(close.gathered.plan.company_lines, close.gathered.parts.size());
}

}  // namespace
}  // namespace tallyra::client
