#include "automation/error.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

namespace tallyra::automation {
namespace {

std::int32_t code(std::uint32_t hresult) {
  return static_cast<std::int32_t>(hresult);
}

// What current_error makes of an exception.
template <class Exception>
Error seen(const Exception& exception) {
  try {
    throw exception;
  } catch (...) {
    return current_error();
  }
}

TEST(RunTimeError, HasTheStandardTextOfItsNumber) {
  EXPECT_EQ(Error(error_number::type_mismatch).description(), "Type mismatch");
  EXPECT_STREQ(Error(error_number::out_of_memory).what(), "Out of memory");
  EXPECT_EQ(Error(12345).description(), "");
  EXPECT_EQ(Error(13, "own text").description(), "own text");
  EXPECT_EQ(standard_text(0), "");
}

TEST(RunTimeError, KeepsItsTextAndArgumentWhenItIsCopied) {
  const auto made = [] {
    Error error(5, std::string(100, 'x'));
    error.blame_argument(3);
    return Error(error);
  };
  const Error copy = made();
  EXPECT_EQ(copy.description(), std::string(100, 'x'));
  EXPECT_EQ(copy.argument(), 3);
  EXPECT_EQ(Error(5).argument(), 0);
}

TEST(RunTimeError, IsWhatEveryExceptionStandsFor) {
  EXPECT_EQ(seen(Error(3704, "closed")).number(), 3704);
  EXPECT_EQ(seen(Error(3704, "closed")).description(), "closed");
  EXPECT_EQ(seen(std::bad_alloc()).number(), 7);
  EXPECT_EQ(seen(std::runtime_error("why")).number(), code(0x8000FFFF));
  EXPECT_EQ(seen(std::runtime_error("why")).description(), "why");
  EXPECT_EQ(seen(1).number(), code(0x8000FFFF));
  EXPECT_EQ(seen(1).description(), "Catastrophic failure");
}

TEST(RunTimeError, IsShownByTheNumberThatAClassicClientShows) {
  const struct {
    std::uint32_t hresult;
    std::int32_t number;
  } rows[] = {{0x80020005, 13},
              {0x80028CA0, 13},
              {0x80020003, 438},
              {0x80020006, 438},
              {0x8007000E, 7},
              {0x80040154, 429},
              {0x800401F3, 429},
              {0x80070005, 70},
              {0x800A0E78, 3704},
              {0x800A0005, 5},
              {0x80040E14, code(0x80040E14)}};
  for (const auto& [hresult, number] : rows)
    EXPECT_EQ(number_from_hresult(code(hresult)), number) << std::hex << hresult;
}

TEST(RunTimeError, CrossesAnEdgeAndComesBackTheSame) {
  for (const std::int32_t number : {5,   6,   7,   9,    10,
                                    11,  13,  70,  91,   94,
                                    424, 429, 430, 438,  445,
                                    446, 448, 449, 450,  451,
                                    457, 458, 462, 3704, code(0x80040E14)}) {
    EXPECT_LT(hresult_from_number(number), 0) << number;
    EXPECT_EQ(number_from_hresult(hresult_from_number(number)), number);
  }
  EXPECT_EQ(hresult_from_number(438), code(0x80020003)) << "the first of several codes";
}

TEST(RunTimeError, RaisedByAComponentKeepsItsNumberInTheCode) {
  EXPECT_EQ(hresult_of_raised(13), code(0x800A000D));
  EXPECT_EQ(hresult_of_raised(3704), code(0x800A0E78));
  EXPECT_EQ(hresult_of_raised(code(0x80040E14)), code(0x80040E14));
}

}  // namespace
}  // namespace tallyra::automation
