#include "tests/behaviour/transactions/company.h"

namespace tallyra::transactions_test {
namespace {

using stage::done;

class OrderReferences : public Company {
 protected:
  void order(const char* number, int status) const {
    const std::string key = std::string("Values('") + number + "',";
    given({"Insert Into POHD(PONO,STATUSSN) " + key + std::to_string(status) + ")",
           "Insert Into PODT(PONO,SN,PARTNO,POQTY,DEDUCTQTY) " + key + "1,'A',10,2.5)",
           "Insert Into PODT(PONO,SN,PARTNO,POQTY,DEDUCTQTY) " + key + "2,'B',99,Null)"});
  }
  void document(const char* number, const char* type, int status, const char* reference, int sn,
                double quantity, const char* part = "A") const {
    given({std::string("Insert Into STKTRANHD(TRANNO,TRANTYPE,STATUSSN) Values('") + number + "','" + type +
               "'," + std::to_string(status) + ")",
           std::string("Insert Into STKTRANDT(TRANNO,REFERENCE,SN,PARTNO,QTY) Values('") + number + "','" +
               reference + "'," + std::to_string(sn) + ",'" + part + "'," + std::to_string(quantity) + ")"});
  }
  double issued(const char* type, const Value& kind = omitted, const char* document = "NEW") const {
    const Outcome outcome = issued_or_returned(detail(), document, "M1", "A", type, kind);
    EXPECT_EQ(outcome.number, 0);
    return outcome.result;
  }
};
TALLYRA_ON_BOTH_KINDS(OrderReferences);

TEST_P(OrderReferences, TellWhatIsOrderedReceivedAndReturned) {
  order("PO1", 1);
  document("T1", "STK010POREV", 1, "PO1", 1, 4);
  document("T2", "STK010POREV", 1, "PO1", 1, 3.25);
  document("T3", "STK010POREV", 0, "PO1", 1, 100);
  document("T4", "STK010POREV", 1, "PO1", 2, 100);
  document("T5", "STK010POREV", 1, "PO2", 1, 100);
  document("T6", "STK010PORTN", 1, "PO1", 1, -1.5);
  document("T7", "STK010PORTN", 3, "PO1", 1, -100);
  document("T8", "STK011PORTN", 1, "PO1", 1, -100);
  Quantities quantities;
  EXPECT_EQ(order_quantities(detail(), "PO1", 1, quantities, "PO"), done);
  EXPECT_EQ(quantities, (Quantities{12.5, 7.25, -1.5}));
}

TEST_P(OrderReferences, OfAnOrderThatIsNotApprovedAreZero) {
  order("PO1", 0);
  Quantities quantities;
  EXPECT_EQ(order_quantities(detail(), "PO1", 1, quantities, "PO"), done);
  EXPECT_EQ(quantities, (Quantities{0.0, 0.0, 0.0}));
}

TEST_P(OrderReferences, OfAnyOtherTypeAreReadFromADocumentAndNegated) {
  order("PO1", 1);
  document("PO1", "STK011PORTN", 1, "X", 1, -6);
  Quantities quantities;
  for (const Value& type : {Value("po"), Value(""), omitted}) {
    EXPECT_EQ(order_quantities(detail(), "PO1", 1, quantities, type), done);
    EXPECT_EQ(quantities.ordered, Value(6.0));
  }
}

TEST_P(OrderReferences, WithoutADeductionHaveNoQuantity) {
  order("PO1", 1);
  Quantities quantities;
  EXPECT_EQ(order_quantities(detail(), "PO1", 2, quantities, "PO"), Failure{94});
  EXPECT_EQ(quantities, (Quantities{}));
}

TEST_P(OrderReferences, WithAnApostropheFail) {
  Quantities quantities;
  EXPECT_EQ(order_quantities(detail(), "P'1", 1, quantities), syntax_error);
  const Object object = detail();
  EXPECT_EQ(outcome_of(object, object.call("POExam", "P'1")), syntax_error);
  EXPECT_EQ(object.call("OrderTypeExam", "P'1"), Value(""));
  EXPECT_EQ(outcome_of(object, 0), syntax_error);
}

TEST_P(OrderReferences, TellOrdersFromReturns) {
  order("BOTH", 0);
  document("BOTH", "STK011PORTN", 0, "", 1, 1);
  document("RETURN", "STK011PORTN", 0, "", 1, 1);
  document("RECEIPT", "STK010POREV", 0, "", 1, 1);
  document("READ", "STK010PORTN", 0, "", 1, 1);
  const Object object = detail();
  for (const auto& [number, kind] : {std::pair{"BOTH", 1}, std::pair{"RETURN", 2}, std::pair{"RECEIPT", 0},
                                     std::pair{"READ", 0}, std::pair{"", 0}})
    EXPECT_EQ(outcome_of(object, object.call("POExam", number)), (Outcome{static_cast<double>(kind), 0, ""}))
        << number;
}

TEST_P(OrderReferences, TellSalesOrdersFromProductionOrders) {
  given({"Insert Into SOHD(SONO) Values('BOTH')", "Insert Into COHD(CONO) Values('BOTH')",
         "Insert Into COHD(CONO) Values('MADE')"});
  const Object object = detail();
  for (const auto& [number, kind] : {std::pair{"BOTH", "SO"}, std::pair{"MADE", "MO"}, std::pair{"NONE", ""}})
    EXPECT_EQ(object.call("OrderTypeExam", number), Value(kind)) << number;
}

TEST_P(OrderReferences, TellWhatOtherDocumentsHaveIssuedAndTakenBack) {
  EXPECT_EQ(issued("STK020MISS"), 0);
  document("I1", "STK020MISS", 1, "M1", 1, -3);
  document("I2", "STK020MISS", 0, "M1", 1, -2);
  document("I3", "STK020MISS", 3, "M1", 1, -100);
  document("I4", "STK020MISS", 1, "M2", 1, -100);
  document("I5", "STK020MISS", 1, "M1", 1, -100, "B");
  document("B1", "STK021RTN1", 1, "M1", 1, 2);
  document("B2", "STK021RTN1", 3, "M1", 1, 100);
  document("S1", "STK020MISSSO", 1, "M1", 1, -7);
  document("S2", "STK021RTNSO", 1, "M1", 1, 1);
  EXPECT_EQ(issued("STK020MISS"), 3);
  EXPECT_EQ(issued("STK020MISS", "STK020MISS"), 5);
  EXPECT_EQ(issued("STK020MISS", "STK021RTN1"), -5);
  EXPECT_EQ(issued("STK021RTN1", "STK021RTN1"), 2);
  EXPECT_EQ(issued("STK020MISSSO"), 6);
  EXPECT_EQ(issued("STK020MISSSO", "STK020MISS"), 7);
  EXPECT_EQ(issued("STK020MISS", "anything"), 0);
  EXPECT_EQ(issued("STK020MISS", omitted, "I1"), 0);
  EXPECT_EQ(issued("STK020MISS", omitted, "B1"), 5);
}

TEST_P(OrderReferences, TellNothingOfAnErrorWhileAskingForIssues) {
  document("I1", "STK020MISS", 1, "M1", 1, -3);
  const Object object = detail();
  EXPECT_EQ(issued_or_returned(object, "T'1", "M1", "A", "STK020MISS"), (Outcome{0, 0, ""}));
}

}  // namespace
}  // namespace tallyra::transactions_test
