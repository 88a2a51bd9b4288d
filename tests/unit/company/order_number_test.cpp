#include "company/order_number.h"

#include <gtest/gtest.h>

namespace {

using namespace tallyra::company;
using namespace std::chrono_literals;

TEST(OrderNumber, CountsOnWithinItsSeriesWhateverTheMonth) {
  int last = 16;
  EXPECT_EQ(order_number("PO", Day{2024y / 1 / 31}, last), "PO2401-00017");
  EXPECT_EQ(order_number("PO", Day{2024y / 2 / 1}, last), "PO2402-00018");
  EXPECT_EQ(last, 18);
}

TEST(OrderNumber, GrowsWhereFivePlacesDoNotDo) {
  int last = 99'999;
  EXPECT_EQ(order_number("SO", Day{2024y / 1 / 31}, last), "SO2401-100000");
}

}  // namespace
