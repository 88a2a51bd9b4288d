#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>
#include <string_view>

#include "automation/com/text.h"
#include "automation/convert.h"
#include "tests/com/wire_call.h"

// The tests run as a user of another country when TALLYRA_TEST_LOCALE names one: every expected text is the
// same. Here stands that the system's own conversions are really that country's then, so that such a run
// shows something.
namespace tallyra::tests::com {
namespace {

bool german_is_asked_for() {
  const char* const locale = std::getenv("TALLYRA_TEST_LOCALE");
  return locale && std::string_view(locale).starts_with("de");
}

std::string converted_by_the_system(const Value& value) {
  const Variant source(value, Role::caller);
  Variant text;
  EXPECT_EQ(
      VariantChangeTypeEx(&text.raw(), const_cast<VARIANT*>(&source.raw()), LOCALE_USER_DEFAULT, 0, VT_BSTR),
      S_OK);
  return automation::com::text_of(V_BSTR(&text.raw()));
}

TEST(Locale, OfTheUserIsTheOneThatTheRunIsFor) {
  const bool german = german_is_asked_for();
  EXPECT_EQ(PRIMARYLANGID(LANGIDFROMLCID(GetUserDefaultLCID())), german ? LANG_GERMAN : LANG_ENGLISH);
  EXPECT_EQ(converted_by_the_system(1.5), german ? "1,5" : "1.5");
  EXPECT_EQ(converted_by_the_system(automation::Date{45358}).find('/') == std::string::npos, german);
}

TEST(Locale, MakesNoDifferenceToTexts) {
  EXPECT_EQ(automation::to_text(1.5), "1.5");
  EXPECT_EQ(automation::to_text(-0.25F), "-0.25");
  EXPECT_EQ(automation::to_text(automation::Currency{12345}), "1.2345");
  EXPECT_EQ(automation::to_text(automation::Date{45358.5}), "2024/03/07 12:00:00");
  EXPECT_EQ(automation::to_text(true), "True");
  EXPECT_EQ(automation::to_double("1.5"), 1.5);
}

}  // namespace
}  // namespace tallyra::tests::com
