#include "transactions/tran_detail_bill_of_materials.h"

#include <gtest/gtest.h>

#include "automation/error.h"

namespace tallyra::transactions {
namespace {

TEST(BillOfMaterialsTest, AddsUpEveryPlaceWhereAPartIsUsed) {
  BillOfMaterials bill;
  bill.order("CHAIR", 2);
  bill.order("SCREW", 5);
  bill.add("CHAIR", "LEG", 4);
  bill.add("CHAIR", "SEAT", 1);
  bill.add("LEG", "SCREW", 3);
  bill.add("SEAT", "SCREW", 2.5);
  bill.add("CHAIR", "SCREW", 1);
  EXPECT_EQ(bill.requirement("CHAIR"), 2);
  EXPECT_EQ(bill.requirement("LEG"), 8);
  EXPECT_EQ(bill.requirement("SEAT"), 2);
  EXPECT_EQ(bill.requirement("SCREW"), 5 + 8 * 3 + 2 * 2.5 + 2);
  EXPECT_EQ(bill.requirement("GLUE"), std::nullopt);
}

TEST(BillOfMaterialsTest, ALineThatIsThereTwiceCountsTwice) {
  BillOfMaterials bill;
  bill.order("A", 1);
  bill.order("A", 1);
  bill.add("A", "B", 2);
  bill.add("A", "B", 3);
  EXPECT_EQ(bill.requirement("B"), 10);
}

TEST(BillOfMaterialsTest, NumbersPartsInTheOrderTheyComeUp) {
  BillOfMaterials bill;
  bill.order("B", 1);
  bill.order("A", 1);
  bill.add("A", "C", 1);
  bill.add("B", "A", 1);
  ASSERT_EQ(bill.parts(), 3U);
  EXPECT_EQ(bill.part(0) + bill.part(1) + bill.part(2), "BAC");
}

TEST(BillOfMaterialsTest, AWideDiamondIsNoCycleAndIsCountedOncePerPath) {
  BillOfMaterials bill;
  bill.order("0", 1);
  // Two lines from each level to the next: 2^60 paths, 61 parts.
  for (int level = 0; level < 60; ++level) {
    bill.add(std::to_string(level), std::to_string(level + 1), 1);
    bill.add(std::to_string(level), std::to_string(level + 1), 1);
  }
  EXPECT_EQ(bill.requirement("60"), 1152921504606846976.0);
}

TEST(BillOfMaterialsTest, AVeryDeepBillNeedsNoDeepStack) {
  BillOfMaterials bill;
  bill.order("0", 3);
  for (int level = 0; level < 200000; ++level) bill.add(std::to_string(level), std::to_string(level + 1), 1);
  EXPECT_EQ(bill.requirement("200000"), 3);
}

TEST(BillOfMaterialsTest, ACycleIsNamedWhateverPartIsAskedFor) {
  const struct {
    std::vector<std::pair<const char*, const char*>> lines;
    const char* description;
  } rows[] = {
      {{{"A", "A"}}, "The bill of materials of A contains itself: A > A."},
      {{{"A", "B"}, {"B", "A"}}, "The bill of materials of B contains itself: B > A > B."},
      {{{"A", "B"}, {"B", "C"}, {"C", "B"}}, "The bill of materials of C contains itself: C > B > C."},
      {{{"A", "B"}, {"B", "C"}, {"C", "D"}, {"D", "B"}, {"D", "E"}, {"A", "E"}},
       "The bill of materials of D contains itself: D > B > C > D."},
  };
  for (const auto& [lines, description] : rows) {
    BillOfMaterials bill;
    bill.order("A", 1);
    bill.order("X", 1);
    for (const auto& [assembly, component] : lines) bill.add(assembly, component, 1);
    for (const char* part : {"A", "X", "nowhere"}) try {
        bill.requirement(part);
        ADD_FAILURE() << description;
      } catch (const automation::Error& error) {
        EXPECT_EQ(error.number(), 28);
        EXPECT_EQ(error.description(), description);
      }
  }
}

TEST(BillOfMaterialsTest, LeavesABillOutThatComesAgain) {
  BillOfMaterials bill;
  bill.order("a1", 1);
  bill.add("A1", "B", 2);
  bill.add("a1", "A1", 1);
  bill.add("A1", "C", 1);
  bill.next_lot();
  bill.add("A1", "B", 2);
  bill.add("B", "D", 1);
  bill.next_lot();
  bill.add("A1", "B", 2);
  bill.add("B", "D", 1);
  bill.add("D", "E", 3);
  EXPECT_EQ(bill.requirement("B"), 2);
  EXPECT_EQ(bill.requirement("D"), 2);
  EXPECT_EQ(bill.requirement("E"), 6);
}

TEST(BillOfMaterialsTest, FindsTwoSpellingsOfAPart) {
  BillOfMaterials bill;
  bill.order("a1", 1);
  bill.order("B", 1);
  bill.order(" a1", 1);
  EXPECT_FALSE(bill.two_spellings("B"));
  EXPECT_FALSE(bill.two_spellings("nowhere"));
  const auto asked = bill.two_spellings("A1");
  ASSERT_TRUE(asked);
  EXPECT_EQ(asked->one + "," + asked->other, "A1,a1");
  for (const char* spelling : {"b", "B ", "b  "}) {
    BillOfMaterials other;
    other.order("B", 1);
    other.add("B", spelling, 1);
    const auto held = other.two_spellings("B");
    ASSERT_TRUE(held);
    EXPECT_EQ(held->one + "," + held->other, std::string("B,") + spelling);
  }
}

TEST(BillOfMaterialsTest, UnitesSpellings) {
  BillOfMaterials bill;
  bill.order("Chair", 2);
  bill.order("SCREW", 5);
  bill.add("CHAIR", "leg", 4);
  bill.add("chair", "screw", 1);
  bill.add("Leg ", "Screw", 3);
  bill.unite_spellings();
  EXPECT_EQ(bill.requirement("chair"), 2);
  EXPECT_EQ(bill.requirement("LEG"), 8);
  EXPECT_EQ(bill.requirement("screw "), 5 + 2 + 8 * 3);
  EXPECT_EQ(bill.requirement("glue"), std::nullopt);
  EXPECT_FALSE(bill.two_spellings("SCREW") && bill.two_spellings("Screw"));
}

TEST(BillOfMaterialsTest, ACycleMayRunThroughTwoSpellings) {
  BillOfMaterials bill;
  bill.order("A", 1);
  bill.add("A", "b", 1);
  bill.add("B", "a", 1);
  EXPECT_EQ(bill.requirement("b"), 1);
  bill.unite_spellings();
  EXPECT_THROW(bill.requirement("b"), automation::Error);
}

TEST(BillOfMaterialsTest, AnEmptyOrderRequiresNothing) {
  EXPECT_EQ(BillOfMaterials().requirement("A"), std::nullopt);
}

}  // namespace
}  // namespace tallyra::transactions
