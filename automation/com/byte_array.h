#pragma once

#include <oaidl.h>

#include <optional>
#include <string>
#include <string_view>

// Bytes on the wire: one-dimensional arrays counted from 0.
namespace tallyra::automation::com {

// The content of an array of bytes; nothing for one of another shape, or for none. Throws Error when the
// array cannot be locked.
std::optional<std::string> bytes_in(SAFEARRAY* array);

// A new array that the caller destroys. Throws std::bad_alloc.
SAFEARRAY* new_byte_array(std::string_view bytes);

}  // namespace tallyra::automation::com
