#pragma once

#include <string>

#include "client/report/words.h"

namespace tallyra::client {

// For the eye, in the form of the language: groups of three digits; a value has two decimals, a quantity up
// to three and no zeros behind them.
std::string value_text(double value, const ReportWords& words);
std::string quantity_text(double quantity, const ReportWords& words);
// The same with a sign before what is more than nothing.
std::string signed_value_text(double value, const ReportWords& words);

// For a program: digits and a point, without what adding up alone has left behind the sixth decimal.
std::string plain_number(double number);

}  // namespace tallyra::client
