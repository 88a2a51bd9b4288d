#pragma once

#include <string>
#include <string_view>

#include "automation/object.h"

// What a part cost, from the stock documents on the caller's open connection. The rules, the signs and the
// edge cases stand in docs/collaborators.md. Dates are complete literals of the database, delimiters
// included; they go into the statements as they are. Database errors pass through.
namespace tallyra::standins::corvane {

// The days after `after`, up to and including `until`.
struct Period {
  std::string_view after;
  std::string_view until;
};

// The price of the last purchase receipt up to a day; 0 when the part was never received.
double last_purchase_price(const automation::Object& connection, std::string_view part,
                           std::string_view until);

// The quantity-weighted average price of the purchase receipts of the period; without any, the last price.
double average_purchase_price(const automation::Object& connection, std::string_view part,
                              const Period& period);

// The moving average of a produced part: what the previous close carried over, averaged with the production
// receipts of the period.
double production_cost(const automation::Object& connection, std::string_view part, const Period& period);

}  // namespace tallyra::standins::corvane
