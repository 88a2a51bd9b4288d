#include "company/purchasing.h"

#include <algorithm>

#include "company/order_number.h"
#include "company/prices.h"

namespace tallyra::company {

Purchasing::Purchasing(Generation generation)
    : generation_(generation),
      headers_(generation.database, "POHD",
               {{"PONO", Kind::text},
                {"PODT", Kind::text},
                {"SUPPLIERNO", Kind::text},
                {"STATUSSN", Kind::integer},
                {"ADDBY", Kind::text},
                {"ADDDT", Kind::text}}),
      lines_(generation.database, "PODT",
             {{"PONO", Kind::text},
              {"SN", Kind::integer},
              {"PARTNO", Kind::text},
              {"POQTY", Kind::number},
              {"DEDUCTQTY", Kind::number},
              {"UPRICE", Kind::number},
              {"DUEDT", Kind::text}}) {}

Purchasing::Order Purchasing::place_order(const Task& task) {
  Order order{order_number("PO", task.day, last_number_),
              &generation_.random.pick(generation_.masters.suppliers),
              {}};
  const auto& offered = order.supplier->parts;
  const int count = std::min(generation_.random.between(1, 12), static_cast<int>(offered.size()));
  const int first = generation_.random.below(static_cast<int>(offered.size()));
  for (int line = 0; line < count; ++line) {
    const int part = offered[static_cast<std::size_t>(first + line) % offered.size()];
    order.lines.push_back({part, line + 1, lot(generation_.part(part), 20, 400, generation_.random),
                           purchase_price(generation_.part(part), task.month, generation_.random)});
  }
  return order;
}

void Purchasing::write_order(const Order& order, const Task& task, int status) {
  const Day ordered = task.day - std::chrono::days{generation_.random.between(3, 20)};
  const std::string at = timestamp(ordered);
  headers_.row(order.number, at, order.supplier->number, status, generation_.ledger.next_user(), at);
  for (const OrderLine& line : order.lines) {
    // Now and then the order was raised afterwards; the addition stands in a column of its own.
    const double added = generation_.random.chance(8) ? 5.0 : 0.0;
    lines_.row(order.number, line.sn, generation_.part(line.part).number, line.due - added, added, line.price,
               timestamp(task.day));
  }
}

int Purchasing::receive(const Task& task) {
  auto& open = open_orders_[task.department];
  if (!open.empty() && generation_.random.chance(25)) {
    Order order = std::move(open.back());
    open.pop_back();
    return deliver(order, task);
  }
  if (generation_.random.chance(5))
    write_order(place_order(task), task, 0);  // an order that waits for approval
  Order order = place_order(task);
  write_order(order, task, 1);
  return deliver(order, task);
}

int Purchasing::deliver(Order& order, const Task& task) {
  Document receipt{&purchase_receipt,    task.day, task.department, -1, order.supplier->number,
                   order.supplier->name, {}};
  const int count = std::min(task.max_lines, static_cast<int>(order.lines.size()));
  for (int place = 0; place < count; ++place) {
    OrderLine& line = order.lines[static_cast<std::size_t>(place)];
    const bool in_part = line.due >= 40 && generation_.random.chance(15);
    const double quantity = in_part ? quarter_of(line.due) : line.due;
    receipt.lines.push_back({line.part, quantity, line.price, order.number, "", line.sn});
    line.due -= quantity;
  }
  generation_.ledger.write(receipt);
  receipts_.add({order.number, task.department, receipt.partner, receipt.partner_name, receipt.lines});
  std::erase_if(order.lines, [](const OrderLine& line) { return line.due <= 0; });
  if (!order.lines.empty()) open_orders_[task.department].push_back(std::move(order));
  return count;
}

int Purchasing::send_back(const Task& task) {
  const auto receipt = receipts_.take(generation_.random);
  if (!receipt) return 0;
  const bool against_order = generation_.random.chance(40);
  Document document{against_order ? &order_return : &purchase_return,
                    task.day,
                    receipt->department,
                    -1,
                    receipt->partner,
                    receipt->partner_name,
                    {}};
  for (const Line& line : receipt->lines) {
    const double quantity =
        std::min(quarter_of(line.quantity), generation_.ledger.stock().of(receipt->department, line.part));
    if (quantity <= 0 || static_cast<int>(document.lines.size()) == std::min(task.max_lines, 3)) continue;
    document.lines.push_back(
        {line.part, -quantity, line.price, receipt->reference, "", against_order ? line.sn : 0});
  }
  if (document.lines.empty()) return 0;
  const std::string number = generation_.ledger.write(document);
  if (!against_order)
    returns_.add({number, document.department, document.partner, document.partner_name, document.lines});
  return static_cast<int>(document.lines.size());
}

int Purchasing::receive_replacement(const Task& task) {
  const auto returned = returns_.take(generation_.random);
  if (!returned) return 0;
  Document receipt{&purchase_receipt,      task.day, returned->department, -1, returned->partner,
                   returned->partner_name, {}};
  for (const Line& line : returned->lines) {
    if (static_cast<int>(receipt.lines.size()) == task.max_lines) break;
    receipt.lines.push_back({line.part, -line.quantity, line.price, returned->reference, "", line.sn});
  }
  generation_.ledger.write(receipt);
  return static_cast<int>(receipt.lines.size());
}

}  // namespace tallyra::company
