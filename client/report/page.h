#pragma once

#include <string>
#include <vector>

#include "client/output/table.h"
#include "client/report/month_report.h"
#include "client/report/words.h"

namespace tallyra::client {

// The report as one HTML page that needs nothing beside itself: no script, and a policy that forbids every
// request.
std::string report_page(const MonthReport& report, const ReportWords& words);

// The same figures as tables.
std::vector<Table> report_tables(const MonthReport& report);

}  // namespace tallyra::client
