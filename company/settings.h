#pragma once

#include "company/calendar.h"
#include "company/masters.h"

namespace tallyra::company {

// Writes what is set up once: users and their rights, stock controllers, receiving addresses and the costing
// settings of the material types.
void write_settings(const Masters& masters, Day entered, Database& database);

}  // namespace tallyra::company
