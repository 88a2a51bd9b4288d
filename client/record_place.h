#pragma once

#include <span>
#include <string>
#include <string_view>

#include "client/call.h"

namespace tallyra::client {

// Where a class keeps its rows, and which arguments of Update and Delete are the key of one.
struct RecordPlace {
  std::string_view class_name;
  std::string_view table;
  std::span<const std::string_view> key;  // columns, in the order of the arguments
};

// Null for a class that keeps nothing, and for one that is none of ours.
const RecordPlace* record_place(std::string_view prog_id);

// Whether the member writes the columns that it is handed.
bool writes_columns(std::string_view member);

// The condition on the row that an Update or Delete is about, " Where ..."; empty when it is about no single
// row, or the arguments do not say which. `date_quote` stands around dates.
std::string row_condition(const RecordPlace& place, const Call& call, char date_quote);

}  // namespace tallyra::client
