#pragma once

#include <string>

#include "company/generation.h"
#include "company/returnable.h"

namespace tallyra::company {

// Sales orders with the list of what they need, shipments and their way back, and material issued for an
// order.
class Sales {
 public:
  explicit Sales(Generation generation);

  // Ships goods made here to a customer.
  int ship(const Task& task);

  // Receives part of an earlier shipment back from the customer.
  int receive_back(const Task& task);

  // Issues material for a sales order, and takes unused material of such an issue back.
  int issue_material(const Task& task);
  int take_material_back(const Task& task);

 private:
  int write(Document& document, Returnables& written);
  int give_back(Returnables& from, const DocumentType& type, const Task& task);

  Generation generation_;
  Insert headers_;
  Insert materials_;
  int last_number_ = 0;
  Returnables shipments_;
  Returnables issues_;
};

}  // namespace tallyra::company
