#pragma once

#include <string>

namespace tallyra::automation::com {

// Whether two whole paths lead to the same place: in capitals or small letters, in short or long names, over
// detours, in quotes. A name without a folder leads nowhere: what it means depends on who asks.
bool is_same_path(const std::wstring& left, const std::wstring& right);

}  // namespace tallyra::automation::com
