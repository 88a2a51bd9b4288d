#include <gtest/gtest.h>

#include <string>

#include "automation/convert.h"
#include "automation/create.h"
#include "frame/collaborators.h"
#include "server/local_classes.h"
#include "standins/ado/local_classes.h"
#include "standins/corvane/local_classes.h"
#include "standins/lexbank/local_classes.h"
#include "tests/unit/company/company_folder.h"

// What a client is shown of the generated orders.
namespace {

using namespace tallyra::tests::generated_company;
namespace automation = tallyra::automation;
using automation::ref;
using automation::Value;

TEST(OrderQuantities, ShowWhatWasReceivedAndSentBackOfAnOrderLine) {
  tallyra::server::register_classes();
  tallyra::standins::ado::register_classes();
  tallyra::standins::corvane::register_classes();
  tallyra::standins::lexbank::register_classes();
  const CompanyFolder folder;
  const std::string path = folder.company_database();
  company::Database database(path);
  const auto lines = database.query(
      "SELECT D.REFERENCE,D.SN,MAX(POQTY+DEDUCTQTY) FROM STKTRANHD H JOIN STKTRANDT D ON D.TRANNO=H.TRANNO "
      "JOIN PODT P ON P.PONO=D.REFERENCE AND P.SN=D.SN WHERE TRANTYPE='STK010PORTN' AND STATUSSN=1 GROUP BY "
      "D.REFERENCE,D.SN");
  ASSERT_FALSE(lines.empty());
  const automation::Object detail = automation::create("Tallyra.CTranDetail");
  detail.put("ConnectionString", "DRIVER={SQLite3};Database=" + path);
  detail.put("UserID", "ADMIN");
  for (const auto& line : lines) {
    Value reference = line[0], number = std::stoi(line[1]), type = "PO";
    Value ordered = 0.0, received = 0.0, returned = 0.0;
    EXPECT_EQ(detail.call("PORefQty", ref(reference), ref(number), ref(ordered), ref(received), ref(returned),
                          ref(type)),
              Value(100.0));
    EXPECT_EQ(automation::to_text(ordered), automation::to_text(Value(std::stod(line[2])))) << line[0];
    EXPECT_GT(automation::to_double(received), 0) << line[0];
    EXPECT_LT(automation::to_double(returned), 0) << line[0];
    EXPECT_LE(-automation::to_double(returned), automation::to_double(received)) << line[0];
    EXPECT_LE(automation::to_double(received), automation::to_double(ordered)) << line[0];
  }
  tallyra::frame::collaborators() = {};
}

}  // namespace
