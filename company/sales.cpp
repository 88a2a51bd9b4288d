#include "company/sales.h"

#include <algorithm>

#include "company/naming.h"
#include "company/order_number.h"
#include "company/prices.h"

namespace tallyra::company {

Sales::Sales(Generation generation)
    : generation_(generation),
      headers_(generation.database, "SOHD",
               {{"SONO", Kind::text},
                {"SODT", Kind::text},
                {"CUSTNO", Kind::text},
                {"STATUSSN", Kind::integer},
                {"ADDBY", Kind::text},
                {"ADDDT", Kind::text}}),
      materials_(
          generation.database, "SODTBOM",
          {{"SONO", Kind::text}, {"SN", Kind::integer}, {"PARTNO", Kind::text}, {"SOQTY", Kind::number}}) {}

int Sales::ship(const Task& task) {
  Stock& stock = generation_.ledger.stock();
  const int customer = generation_.random.below(generation_.masters.customers);
  Document document{&shipment,
                    task.day,
                    task.department,
                    -1,
                    numbered("C", 2001 + customer),
                    numbered("Customer ", customer + 1),
                    {}};
  const int wanted = generation_.random.between(1, task.max_lines);
  for (int tries = 0; tries < 24 && static_cast<int>(document.lines.size()) < wanted; ++tries) {
    const int part = stock.any_part(task.department, true, generation_.random);
    if (part < 0) break;
    // Semi-finished parts leave the house as spare parts only.
    const bool spare = generation_.part(part).material_type == semi_finished;
    if (document.holds(part) || (spare && !generation_.random.chance(30))) continue;
    const double quantity =
        std::min(lot(generation_.part(part), 1, 15, generation_.random), stock.of(task.department, part));
    document.lines.push_back({part, -quantity, standard_price(generation_.part(part)), "", ""});
  }
  return write(document, shipments_);
}

int Sales::issue_material(const Task& task) {
  Stock& stock = generation_.ledger.stock();
  Document document{&sales_issue, task.day, task.department, -1, "", "", {}};
  const int wanted = generation_.random.between(1, task.max_lines);
  for (int tries = 0; tries < 12 && static_cast<int>(document.lines.size()) < wanted; ++tries) {
    const int part = stock.any_part(task.department, generation_.random.chance(30), generation_.random);
    if (part < 0 || document.holds(part)) continue;
    const double quantity =
        std::min(lot(generation_.part(part), 1, 25, generation_.random), stock.of(task.department, part));
    document.lines.push_back({part, -quantity, standard_price(generation_.part(part)), "", ""});
  }
  return write(document, issues_);
}

int Sales::write(Document& document, Returnables& written) {
  if (document.lines.empty()) return 0;
  const std::string order = order_number("SO", document.day, last_number_);
  const std::string at = timestamp(document.day - std::chrono::days{generation_.random.between(1, 15)});
  const std::string customer =
      document.partner.empty() ? numbered("C", 2001 + generation_.random.below(generation_.masters.customers))
                               : document.partner;
  const int status = generation_.random.chance(4) ? 0 : 1;
  headers_.row(order, at, customer, status, generation_.ledger.next_user(), at);
  int sn = 0;
  for (Line& line : document.lines) {
    line.reference = order;
    const double open = generation_.random.chance(15) ? 5 : 0;  // still to come
    materials_.row(order, ++sn, generation_.part(line.part).number, open - line.quantity);
  }
  generation_.ledger.write(document);
  written.add({order, document.department, document.partner, document.partner_name, document.lines});
  return sn;
}

int Sales::receive_back(const Task& task) {
  return give_back(shipments_, sales_receipt, task);
}

int Sales::take_material_back(const Task& task) {
  return give_back(issues_, sales_return, task);
}

int Sales::give_back(Returnables& from, const DocumentType& type, const Task& task) {
  const auto returned = from.take(generation_.random);
  if (!returned) return 0;
  Document document{&type, task.day, returned->department, -1, returned->partner, returned->partner_name, {}};
  for (const Line& line : returned->lines) {
    const double quantity = quarter_of(line.quantity);
    if (quantity <= 0 || static_cast<int>(document.lines.size()) == std::min(task.max_lines, 3)) continue;
    document.lines.push_back({line.part, quantity, line.price, returned->reference, ""});
  }
  if (document.lines.empty()) return 0;
  generation_.ledger.write(document);
  return static_cast<int>(document.lines.size());
}

}  // namespace tallyra::company
