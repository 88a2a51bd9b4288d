#include <gtest/gtest.h>

#include "tests/com/client_objects.h"
#include "tests/com/own_apartment.h"
#include "tests/com/wire_call.h"

// A client that makes an object for each call and lets it go: the closing-date guard of a stocktaking does
// not set the collaborators up, and finds what an object that is gone has set up on the thread.
namespace tallyra::tests::com {
namespace {

constexpr float not_set_up = 91;

class ClosedPeriod : public testing::Test {
 protected:
  ClosedPeriod() { company_.run({"Insert Into STKCLOSEHD(CLOSEDT) Values('2024-02-29 00:00:00')"}); }

  void delete_something() const {
    const auto object = new_client(dll_, served_class_id("CRevAddr"), company_);
    const Variant key(Value("A1"), Role::caller);
    WireCall call{.id = 14, .arguments = {key.raw()}};
    EXPECT_EQ(call.on(object.get()), S_OK);
  }

  // The code of the call, and the object's error.
  std::pair<HRESULT, float> verdict() const {
    const auto object = new_client(dll_, served_class_id("CCheckHead"), company_);
    const Variant day(Value("2024/02/10"), Role::caller);
    WireCall call{.id = 15, .arguments = {day.raw()}};
    const HRESULT code = call.on(object.get());
    return {code, error_number_of(object.get())};
  }

  ServerDll dll_;
  behaviour::CompanyDatabase company_;
};

TEST_F(ClosedPeriod, IsToldPlainlyToAClientThatMakesAnObjectPerCall) {
  in_own_apartment([this] {
    delete_something();
    EXPECT_EQ(verdict(), (std::pair{S_OK, closed_period}));
    EXPECT_EQ(verdict(), (std::pair{S_OK, closed_period}));
  });
}

TEST_F(ClosedPeriod, IsToldWithAnErrorWhereNothingWasSetUpInTheApartment) {
  for (int round = 0; round < 2; ++round)
    in_own_apartment([this] {
      EXPECT_EQ(verdict(), (std::pair{DISP_E_EXCEPTION, not_set_up}));
      delete_something();
    });
}

}  // namespace
}  // namespace tallyra::tests::com
