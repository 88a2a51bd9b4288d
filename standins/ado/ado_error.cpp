#include "standins/ado/ado_error.h"

#include <string>
#include <string_view>

#include "automation/error.h"

namespace tallyra::standins::ado {
namespace {

struct Text {
  std::int32_t number;
  std::string_view text;
};

constexpr Text texts[] = {
    {ado_error::invalid_argument,
     "Arguments are of the wrong type, are out of acceptable range, or are in conflict with one another."},
    {ado_error::no_current_record,
     "Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a "
     "current record."},
    {ado_error::in_transaction, "Connection object cannot be explicitly closed while in a transaction."},
    {ado_error::not_supported, "Object or provider is not capable of performing requested operation."},
    {ado_error::item_not_found,
     "Item cannot be found in the collection corresponding to the requested name or ordinal."},
    {ado_error::object_closed, "Operation is not allowed when the object is closed."},
    {ado_error::object_open, "Operation is not allowed when the object is open."},
    {ado_error::provider_not_found, "Provider cannot be found. It may not be properly installed."},
    {ado_error::invalid_connection,
     "The connection cannot be used to perform this operation. It is either closed or invalid in this "
     "context."},
    {provider_error::cannot_fetch_backward, "Rowset does not support fetching backward."},
    {provider_error::no_transaction, "No transaction is active."},
    {provider_error::only_one_transaction, "Only one transaction can be active on this session."},
};

}  // namespace

void raise(std::int32_t number) {
  for (const Text& entry : texts)
    if (entry.number == number)
      throw automation::Error(number, automation::ErrorText::of_literal(entry.text));
  throw automation::Error(number);
}

}  // namespace tallyra::standins::ado
