#include <gtest/gtest.h>

#include "tests/support/queries.h"
#include "tests/transcript/close/stock_close_script.h"

// What the cost functions are handed, and what they may hand back.
namespace tallyra {
namespace {

using automation::Date;
using automation::Null;
using automation::ref;
using automation::Value;
using stage::done;
using stage::trapped;

// One part on a stage whose close was never begun: all dates but the close date are empty.
class CostCall : public testing::Test {
 protected:
  stage::Outcome close(Value price_type, Value material_type, Value quantity = 7.0, Value part = "C") {
    const std::string query = stage::department_documents("");
    stage.forgets(query).finds(query, {{"MTYPESN", "PARTNO", "PRICETYPESN", "EDITDT", "QTY"},
                                       {{material_type, part, price_type, Date{45000}, quantity}}});
    const auto client = stage.client("CStockClose");
    return stage::outcome_of(client, client.call("STKMonthClose", ref(id), ref(date)));
  }
  bool wrote(const std::string& text) { return stage.transcript().find(text) != std::string::npos; }

  stage::Stage stage;
  Value id = "K9";
  Value date = "#2024/03/31#";
};

TEST_F(CostCall, PartCostGetsDateQuantityAndConnectionByReference) {
  stage.set("system.GetPartCost", 1);
  EXPECT_EQ(close(2, 2), done);
  EXPECT_TRUE(wrote("system.GetPartCost R1(PARTNO) '#2024/03/31#' '' 7 C1\n")) << stage.transcript();
  EXPECT_EQ(stage.forms("system.GetPartCost"), "v&v&&");
}

TEST_F(CostCall, PricesGetDateAndConnectionByReferenceAndTheMaterialType) {
  stage.set("system.GetLastUprice", 1).set("system.GetAvgUprice", 1);
  EXPECT_EQ(close(1, 2), done);
  EXPECT_TRUE(wrote("system.GetLastUprice R1(PARTNO) '#2024/03/31#' '' C1 R1(MTYPESN)\n"))
      << stage.transcript();
  EXPECT_EQ(stage.forms("system.GetLastUprice"), "v&v&v");
  EXPECT_EQ(close(3, 2), done);
  EXPECT_EQ(stage.forms("system.GetAvgUprice"), "v&v&v");
}

TEST_F(CostCall, AReplacedQuantityIsTheOneWritten) {
  stage.set("system.GetPartCost", 1).set("system.GetPartCost replaces 4", 99.5);
  EXPECT_EQ(close(2, 2), done);
  EXPECT_TRUE(wrote("'C',99.5,1,'Month`s close'")) << stage.transcript();
}

TEST_F(CostCall, AReplacedCloseDateComesBackToTheCaller) {
  stage.set("system.GetPartCost", 1).set("system.GetPartCost replaces 2", "#2024/03/30#");
  EXPECT_EQ(close(2, 2), done);
  EXPECT_EQ(date, Value("#2024/03/30#"));
}

TEST_F(CostCall, IsToTheFunctionThatPriceTypeAndMaterialTypeName) {
  stage.set("system.GetPartCost", 1).set("system.GetLastUprice", 1).set("system.GetAvgUprice", 1);
  const struct {
    Value price_type;
    Value material_type;
    std::string function;
  } rows[] = {{2, 2, "GetPartCost"},       {2, 3.0, "GetPartCost"},  {2, 1, "GetAvgUprice"},
              {2, Null{}, "GetAvgUprice"}, {1, 1, "GetLastUprice"},  {1, 2, "GetLastUprice"},
              {1, 99, "GetLastUprice"},    {3, 2, "GetAvgUprice"},   {0, 2, "GetAvgUprice"},
              {Null{}, 2, "GetAvgUprice"}, {"2", "2", "GetPartCost"}};
  for (const auto& [price_type, material_type, function] : rows) {
    stage.clear();
    EXPECT_EQ(close(price_type, material_type, 1.0, "A"), done);
    for (const std::string each : {"GetPartCost", "GetLastUprice", "GetAvgUprice"})
      EXPECT_EQ(wrote("system." + each + " "), each == function)
          << stage::shown(price_type) << " " << stage::shown(material_type);
  }
}

TEST_F(CostCall, OnlyMaterialTypesAboveOneAreProduced) {
  stage.set("system.GetPartCost", 1).set("system.GetAvgUprice", 2);
  const struct {
    Value material_type;
    const char* function;
  } rows[] = {{1.5, "GetPartCost"}, {0, "GetAvgUprice"}, {-1, "GetAvgUprice"}, {1, "GetAvgUprice"}};
  for (const auto& [material_type, function] : rows) {
    stage.clear();
    EXPECT_EQ(close(2, material_type), done);
    EXPECT_TRUE(wrote(std::string("system.") + function)) << stage::shown(material_type);
  }
}

TEST_F(CostCall, IsNotMadeWithoutDepartmentDocuments) {
  stage::no_documents(stage, "");
  const auto client = stage.client("CStockClose");
  EXPECT_EQ(stage::outcome_of(client, client.call("STKMonthClose", ref(id), ref(date))), done);
  EXPECT_EQ(stage.database_calls(),
            "R1.CursorLocation = 3\nC1.CommandTimeout = 0\nC1.Open 'DSN=x' '' '' -1\n" +
                opened("R1", stage::department_documents(""), "C1") +
                "C1.BeginTrans\nC1.CommitTrans\nR1.Close\n");
}

TEST_F(CostCall, CostsAreWrittenUnrounded) {
  const struct {
    Value cost;
    const char* text;
  } rows[] = {{Value(), ",7,0,"}, {-0.5, ",7,-0.5,"}, {1e-20, ",7,1E-20,"}, {"2.5", ",7,2.5,"}};
  for (const auto& [cost, text] : rows) {
    stage.clear();
    stage.set("system.GetLastUprice", cost);
    EXPECT_EQ(close(1, 1), done);
    EXPECT_TRUE(wrote(text)) << stage.transcript();
  }
  stage.set("system.GetLastUprice", Null{});
  EXPECT_EQ(close(1, 1), trapped(94, "Invalid use of Null"));
}

TEST_F(CostCall, ASetThatIsReplacedWhileTheLoopYieldsIsUsedFromThere) {
  MonthCloseStage company;
  const auto other = company.stage.client("CRevAddr");
  int yields = 0;
  // 9 lines of the departments come first; the set is replaced behind the first line of the company.
  const automation::ScopedYield yield([&] {
    if (++yields == 10) other.call("Delete", "A1");
  });
  company.stage.set("CanDelete", 1);
  EXPECT_EQ(company.close(), done);
  EXPECT_EQ(company.stage.alive(), 4) << "the former set is not held any longer";
}

}  // namespace
}  // namespace tallyra
