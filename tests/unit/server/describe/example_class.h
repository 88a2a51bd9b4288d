#pragma once

#include "server/class_table.h"

namespace tallyra::server::describe {

// A class that has something of everything; it cannot be made or called.
inline ClassTable example_class() {
  const automation::Value required = automation::Missing{};
  const Parameter key{"cKey", ParameterType::text, true, required, "Key of the row"};
  const Parameter names{"colNames", ParameterType::collection, true, required, "Names"};
  const Parameter values{"colValues", ParameterType::collection, true, required, "Values"};
  const Parameter row{"intRow", ParameterType::int32, true, -1, "Number of the row"};
  const Parameter tag{"strTag", ParameterType::text, true, "", "Tag"};
  const Parameter again{"strAgain", ParameterType::text, true, "", "Tag again"};
  return {
      "CSTKBin",
      {
          {1,
           "Language",
           MemberKind::property_put,
           {{"value", ParameterType::text, false, required, "Code"}},
           ResultType::none,
           nullptr,
           "Sets it"},
          {3, "ErrNumber", MemberKind::property_get, {}, ResultType::single, nullptr, "Tells it", "Number"},
          {11,
           "Read",
           MemberKind::method,
           {key, names, values, row},
           ResultType::single,
           nullptr,
           "Reads",
           "100"},
          {12,
           "Update",
           MemberKind::method,
           {key, names, values, tag, again},
           ResultType::single,
           nullptr,
           "Changes",
           "100"},
          {13,
           "Insert",
           MemberKind::method,
           {key, names, values},
           ResultType::single,
           nullptr,
           "Creates",
           "100"},
          {14,
           "Weigh",
           MemberKind::method,
           {{"vDate", ParameterType::variant, false, required, "Date"},
            {"nScale", ParameterType::float64, true, required, "Scale"}},
           ResultType::int16,
           nullptr,
           "Weighs",
           "The weight; SO for none"},
      },
      nullptr,
      {.class_id = "11111111-AAAA",
       .interface_id = "22222222-BBBB",
       .help = "Bins",
       .registered_as = "bins",
       .purpose = "bins of a store",
       .event_interface = "__CSTKBin"}};
}

}  // namespace tallyra::server::describe
