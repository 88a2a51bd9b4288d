#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "company/calendar.h"

namespace tallyra::company {

// A kind of stock document: its type code, the first letters of its numbers and its name.
struct DocumentType {
  std::string_view code;
  std::string_view prefix;
  std::string_view name;
};

inline constexpr DocumentType purchase_receipt = {"STK010POREV", "PR", "Purchase receipt"};
inline constexpr DocumentType purchase_return = {"STK011PORTN", "PT", "Purchase return"};
inline constexpr DocumentType order_return = {"STK010PORTN", "RO", "Return against order"};
inline constexpr DocumentType production_issue = {"STK020MISS", "MI", "Material issue"};
inline constexpr DocumentType sales_issue = {"STK020MISSSO", "SI", "Material issue for sales order"};
inline constexpr DocumentType production_return = {"STK021RTN1", "MR", "Material return"};
inline constexpr DocumentType sales_return = {"STK021RTNSO", "SR", "Material return from sales order"};
inline constexpr DocumentType production_receipt = {"STK022REVMO", "GR", "Receipt from production"};
inline constexpr DocumentType sales_receipt = {"STK022REVSO", "CR", "Receipt against sales order"};
inline constexpr DocumentType transfer = {"STK024MRPL", "TR", "Transfer"};
inline constexpr DocumentType shipment = {"STK030SHIP", "SH", "Shipment"};

struct Line {
  int part;
  double quantity;  // as stored: receipts positive, issues negative, transfers positive
  double price;
  std::string reference;  // the order or document that the line belongs to
  std::string order;      // the production order, if any
  int sn = 0;             // 0: the writer counts from 1
};

struct Document {
  const DocumentType* type;
  Day day;
  int department;       // index; the department that the document is issued from
  int target = -1;      // index of the receiving department of a transfer
  std::string partner;  // supplier or customer number, empty for documents inside the company
  std::string partner_name;
  std::vector<Line> lines;

  bool holds(int part) const {
    for (const Line& line : lines) {
      if (line.part == part) return true;
    }
    return false;
  }
};

}  // namespace tallyra::company
