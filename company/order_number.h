#pragma once

#include <string>

#include "company/calendar.h"

namespace tallyra::company {

// The next number of a series of orders, "PO2401-00017"; `last` is the counter of the series.
std::string order_number(const char* prefix, Day day, int& last);

}  // namespace tallyra::company
