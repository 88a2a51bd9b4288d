#include "standins/lexbank/texts.h"

namespace tallyra::standins::lexbank {

constexpr Texts english{
    .messages = {{
        {10000002, "The names and the values of the fields are missing or differ in number."},
        {10000003, "The record was not found."},
        {10000004, "A record with this key already exists."},
        {10000016,
         "You are not allowed to do this: you lack the right, or the record belongs to another user."},
        {10000024, "The order does not require this part."},
        {10000112, "The date lies in a closed period."},
        {10000115, "This part was never received from this supplier."},
        {20000005, "The part does not exist."},
    }},
    .status_approved = "Approved",
    .name_check = "Stocktaking adjustment",
};
static_assert(is_complete(english));

}  // namespace tallyra::standins::lexbank
