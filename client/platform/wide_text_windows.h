#pragma once

#include <string>
#include <string_view>

namespace tallyra::client {

// The two forms of text, for calls of the system.
std::string utf8_text(const wchar_t* text);
std::wstring wide_text(std::string_view text);

}  // namespace tallyra::client
