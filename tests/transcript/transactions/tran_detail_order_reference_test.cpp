#include <cmath>

#include "tests/transcript/transactions/transaction_script.h"

namespace tallyra::transactions_test {
namespace {

const std::string ordered =
    "Select PODT.PONO,PODT.PARTNO,PODT.POQTY+PODT.DEDUCTQTY As POQTY From PODT Inner Join POHD On "
    "PODT.PONO=POHD.PONO Where PODT.PONO='N1' AND PODT.SN=3 And POHD.STATUSSN=1";
const std::string moved =
    "Select STKTRANDT.TRANNO,STKTRANDT.SN,STKTRANDT.QTY As POQTY From STKTRANDT Inner Join STKTRANHD On "
    "STKTRANDT.TRANNO=STKTRANHD.TRANNO Where STKTRANDT.TRANNO='N1' AND STKTRANDT.SN=3 And "
    "STKTRANHD.STATUSSN=1";
const std::string sums =
    "Select STKTRANDT.REFERENCE,STKTRANDT.SN,SUM(STKTRANDT.QTY) AS QTY From STKTRANDT Inner Join STKTRANHD "
    "On "
    "STKTRANDT.TRANNO=STKTRANHD.TRANNO Where STKTRANDT.REFERENCE='N1' AND STKTRANDT.SN=3";
const std::string received = sums +
                             " AND STKTRANHD.TRANTYPE='STK010POREV' And STKTRANHD.STATUSSN=1 Group By "
                             "STKTRANDT.REFERENCE,STKTRANDT.SN";
const std::string returned = sums +
                             " AND STKTRANHD.TRANTYPE='STK010PORTN' And STKTRANHD.STATUSSN=1  Group By "
                             "STKTRANDT.REFERENCE,STKTRANDT.SN";
const std::string purchase_order = "Select POHD.PONO From POHD Where POHD.PONO='N1'";
const std::string purchase_return =
    "Select STKTRANHD.TRANNO From STKTRANHD Where STKTRANHD.TRANNO='N1' And STKTRANHD.TRANTYPE='STK011PORTN'";
const std::string sales_order = "Select SOHD.SONO From SOHD Where SONO='N1'";
const std::string production_order = "Select COHD.CONO From COHD Where COHD.CONO='N1'";
const std::vector<std::string> no_order{ordered,        moved,           received,    returned,
                                        purchase_order, purchase_return, sales_order, production_order};

class OrderReferenceChecks : public TransactionStage {
 protected:
  OrderReferenceChecks() : TransactionStage("CTranDetail", no_order) {}
};
TALLYRA_ON_BOTH_KINDS(OrderReferenceChecks);

TEST_P(OrderReferenceChecks, TellWhatOfAnOrderLineIsOrderedReceivedAndReturned) {
  {
    Stage each(GetParam(), no_order);
    each.finds(ordered, {{"PONO", "PARTNO", "POQTY"}, {{"N1", "P1", 12.5}, {"N1", "P1", 99}}});
    each.finds(received, {{"REFERENCE", "SN", "QTY"}, {{"N1", 3, 7}}});
    each.finds(returned, {{"REFERENCE", "SN", "QTY"}, {{"N1", 3, -2.25}}});
    Quantities quantities;
    EXPECT_EQ(order_quantities(each.client("CTranDetail"), "N1", 3, quantities, "PO"), done);
    EXPECT_EQ(quantities, (Quantities{12.5, 7.0, -2.25}));
    EXPECT_EQ(each.database_calls(),
              opened + asked(ordered) + asked(received) + asked(returned) + "C1.Close\n");
    EXPECT_EQ(each.rights_calls().find("PowerCheck"), std::string::npos);
  }
}

TEST_P(OrderReferenceChecks, NegateTheQuantityOfAnyOtherDocument) {
  for (const Value& type : {Value("po"), Value("PO "), Value("SO"), Value(""), omitted}) {
    Stage each(GetParam(), no_order);
    each.finds(moved, {{"TRANNO", "SN", "POQTY"}, {{"N1", 3, -4}}});
    Quantities quantities;
    EXPECT_EQ(order_quantities(each.client("CTranDetail"), "N1", 3, quantities, type), done);
    EXPECT_EQ(quantities, (Quantities{4.0, 0.0, 0.0})) << stage::shown(type);
    EXPECT_EQ(each.database_calls(),
              opened + asked(moved) + asked(received) + asked(returned) + "C1.Close\n");
  }
}

TEST_P(OrderReferenceChecks, CountNothingAsZero) {
  for (const char* type : {"PO", ""}) {
    Quantities quantities;
    EXPECT_EQ(order_quantities(client(), "N1", 3, quantities, type), done);
    EXPECT_EQ(quantities, (Quantities{0.0, 0.0, 0.0}));
    EXPECT_FALSE(std::signbit(automation::to_double(quantities.ordered)));
  }
}

TEST_P(OrderReferenceChecks, TakeLineNumbersOfThirtyTwoBits) {
  for (std::string query : {ordered, received, returned}) {
    query.replace(query.find("'N1'"), 4, "'N'1'");
    stage.finds_nothing(query.replace(query.find("SN=3"), 4, "SN=-2147483648"));
  }
  Quantities quantities;
  EXPECT_EQ(order_quantities(client(), "N'1", -2147483647 - 1, quantities, "PO"), done);
  EXPECT_TRUE(
      tells("R1.Open Select PODT.PONO,PODT.PARTNO,PODT.POQTY+PODT.DEDUCTQTY As POQTY From PODT Inner "
            "Join POHD On PODT.PONO=POHD.PONO Where PODT.PONO='N'1' AND PODT.SN=-2147483648 And "
            "POHD.STATUSSN=1 | C1 3 1 -1"))
      << stage.transcript();
}

TEST_P(OrderReferenceChecks, HandBackWhatWasFoundBeforeAFailure) {
  const struct {
    const char* failing;
    Quantities quantities;
  } rows[] = {{"C1.Open", {-1.0, -1.0, -1.0}},
              {"From PODT", {-1.0, -1.0, -1.0}},
              {"'STK010POREV'", {12.0, -1.0, -1.0}},
              {"'STK010PORTN'", {12.0, 7.0, -1.0}},
              {"C1.Close", {12.0, 7.0, 0.0}}};
  for (const auto& [failing, expected] : rows) {
    Stage each(GetParam(), no_order);
    each.finds(ordered, {{"POQTY"}, {{12}}}).finds(received, {{"QTY"}, {{7}}});
    each.fails(failing, Error(-2147217900, "bad"));
    Quantities quantities;
    EXPECT_EQ(order_quantities(each.client("CTranDetail"), "N1", 3, quantities, "PO"),
              trapped(-2147217900, "bad"));
    EXPECT_EQ(quantities, expected) << failing;
    EXPECT_TRUE(each.database_calls().ends_with(" ! bad\n")) << failing;
  }
}

TEST_P(OrderReferenceChecks, AQuantityThatIsNoNumberEndsInTheTrap) {
  const struct {
    Value quantity;
    Outcome outcome;
  } rows[] = {{Null{}, trapped(94, "Invalid use of Null")},
              {"much", trapped(13, "Type mismatch")},
              {"12.5", done},
              {automation::Currency{125000}, done}};
  for (const auto& [quantity, outcome] : rows) {
    Stage each(GetParam(), no_order);
    each.finds(ordered, {{"POQTY"}, {{quantity}}});
    Quantities quantities;
    EXPECT_EQ(order_quantities(each.client("CTranDetail"), "N1", 3, quantities, "PO"), outcome);
    EXPECT_EQ(quantities.ordered, Value(outcome == done ? 12.5 : -1.0));
  }
}

TEST_P(OrderReferenceChecks, TellPurchaseOrdersFromPurchaseReturns) {
  const struct {
    bool order;
    bool return_document;
    double kind;
    std::string calls;
  } rows[] = {{true, true, 1, asked(purchase_order)},
              {true, false, 1, asked(purchase_order)},
              {false, true, 2, asked(purchase_order) + asked(purchase_return)},
              {false, false, 0, asked(purchase_order) + asked(purchase_return)}};
  for (const auto& [order, return_document, kind, calls] : rows) {
    Stage each(GetParam(), no_order);
    if (order) each.finds(purchase_order, {{"PONO"}, {{"N1"}}});
    if (return_document) each.finds(purchase_return, {{"TRANNO"}, {{"N1"}}});
    const Object detail = each.client("CTranDetail");
    const Value result = detail.call("POExam", "N1");
    EXPECT_TRUE(result.holds<std::int16_t>());
    EXPECT_EQ(outcome_of(detail, result), (Outcome{kind, 0, ""}));
    EXPECT_EQ(each.database_calls(), opened + calls + "C1.Close\n");
    EXPECT_EQ(each.rights_calls().find("PowerCheck"), std::string::npos);
  }
}

TEST_P(OrderReferenceChecks, AFailingExaminationIsZero) {
  stage.finds(purchase_order, {{"PONO"}, {{"N1"}}}).fails("C1.Close", Error(-2147217900, "bad"));
  const Object detail = client();
  EXPECT_EQ(outcome_of(detail, detail.call("POExam", "N1")), trapped(-2147217900, "bad"));
}

TEST_P(OrderReferenceChecks, TellSalesOrdersFromProductionOrders) {
  const struct {
    bool sales;
    bool production;
    const char* kind;
    std::string calls;
  } rows[] = {{true, true, "SO", asked(sales_order)},
              {true, false, "SO", asked(sales_order)},
              {false, true, "MO", asked(sales_order) + asked(production_order)},
              {false, false, "", asked(sales_order) + asked(production_order)}};
  for (const auto& [sales, production, kind, calls] : rows) {
    Stage each(GetParam(), no_order);
    if (sales) each.finds(sales_order, {{"SONO"}, {{"N1"}}});
    if (production) each.finds(production_order, {{"CONO"}, {{"N1"}}});
    const Object detail = each.client("CTranDetail");
    EXPECT_EQ(detail.call("OrderTypeExam", "N1"), Value(kind));
    EXPECT_EQ(outcome_of(detail, 0), (Outcome{0, 0, ""}));
    EXPECT_EQ(each.database_calls(), opened + calls + "C1.Close\n");
  }
}

TEST_P(OrderReferenceChecks, AFailingOrderTypeIsEmpty) {
  stage.finds(sales_order, {{"SONO"}, {{"N1"}}}).fails("C1.Close", Error(-2147217900, "bad"));
  const Object detail = client();
  EXPECT_EQ(detail.call("OrderTypeExam", "N1"), Value(""));
  EXPECT_EQ(outcome_of(detail, 0), trapped(-2147217900, "bad"));
}

}  // namespace
}  // namespace tallyra::transactions_test
