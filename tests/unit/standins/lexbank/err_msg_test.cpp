#include <gtest/gtest.h>

#include <set>

#include "automation/convert.h"
#include "automation/create.h"
#include "automation/error.h"
#include "standins/lexbank/local_classes.h"
#include "standins/lexbank/texts.h"

namespace tallyra::standins::lexbank {
namespace {

using automation::Error;
using automation::Object;

Object err_msg(const char* language) {
  register_classes();
  const Object object = automation::create("Lexbank.ErrMsg");
  object.put("Language", language);
  return object;
}

std::string text(const Object& object, std::int32_t number) {
  return automation::to_text(object.get("Msg" + std::to_string(number)));
}

int number_of_error(const auto& action) {
  try {
    action();
  } catch (const Error& error) {
    return error.number();
  }
  return 0;
}

TEST(ErrMsg, EveryMessageHasItsOwnTextInEveryLanguage) {
  std::set<std::string> texts;
  for (const char* language : {"EN", "ZH", "DE"}) {
    const Object messages = err_msg(language);
    for (const std::int32_t number : message_numbers) {
      EXPECT_FALSE(text(messages, number).empty()) << language << number;
      texts.insert(text(messages, number));
    }
  }
  EXPECT_EQ(texts.size(), 3 * message_numbers.size());
}

TEST(ErrMsg, LanguageChoosesTheTextAndMayChange) {
  const Object messages = err_msg("en-GB");
  EXPECT_EQ(text(messages, 10000003), "The record was not found.");
  messages.put("language", "chs");
  EXPECT_EQ(text(messages, 10000003), "未找到该记录。");
  messages.put("LANGUAGE", "DE");
  EXPECT_EQ(text(messages, 10000003), "Der Datensatz wurde nicht gefunden.");
  messages.put("Language", "");
  EXPECT_EQ(text(messages, 10000003), "The record was not found.");
}

TEST(ErrMsg, SpeaksEnglishBeforeALanguageIsSet) {
  register_classes();
  EXPECT_EQ(text(automation::create("Lexbank.ErrMsg"), 10000004), "A record with this key already exists.");
}

TEST(ErrMsg, AnUnknownMessageIsNoMember) {
  const Object messages = err_msg("EN");
  for (const char* name : {"Msg10000025", "Msg", "10000003", "Msg1000000", "Text"})
    EXPECT_EQ(number_of_error([&] { messages.get(name); }), automation::error_number::no_such_member) << name;
}

TEST(ErrMsg, MessagesAreReadOnlyAndTheLanguageWriteOnly) {
  const Object messages = err_msg("EN");
  EXPECT_EQ(number_of_error([&] { messages.put("Msg10000003", "x"); }),
            automation::error_number::no_such_member);
  EXPECT_EQ(number_of_error([&] { messages.get("Language"); }), automation::error_number::no_such_member);
  EXPECT_EQ(number_of_error([&] { messages.call("Msg10000003", "x"); }),
            automation::error_number::wrong_argument_count);
}

}  // namespace
}  // namespace tallyra::standins::lexbank
