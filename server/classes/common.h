#pragma once

#include <string_view>

#include "server/description.h"

// What several classes say in the same words.
namespace tallyra::server {

inline constexpr NamedParameter document{"cTRANNO", "Number of the document"};
inline constexpr NamedParameter part{"cPartNo", "Number of the part"};

// A row crosses as two collections.
inline constexpr NamedParameter names_read{"colFieldName",
                                           "Collection that receives the names of the columns"};
inline constexpr NamedParameter values_read{"colFieldValue", "Collection that receives their values"};
inline constexpr NamedParameter names_written{"colFieldName",
                                              "Collection of the names of the columns to write"};
inline constexpr NamedParameter values_written{"colFieldValue",
                                               "Collection of their values, in the same order"};

inline constexpr std::string_view tag_help =
    "APPROVED, UNAPPROVED, CANCEL or FINISHED; anything else, or empty, is an edit";
inline constexpr NamedParameter tag{"strOprTag", tag_help};

// Results.
inline constexpr std::string_view done = "100 for success, 0 for failure; ErrNumber tells why";
inline constexpr std::string_view found =
    "100 for success, also without a row (ErrNumber 10000003); 0 for failure";

// The closing-date guard, in the classes that have it.
template <auto F>
ClassMember closing_date_guard() {
  return method<F>(15, "ValidCloseDT",
                   "Tells in ErrNumber whether a date is closed: 0 for an open date, else 10000112",
                   {{"vTranDT", "Date of the document, a date or a text YYYY/MM/DD"}}, "Always empty");
}

}  // namespace tallyra::server
