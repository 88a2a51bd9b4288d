#pragma once

#include <map>
#include <string>
#include <vector>

#include "company/generation.h"
#include "company/returnable.h"

namespace tallyra::company {

// Purchase orders, receipts against them, returns to the supplier and the replacements for returned goods.
class Purchasing {
 public:
  explicit Purchasing(Generation generation);

  // Receives what is still due of an open order, or orders anew and receives all or part of it.
  int receive(const Task& task);

  // Sends part of an earlier receipt back to its supplier: as a purchase return, to be replaced, or counted
  // against the lines of the order.
  int send_back(const Task& task);

  // Receives replacements; the lines refer to the return instead of an order.
  int receive_replacement(const Task& task);

 private:
  struct OrderLine {
    int part;
    int sn;
    double due;
    double price;
  };
  struct Order {
    std::string number;
    const Supplier* supplier;
    std::vector<OrderLine> lines;  // those still due
  };

  Order place_order(const Task& task);
  void write_order(const Order& order, const Task& task, int status);
  int deliver(Order& order, const Task& task);

  Generation generation_;
  Insert headers_;
  Insert lines_;
  int last_number_ = 0;
  std::map<int, std::vector<Order>> open_orders_;  // by department
  Returnables receipts_;
  Returnables returns_;
};

}  // namespace tallyra::company
