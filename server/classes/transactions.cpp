#include "server/classes/classes.h"
#include "server/classes/common.h"
#include "transactions/tran_detail.h"
#include "transactions/tran_head.h"

namespace tallyra::server {
namespace {

using transactions::CTranDetail;
using transactions::CTranHead;

constexpr NamedParameter type{"cTranType", "Type of the document"};
constexpr NamedParameter type_with_rights{"cTranType", "Type of the document; its rights count"};
constexpr NamedParameter reference{"cReference", "Order or document that the line refers to"};
constexpr NamedParameter line{"intSN", "Number of the line; negative to find it by its part", -1};
constexpr NamedParameter new_line{"intSN", "Number that no line may have yet; negative to ask by the part",
                                  -1};
constexpr NamedParameter purchase_return{"cTRANNO", "Number of the purchase return"};
constexpr NamedParameter order{"cOrderNO", "Number of the order"};

std::vector<ClassMember> line_members() {
  return {
      method<&CTranDetail::Read>(11, "Read", "Reads a line of a stock document with the names of its part",
                                 {document, reference, part, names_read, values_read, line}, found),
      method<&CTranDetail::Update>(
          12, "Update", "Changes a line of a stock document, or all lines of a part in it",
          {document, type_with_rights, reference, part, names_written, values_written, line}, done),
      method<&CTranDetail::Insert>(
          13, "Insert", "Creates a line of a stock document",
          {document, type_with_rights, reference, part, names_written, values_written, new_line}, done),
      method<&CTranDetail::Delete>(14, "Delete",
                                   "Deletes a line of a stock document, or all lines of a part in it",
                                   {document, type_with_rights, reference, part, line}, done),
  };
}

std::vector<ClassMember> return_line_members() {
  return {
      method<&CTranDetail::InsertRTN>(
          15, "InsertRTN", "Creates a line of a purchase return; lines from its number on move up by one",
          {purchase_return,
           {"intSN", "Number of the new line"},
           names_written,
           values_written,
           {"iRTNType", "Other than 0: the part must have been received from the supplier", 0}},
          done),
      method<&CTranDetail::UpdateRTN>(
          16, "UpdateRTN", "Changes a line of a purchase return",
          {purchase_return, {"intSN", "Number of the line"}, names_written, values_written}, done),
  };
}

// What a client asks while it enters lines.
std::vector<ClassMember> order_members() {
  return {
      method<&CTranDetail::PORefQty>(
          17, "PORefQty", "Tells what was ordered, received and returned under a line of an order",
          {{"cReference", "Number of the order"},
           {"intSN", "Number of the line of the order"},
           {"nPOQty", "Receives the ordered quantity"},
           {"nRevQty", "Receives the received quantity"},
           {"nRtnQty", "Receives the returned quantity"},
           {"cType", "PO for a purchase order, anything else for a stock document", ""}},
          done),
      method<&CTranDetail::POExam>(
          18, "POExam", "Tells whether a number is that of a purchase order or of a purchase return", {order},
          "1 for a purchase order, 2 for a purchase return, else 0"),
      method<&CTranDetail::OrderTypeExam>(
          19, "OrderTypeExam", "Tells whether a number is that of a sales order or of a production order",
          {order}, "SO for a sales order, MO for a production order, else empty"),
      method<&CTranDetail::IssuedOrRtnQty>(
          20, "IssuedOrRtnQty",
          "Quantity of a part that other documents have issued to an order or taken back",
          {{"cTRANNO", "Number of the document that does not count"},
           {"cMONO", "Number of the order"},
           part,
           {"cTranType", "Type of the documents that count"},
           {"cType", "Left out for issued less taken back, else the type asked for", ""}},
          "The quantity; 0 after an error"),
      method<&CTranDetail::GetMRPQty>(
          21, "GetMRPQty", "Quantity of a part that an order requires",
          {{"cMONO", "Number of the production order or sales order"},
           part,
           {"cTranType", "STK020MISSSO or STK021RTNSO to ask sales orders only", ""}},
          "The quantity; 0 when none is required (ErrNumber 10000024)"),
  };
}

}  // namespace

ClassTable tran_head() {
  return class_table<CTranHead>(
      "CTranHead",
      {.class_id = "C3CF34B2-56A6-4186-81E6-5878F852909B",
       .interface_id = "1A3A6DDC-4D57-4F32-9C6E-BB35D277BB8F",
       .help = "Stock transaction headers",
       .registered_as = "stock transaction headers",
       .purpose = "stock documents"},
      {
          method<&CTranHead::Read>(11, "Read", "Reads the header of a stock document",
                                   {document, type, names_read, values_read}, found),
          method<&CTranHead::Update>(
              12, "Update", "Changes the header of a stock document; the tag chooses the right that it takes",
              {document, type_with_rights, names_written, values_written, tag}, done),
          method<&CTranHead::Insert>(
              13, "Insert",
              "Creates the header of a stock document, with the lines of another one on request",
              {document,
               type_with_rights,
               names_written,
               values_written,
               {"pCopyID", "Document whose lines are copied; left out for none", ""}},
              done),
          method<&CTranHead::Delete>(14, "Delete",
                                     "Deletes a stock document with its lines and its shipping note",
                                     {document, type_with_rights}, done),
          closing_date_guard<&CTranHead::ValidCloseDT>(),
      });
}

ClassTable tran_detail() {
  return class_table<CTranDetail>("CTranDetail",
                                  {.class_id = "1812A514-FF65-417F-B881-4A2AAF246929",
                                   .interface_id = "19835EC1-FCB7-4F1A-A252-605A8B506956",
                                   .help = "Stock transaction lines",
                                   .registered_as = "stock transaction lines",
                                   .purpose = "lines of stock documents"},
                                  line_members(), return_line_members(), order_members());
}

}  // namespace tallyra::server
