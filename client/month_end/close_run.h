#pragma once

#include "client/call_run.h"
#include "client/console.h"
#include "client/month_end/sums.h"
#include "client/session.h"

namespace tallyra::client {

struct CloseOrder {
  Session session;
  automation::Date date;
  ClosePlan plan;
  bool show_progress = false;
};

// Runs CStockClose Insert, shows how it goes, and ends it after the row at the second interruption: then the
// outcome is a failure. What it has left by then, if anything, stands in the database.
Outcome run_close(const CloseOrder& order, const Console& console);

// The call as such: the record gets the date, the status 0, and who made it when.
Call close_call(const CloseOrder& order);

}  // namespace tallyra::client
