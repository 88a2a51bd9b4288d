#include "bench/figures.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>

namespace tallyra::bench {
namespace {

Scenario scenario_of(const char* work, const char* size) {
  Scenario scenario;
  scenario.work = work;
  scenario.size = size;
  return scenario;
}

Comparison result_of(double component, double odbc, double prepared) {
  Comparison result;
  result.component.add({component, 8, 0});
  result.replays[Against::odbc].add({odbc, 6.5, 0});
  result.replays[Against::prepared].add({prepared, 6, 0});
  result.rows = 12'345;
  return result;
}

TEST(Figures, AreATableForADocumentWithWhatIsMissingLeftOut) {
  Figures figures(Hold::goal);
  figures.add(scenario_of("of its own", "small"), result_of(2, 4, 1));
  EXPECT_EQ(
      figures.markdown(),
      "| work | size | before | component | to ODBC | to text | prepared | limits | rows | rows/s | peak "
      "| replay's |\n"
      "|---|---|---:|---:|---:|---:|---:|---:|---:|---:|---:|---:|\n"
      "| of its own | small | | 2.00 s | 0.50 | | 2.00 | | 12,345 | 6,172 | 8.0 MB | 6.5 MB |\n");
}

TEST(Figures, NameTheLimitsThatTheRunIsHeldTo) {
  Figures figures(Hold::goal);
  const std::string line =
      figures.add(scenario_of("month close", "5 x 200 x 5,000"), result_of(0.0123, 0.01, 0.01));
  EXPECT_NE(line.find("0.80; 1.15"), std::string::npos) << line;
  EXPECT_NE(line.find("0.012 s"), std::string::npos) << line;
}

TEST(Figures, HaveGrowthAndMemoryBehindTheTable) {
  Figures figures(Hold::now);
  EXPECT_EQ(
      figures.add(Growth{"parts", "2 x 60 x 100", 1.52, 1.5, 1.55}),
      "twice as many parts, 2 x 60 x 100: 1.52 times as long, the replay through ODBC 1.50, prepared 1.55");
  const std::string sentence =
      "Over 10,000 record calls, after as many before them, peak memory grew by 4 KB.";
  EXPECT_EQ(figures.add_record_calls(10'000, 4), sentence);
  const std::string text = figures.markdown();
  EXPECT_NE(text.find("\n| parts | 2 x 60 x 100 | 1.52 | 1.50 | 1.55 |\n\n" + sentence + "\n"),
            std::string::npos)
      << text;
}

TEST(Figures, HoldTheVerbsThatLookAgainstTheClose) {
  Figures figures(Hold::now);
  EXPECT_EQ(figures.add(LookShare{"check", "small", 0.25, 0.5, 0.6}),
            "check, small: 0.250 s, 0.50 of the time of the close");
  EXPECT_NE(figures.markdown().find("| check | small | 0.250 s | 0.50 |"), std::string::npos)
      << figures.markdown();
}

TEST(Figures, MeasuredAgainTakeThePlaceOfTheFirst) {
  Figures twice(Hold::now);
  Figures once(Hold::now);
  for (Figures* const figures : {&twice, &once}) {
    if (figures == &twice) {
      figures->add(scenario_of("a", "small"), result_of(9, 4, 1));
      figures->add(Growth{"parts", "small", 9, 1, 1});
      figures->add_record_calls(10, 9);
    }
    figures->add(scenario_of("b", "small"), result_of(3, 4, 1));
    figures->add(scenario_of("a", "small"), result_of(2, 4, 1));
    figures->add(Growth{"parts", "small", 1, 1, 1});
    figures->add_record_calls(10, 4);
  }
  const auto lines_of = [](const std::string& text) {
    std::multiset<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.insert(line);
    return lines;
  };
  EXPECT_EQ(lines_of(twice.markdown()), lines_of(once.markdown()));
}

TEST(WithCommas, PartsThousands) {
  EXPECT_EQ(with_commas(0), "0");
  EXPECT_EQ(with_commas(999), "999");
  EXPECT_EQ(with_commas(1'000), "1,000");
  EXPECT_EQ(with_commas(1'234'567), "1,234,567");
}

}  // namespace
}  // namespace tallyra::bench
