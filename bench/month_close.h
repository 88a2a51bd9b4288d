#pragma once

#include <string>

#include "bench/companies.h"
#include "bench/scenario.h"
#include "bench/server_companies.h"

namespace tallyra::bench {

// The close of the second of a company's two months. The companies must outlive the scenario.
Scenario month_close(Companies& companies, const CompanySize& size);

// The same where no index covers what the close sums up: they hold the columns that rows are found by, and
// nothing is known of how many rows a department or a part has.
Scenario month_close_on_plain_indexes(Companies& companies, const CompanySize& size);

// The same on a PostgreSQL server.
Scenario month_close_on_server(ServerCompanies& companies, const CompanySize& size);

// What has happened in every company before its work is measured.
void close_first_month(const std::string& connection_string);

}  // namespace tallyra::bench
