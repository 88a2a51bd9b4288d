#include <gtest/gtest.h>

#include <optional>

#include "automation/apartment.h"

// Every test of this program runs in an apartment, as a client's code does.
namespace {

class ApartmentEnvironment : public testing::Environment {
 public:
  void SetUp() override { apartment_.emplace(); }
  void TearDown() override { apartment_.reset(); }

 private:
  std::optional<tallyra::automation::Apartment> apartment_;
};

[[maybe_unused]] auto* const environment = testing::AddGlobalTestEnvironment(new ApartmentEnvironment);

}  // namespace
