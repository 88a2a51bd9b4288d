#pragma once

#include <string_view>

// Tables and columns that the code names outside of whole statements.
namespace tallyra::frame::schema {

// For the moves, which keep a table's name as a text of their own.
namespace table {
inline constexpr const char* receiving_address = "REVADDR";
inline constexpr const char* stock_controller = "STKCONTROLLER";
inline constexpr const char* month_close = "STKCLOSEHD";
inline constexpr const char* part_cost_setting = "PARTCOSTSET";
inline constexpr const char* shipping_note = "STKSHIPNOTE";
inline constexpr const char* stocktaking = "STKCHECKHD";
inline constexpr const char* counted_line = "STKCHECKDT";
inline constexpr const char* document = "STKTRANHD";
inline constexpr const char* document_line = "STKTRANDT";
}  // namespace table

namespace column {
inline constexpr std::string_view assembly = "ASSMNO";
inline constexpr std::string_view check_date = "CHECKDT";
inline constexpr std::string_view created_by = "ADDBY";
inline constexpr std::string_view close_date = "CLOSEDT";
inline constexpr std::string_view department = "DEPTNO";
inline constexpr std::string_view department_name = "DEPTNM";
inline constexpr std::string_view engineering_quantity = "ENGQTY";
inline constexpr std::string_view line_number = "SN";
inline constexpr std::string_view material_type = "MTYPESN";
inline constexpr std::string_view notes = "NOTES";
inline constexpr std::string_view ordered_quantity = "POQTY";
inline constexpr std::string_view part = "PARTNO";
inline constexpr std::string_view price_type = "PRICETYPESN";
inline constexpr std::string_view production_order = "MONO";
inline constexpr std::string_view quantity = "QTY";
inline constexpr std::string_view reference = "REFERENCE";
inline constexpr std::string_view reference_part = "REFPARTNO";
inline constexpr std::string_view target_department = "DEPTNOTO";
inline constexpr std::string_view document_number = "TRANNO";
inline constexpr std::string_view unit_price = "UPRICE";
inline constexpr std::string_view usage_rate = "URATE";
inline constexpr std::string_view v_quantity = "VQTY";
inline constexpr std::string_view waste_rate = "WSRATE";
}  // namespace column

}  // namespace tallyra::frame::schema
