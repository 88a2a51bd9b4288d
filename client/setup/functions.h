#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tallyra::client {

// What a right is asked for: a function code with what it stands for.
struct FunctionCode {
  std::string_view code;
  std::string_view what;
};

// "*", any function, comes first.
std::span<const FunctionCode> function_codes();

// The name of a class that asks for one function alone, as function_code takes it; nothing for the classes of
// documents, where the type of each is the function.
std::optional<std::string_view> function_of_class(std::string_view class_name);

struct RightName {
  std::string_view word;      // on the command line
  std::string_view column;    // in the table of rights
  std::string_view property;  // of the library that answers for rights
};

// In the order of the columns.
std::span<const RightName> right_names();

// The code as it is stored, for one in any case or the name of a class. Throws UsageError for any other word.
std::string function_code(std::string_view word);
// Places in right_names() of the words, each once; "all" means all of them. Throws UsageError.
std::vector<std::size_t> right_places(std::span<const std::string> words);

}  // namespace tallyra::client
