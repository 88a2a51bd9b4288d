#pragma once

#include <string_view>

// Tables and columns that the code names outside of whole statements.
namespace tallyra::frame::schema {

namespace table {
inline constexpr std::string_view receiving_address = "REVADDR";
inline constexpr std::string_view stock_controller = "STKCONTROLLER";
inline constexpr std::string_view month_close = "STKCLOSEHD";
}  // namespace table

namespace column {
inline constexpr std::string_view created_by = "ADDBY";
inline constexpr std::string_view close_date = "CLOSEDT";
inline constexpr std::string_view department = "DEPTNO";
inline constexpr std::string_view department_name = "DEPTNM";
inline constexpr std::string_view material_type = "MTYPESN";
inline constexpr std::string_view part = "PARTNO";
inline constexpr std::string_view price_type = "PRICETYPESN";
inline constexpr std::string_view quantity = "QTY";
inline constexpr std::string_view transaction_number = "TRANNO";
}  // namespace column

}  // namespace tallyra::frame::schema
