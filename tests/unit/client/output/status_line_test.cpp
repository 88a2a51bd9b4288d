#include "client/output/status_line.h"

#include <gtest/gtest.h>

#include <sstream>

namespace tallyra::client {
namespace {

TEST(StatusLine, IsDrawnOverWithBlanksWhereItWasLonger) {
  std::ostringstream out;
  StatusLine line(out, 80);
  line.show("12 of 100");
  line.show("done");
  EXPECT_EQ(out.str(), "\r12 of 100\rdone     ");
}

TEST(StatusLine, IsDrawnOnceForOneText) {
  std::ostringstream out;
  StatusLine line(out, 80);
  line.show("same");
  line.show("same");
  EXPECT_EQ(out.str(), "\rsame");
}

TEST(StatusLine, StaysShortOfTheEdge) {
  std::ostringstream out;
  StatusLine line(out, 6);
  line.show("0123456789");
  EXPECT_EQ(out.str(), "\r01234");
}

TEST(StatusLine, LeavesAnEmptyLineWhenItIsCleared) {
  std::ostringstream out;
  StatusLine line(out, 80);
  line.clear();
  EXPECT_EQ(out.str(), "") << "nothing was there";
  line.show("text");
  out.str("");
  line.clear();
  EXPECT_EQ(out.str(), "\r    \r");
}

}  // namespace
}  // namespace tallyra::client
