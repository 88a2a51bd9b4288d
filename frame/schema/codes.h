#pragma once

#include <array>
#include <cstdint>
#include <string_view>

// Codes that are stored in the database or shared with the rights tables of the suite. Statements are whole
// texts and spell them; what they spell has to stand here, and in docs/glossary.md.
namespace tallyra::frame::schema {

// Kinds of documents, as TRANTYPE holds them.
namespace document_type {
inline constexpr std::string_view receipt = "STK010POREV";
// What sums of returns against an order line ask for; no purchase return.
inline constexpr std::string_view order_return = "STK010PORTN";
inline constexpr std::string_view purchase_return = "STK011PORTN";
inline constexpr std::string_view issue_to_production_order = "STK020MISS";
inline constexpr std::string_view issue_to_sales_order = "STK020MISSSO";
inline constexpr std::string_view return_from_production_order = "STK021RTN1";
inline constexpr std::string_view return_from_sales_order = "STK021RTNSO";
inline constexpr std::string_view receipt_from_production_order = "STK022REVMO";
inline constexpr std::string_view receipt_from_sales_order = "STK022REVSO";
inline constexpr std::string_view transfer = "STK024MRPL";
// What every part of a department, or of the company, comes to at a month close.
inline constexpr std::string_view department_document = "STK027CLOSE";
inline constexpr std::string_view company_document = "STKCLOSEALL";
inline constexpr std::string_view shipment = "STK030SHIP";
// In STKSHIPNOTE.
inline constexpr std::string_view shipping_note = "STK030SHIPN";
// The differences that the approval of a stocktaking writes.
inline constexpr std::string_view posting = "STKCHECKISS";

inline constexpr std::array all = {
    receipt,
    order_return,
    purchase_return,
    issue_to_production_order,
    issue_to_sales_order,
    return_from_production_order,
    return_from_sales_order,
    receipt_from_production_order,
    receipt_from_sales_order,
    transfer,
    department_document,
    company_document,
    shipment,
    shipping_note,
    posting,
};
}  // namespace document_type

// Function codes that rights are asked for; those of documents are the types of the documents. The moves keep
// one as a text of their own.
namespace function_code {
inline constexpr const char* purchase_return = "STK011PORTN";
inline constexpr const char* stocktaking = "STK026CHECK";
inline constexpr const char* month_close = "STK027CLOSE";
inline constexpr const char* receiving_address = "STK028ADDR";
inline constexpr const char* shipping_note = "STK030SHIPN";
inline constexpr const char* stock_controller = "STK032USER";
inline constexpr const char* part_cost = "STK050PCOST";
}  // namespace function_code

// Series that document numbers are issued from. The company document has its number from the series of the
// department documents.
namespace number_series {
inline constexpr std::string_view month_close = document_type::department_document;
inline constexpr std::string_view posting = document_type::posting;
}  // namespace number_series

// How far a document, an order or a close record has come, as STATUSSN holds it.
namespace status {
// A close document that the next close deletes.
inline constexpr std::int32_t unapproved = 0;
inline constexpr std::int32_t approved = 1;
// Not counted in issued and returned quantities.
inline constexpr std::int32_t left_out = 3;

inline constexpr std::array all = {unapproved, approved, left_out};
}  // namespace status

// Which cost a part has at a month close, as PRICETYPESN holds it.
namespace price_type {
inline constexpr double last_price = 1;
// Only for material types above the purchased ones.
inline constexpr double moving_average = 2;
// Every other one is the average price.
}  // namespace price_type

// Material types up to this one, as MTYPESN holds them, are purchased, those above it produced.
inline constexpr double purchased_material_type_limit = 1;

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
