#include "server/class_table.h"

#include <gtest/gtest.h>

#include "automation/convert.h"
#include "tests/support/stage.h"

// What clients were compiled against: never to change.
namespace tallyra::server {
namespace {

std::string_view word(ParameterType type) {
  switch (type) {
    case ParameterType::text: return "text";
    case ParameterType::collection: return "collection";
    case ParameterType::variant: return "variant";
    case ParameterType::int16: return "int16";
    case ParameterType::int32: return "int32";
    case ParameterType::float64: return "double";
  }
  return "?";
}

std::string_view word(ResultType type) {
  switch (type) {
    case ResultType::none: return "";
    case ResultType::text: return ": text";
    case ResultType::single: return ": single";
    case ResultType::float64: return ": double";
    case ResultType::int16: return ": int16";
    case ResultType::variant: return ": variant";
    case ResultType::object: return ": object";
  }
  return "?";
}

std::string_view word(MemberKind kind) {
  switch (kind) {
    case MemberKind::method: return "";
    case MemberKind::property_get: return "get ";
    case MemberKind::property_put: return "put ";
  }
  return "?";
}

// "13 Insert(pCloseDT variant, &colFieldName collection): single", "&" for by reference, "=" for a default.
std::string described(const ClassTable& table, bool methods) {
  std::string text;
  for (const auto& member : table.members) {
    if ((member.kind == MemberKind::method) != methods) continue;
    text += std::to_string(member.id) + " ";
    text.append(word(member.kind)).append(member.name).append("(");
    for (const auto& parameter : member.parameters) {
      if (&parameter != &member.parameters.front()) text += ", ";
      if (parameter.by_reference) text += "&";
      text.append(parameter.name).append(" ").append(word(parameter.type));
      if (parameter.optional()) text += " = " + stage::shown(parameter.when_omitted);
    }
    text.append(")").append(word(member.result)).append("\n");
  }
  return text;
}

std::string methods_of(std::string_view name) {
  for (const auto& table : classes())
    if (table.name == name) return described(table, true);
  return "no such class";
}

TEST(ClassTables, EveryClassHasTheSessionProperties) {
  EXPECT_EQ(classes().size(), 10U);
  for (const auto& table : classes())
    EXPECT_EQ(described(table, false),
              "1 put Language(value text)\n"
              "2 put SystemDatabase(value text)\n"
              "3 get ErrNumber(): single\n"
              "4 get ErrDescription(): text\n"
              "5 put UserID(value text)\n"
              "6 put ConnectionString(value text)\n")
        << table.name;
}

// What a browser of objects shows: a sentence for every class, member, parameter and result.
TEST(ClassTables, EverythingHasItsHelp) {
  for (const auto& table : classes()) {
    SCOPED_TRACE(table.name);
    for (const auto text : {table.about.help, table.about.registered_as, table.about.purpose})
      EXPECT_FALSE(text.empty());
    for (const auto& member : table.members) {
      EXPECT_FALSE(member.help.empty()) << member.name;
      EXPECT_EQ(member.result_help.empty(), member.result == ResultType::none) << member.name;
      for (const auto& parameter : member.parameters)
        EXPECT_FALSE(parameter.help.empty()) << member.name << "." << parameter.name;
    }
  }
}

TEST(ClassTables, RecordClassesTakeTheirKeyByReference) {
  const struct {
    const char* name;
    std::string key;
  } rows[] = {{"CRevAddr", "&cAddrNo text"}, {"CSTKController", "&cCONTROLLERNO text"}};
  for (const auto& [name, key] : rows)
    EXPECT_EQ(methods_of(name), "11 Read(" + key +
                                    ", &colFieldName collection, &colFieldValue collection): single\n"
                                    "12 Update(" +
                                    key +
                                    ", &colFieldName collection, &colFieldValue collection): single\n"
                                    "13 Insert(" +
                                    key +
                                    ", &colFieldName collection, &colFieldValue collection): single\n"
                                    "14 Delete(" +
                                    key + "): single\n");
}

TEST(ClassTables, StockClose) {
  EXPECT_EQ(methods_of("CStockClose"),
            "11 Read(pCloseDT text, &colFieldName collection, &colFieldValue collection): single\n"
            "12 Update(pCloseDT text, &colFieldName collection, &colFieldValue collection, &strOprTag text): "
            "single\n"
            "13 Insert(pCloseDT variant, &colFieldName collection, &colFieldValue collection): single\n"
            "14 Delete(pCloseDT variant): single\n"
            "15 STKMonthCloseDept(&cCloseID text, &cCloseDT text, &cDeptNo text): single\n"
            "16 STKMonthClose(&cCloseID text, &cCloseDT text): single\n");
}

TEST(ClassTables, TransactionHead) {
  EXPECT_EQ(
      methods_of("CTranHead"),
      "11 Read(&cTRANNO text, &cTranType text, &colFieldName collection, &colFieldValue collection): single\n"
      "12 Update(cTRANNO text, &cTranType text, &colFieldName collection, &colFieldValue collection, "
      "&strOprTag "
      "text): single\n"
      "13 Insert(cTRANNO text, &cTranType text, &colFieldName collection, &colFieldValue collection, "
      "&pCopyID "
      "text = ''): single\n"
      "14 Delete(cTRANNO text, &cTranType text): single\n"
      "15 ValidCloseDT(vTranDT variant): variant\n");
}

TEST(ClassTables, TransactionDetail) {
  EXPECT_EQ(
      methods_of("CTranDetail"),
      "11 Read(&cTRANNO text, &cReference text, &cPartNo text, &colFieldName collection, &colFieldValue "
      "collection, "
      "&intSN int32 = -1): single\n"
      "12 Update(&cTRANNO text, &cTranType text, &cReference text, &cPartNo text, &colFieldName collection, "
      "&colFieldValue collection, &intSN int32 = -1): single\n"
      "13 Insert(&cTRANNO text, &cTranType text, &cReference text, &cPartNo text, &colFieldName collection, "
      "&colFieldValue collection, &intSN int32 = -1): single\n"
      "14 Delete(&cTRANNO text, &cTranType text, &cReference text, &cPartNo text, &intSN int32 = -1): "
      "single\n"
      "15 InsertRTN(cTRANNO text, &intSN int16, &colFieldName collection, &colFieldValue collection, "
      "&iRTNType int16 "
      "= 0): single\n"
      "16 UpdateRTN(cTRANNO text, &intSN int16, &colFieldName collection, &colFieldValue collection): "
      "single\n"
      "17 PORefQty(&cReference text, &intSN int32, &nPOQty double, &nRevQty double, &nRtnQty double, &cType "
      "text = "
      "''): double\n"
      "18 POExam(cOrderNO text): int16\n"
      "19 OrderTypeExam(cOrderNO text): text\n"
      "20 IssuedOrRtnQty(cTRANNO text, &cMONO text, &cPartNo text, &cTranType text, &cType text = ''): "
      "double\n"
      "21 GetMRPQty(cMONO text, &cPartNo text, &cTranType text = ''): double\n");
}

TEST(ClassTables, StockCheck) {
  EXPECT_EQ(methods_of("CCheckHead"),
            "11 Read(&cCHECKNO text, &colFieldName collection, &colFieldValue collection): single\n"
            "12 Update(cCHECKNO text, &colFieldName collection, &colFieldValue collection, &strOprTag text): "
            "single\n"
            "13 Insert(cCHECKNO text, &colFieldName collection, &colFieldValue collection): single\n"
            "14 Delete(cCHECKNO text): single\n"
            "15 ValidCloseDT(vTranDT variant): variant\n");
  EXPECT_EQ(
      methods_of("CCheckDetail"),
      "11 Read(&cCHECKNO text, &cPartNo text, &colFieldName collection, &colFieldValue collection): single\n"
      "12 Update(&cCHECKNO text, &cPartNo text, &colFieldName collection, &colFieldValue collection): "
      "single\n"
      "13 Insert(&cCHECKNO text, &cPartNo text, &colFieldName collection, &colFieldValue collection): "
      "single\n"
      "14 Delete(&cCHECKNO text, &cPartNo text): single\n");
  EXPECT_EQ(methods_of("CStkrptFuns"), "15 GetCheckBalance(cSQL text): object\n");
}

TEST(ClassTables, CostSettingsAndShippingNotes) {
  EXPECT_EQ(
      methods_of("CPartCostSet"),
      "11 Read(&iMTypeSN int32, &colFieldName collection, &colFieldValue collection): single\n"
      "12 Update(iMTypeSN int32, &colFieldName collection, &colFieldValue collection, &strOprTag text = ''): "
      "single\n"
      "13 Insert(iMTypeSN int32, &colFieldName collection, &colFieldValue collection): single\n"
      "14 Delete(iMTypeSN int32): single\n");
  EXPECT_EQ(methods_of("CStkShipNote"),
            "11 Read(&cTRANNO text, &colFieldName collection, &colFieldValue collection): single\n"
            "12 Update(cTRANNO text, &colFieldName collection, &colFieldValue collection): single\n"
            "13 Insert(cTRANNO text, &colFieldName collection, &colFieldValue collection): single\n"
            "14 Delete(cTRANNO text): single\n");
}

}  // namespace
}  // namespace tallyra::server
