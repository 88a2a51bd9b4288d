#pragma once

#include <wtypes.h>

#include <string>
#include <string_view>

// Texts are UTF-8 inside and UTF-16 on the wire. A surrogate without its partner becomes the three bytes of
// its own number, so that every text comes back as it came, whatever it holds; zeros are characters as any
// other.
namespace tallyra::automation::com {

std::string to_utf8(std::wstring_view text);
// Bytes that are no UTF-8 become U+FFFD.
std::wstring to_utf16(std::string_view text);

// A null BSTR is an empty text.
std::string text_of(const OLECHAR* bstr);
// A new BSTR that the caller frees. Throws std::bad_alloc.
BSTR new_bstr(std::string_view text);

}  // namespace tallyra::automation::com
