#pragma once

#include <oaidl.h>

#include <string>

#include "automation/error.h"

// Run-time errors on their way over a COM edge.
namespace tallyra::automation::com {

// The error that a failing HRESULT stands for, with the standard text of its number.
Error error_of(HRESULT code);
void throw_if_failed(HRESULT code);

// The error that a callee has described. Frees the texts of the description.
Error error_of(EXCEPINFO& description);
void free_texts(EXCEPINFO& description) noexcept;

// Describes an error to a caller; the texts belong to the caller then. Without the memory for them nothing is
// described and std::bad_alloc thrown.
void describe(EXCEPINFO& out, const Error& error, const std::string& source);

// Leaves an error as the thread's error object, for callers of interface members.
void set_error_object(REFIID interface_id, const Error& error, const std::string& source) noexcept;

}  // namespace tallyra::automation::com
