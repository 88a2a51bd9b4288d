#pragma once

#include <string_view>

// Codes that are stored in the database or shared with the rights tables of the suite.
namespace tallyra::frame::schema {

// Function codes that rights are asked for. Some are transaction type codes as well. The moves
// keep one as a text of their own.
namespace function_code {
inline constexpr const char* purchase_return = "STK011PORTN";
inline constexpr const char* stock_check = "STK026CHECK";
inline constexpr const char* month_close = "STK027CLOSE";
inline constexpr const char* receiving_address = "STK028ADDR";
inline constexpr const char* shipping_note = "STK030SHIPN";
inline constexpr const char* stock_controller = "STK032USER";
inline constexpr const char* part_cost = "STK050PCOST";
}  // namespace function_code

// Kinds of stock documents, as TRANTYPE holds them.
namespace transaction_type {
inline constexpr std::string_view purchase_return = "STK011PORTN";
inline constexpr std::string_view issue_to_production_order = "STK020MISS";
inline constexpr std::string_view issue_to_sales_order = "STK020MISSSO";
inline constexpr std::string_view return_from_production_order = "STK021RTN1";
inline constexpr std::string_view return_from_sales_order = "STK021RTNSO";
inline constexpr std::string_view shipment = "STK030SHIP";
}  // namespace transaction_type

// Series that document numbers are issued from.
namespace number_series {
inline constexpr std::string_view month_close = "STK027CLOSE";
inline constexpr std::string_view posting = "STKCHECKISS";
}  // namespace number_series

// What a header's update is for; decides which right it needs. Compared exactly.
namespace operation_tag {
inline constexpr std::string_view approved = "APPROVED";
inline constexpr std::string_view unapproved = "UNAPPROVED";
inline constexpr std::string_view cancel = "CANCEL";
inline constexpr std::string_view finished = "FINISHED";
}  // namespace operation_tag

// The kind of database that wants the Access form of date literals. Any other kind gets the other form.
inline constexpr std::string_view access_kind = "MSACCESS";

}  // namespace tallyra::frame::schema
