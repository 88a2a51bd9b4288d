#pragma once

#include "automation/error.h"

// What ADO raises, and the doubles with it.
namespace tallyra::stage::ado_errors {

inline const automation::Error object_open{3705, "Operation is not allowed when the object is open."};
inline const automation::Error object_closed{3704, "Operation is not allowed when the object is closed."};
inline const automation::Error connection_unusable{
    3709, "The connection cannot be used to perform this operation."};
inline const automation::Error in_a_transaction{
    3246, "Connection object cannot be explicitly closed while in a transaction."};
inline const automation::Error no_transaction{-2147168242, "No transaction is active."};
inline const automation::Error no_current_record{3021, "Either BOF or EOF is True."};
inline const automation::Error wrong_arguments{
    3001,
    "Arguments are of the wrong type, are out of acceptable range, or are in "
    "conflict with one another."};
inline const automation::Error no_such_item{3265, "Item cannot be found in the collection."};

}  // namespace tallyra::stage::ado_errors
