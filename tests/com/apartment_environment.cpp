#include <gtest/gtest.h>

#include <optional>

#include "automation/apartment.h"

// Every test of this program runs in an apartment of its own, as a client's code does from its beginning to
// its end.
namespace {

class ApartmentOfTest : public testing::EmptyTestEventListener {
 public:
  void OnTestStart(const testing::TestInfo&) override { apartment_.emplace(); }
  void OnTestEnd(const testing::TestInfo&) override { apartment_.reset(); }

 private:
  std::optional<tallyra::automation::Apartment> apartment_;
};

[[maybe_unused]] const bool listens = [] {
  testing::UnitTest::GetInstance()->listeners().Append(new ApartmentOfTest);
  return true;
}();

}  // namespace
