#include "company/naming.h"

#include <gtest/gtest.h>

#include <set>

#include "company/masters.h"

namespace {

using namespace tallyra::company;

TEST(Naming, PartNumbersAreApartWhateverStandsAroundTheirDigits) {
  Random random(1);
  std::set<std::string> digits;
  for (int index = 0; index < 1000; ++index) {
    const std::string number = part_number(index % 3 + 1, index, random);
    const auto first = number.find_first_of("0123456789");
    ASSERT_NE(first, number.npos);
    EXPECT_EQ(number.find('\''), number.npos) << number;
    digits.insert(number.substr(first, 5));
  }
  EXPECT_EQ(digits.size(), 1000U);
  EXPECT_TRUE(digits.contains("00001"));
  EXPECT_TRUE(digits.contains("01000"));
}

TEST(Naming, PartsAreNamedAfterWhatTheyAre) {
  Random random(1);
  for (int round = 0; round < 50; ++round) {
    EXPECT_TRUE(part_name(raw_material, random).ends_with(" mm"));
    const std::string product = part_name(finished_product, random);
    EXPECT_EQ(product[product.size() - 4], 'T') << product;
    EXPECT_FALSE(part_name(semi_finished, random).ends_with(" mm"));
  }
}

TEST(Naming, ThereAreMoreDepartmentsThanNames) {
  EXPECT_EQ(department_name(0), "Raw Material Store");
  EXPECT_EQ(department_name(11), "Returns");
  EXPECT_EQ(department_name(12), "Warehouse 13");
  EXPECT_EQ(numbered("S", 1001), "S1001");
}

TEST(Naming, SuppliersAreNumberedFromOne) {
  Random random(1);
  EXPECT_TRUE(supplier_name(0, random).ends_with(" No. 1"));
  EXPECT_TRUE(supplier_name(41, random).ends_with(" No. 42"));
}

}  // namespace
