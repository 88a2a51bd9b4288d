#include "server/describe/words.h"

#include <cctype>
#include <stdexcept>

namespace tallyra::server::describe {
namespace {

bool is_upper(char letter) {
  return std::isupper(static_cast<unsigned char>(letter)) != 0;
}

std::string type_of(ParameterType type) {
  switch (type) {
    case ParameterType::text: return "BSTR";
    case ParameterType::collection: return "IDispatch*";
    case ParameterType::variant: return "VARIANT";
    case ParameterType::int16: return "short";
    case ParameterType::int32: return "long";
    case ParameterType::float64: return "double";
  }
  throw std::logic_error("a parameter of no type");
}

}  // namespace

std::string interface_type(const Parameter& parameter) {
  return type_of(parameter.type) + (parameter.by_reference ? "*" : "");
}

std::string interface_type(ResultType result) {
  switch (result) {
    case ResultType::text: return "BSTR*";
    case ResultType::single: return "float*";
    case ResultType::float64: return "double*";
    case ResultType::int16: return "short*";
    case ResultType::variant: return "VARIANT*";
    case ResultType::object: return "IDispatch**";
    case ResultType::none: break;
  }
  throw std::logic_error("a result of no type");
}

std::string file_name(std::string_view class_name) {
  const std::string_view name = class_name.substr(1);
  std::string words;
  for (std::size_t i = 0; i < name.size(); ++i) {
    const bool begins_word = i > 0 && is_upper(name[i]) &&
                             (!is_upper(name[i - 1]) || (i + 1 < name.size() && !is_upper(name[i + 1])));
    if (begins_word) words += '_';
    words += static_cast<char>(std::tolower(static_cast<unsigned char>(name[i])));
  }
  return words;
}

std::string object_name(std::string_view class_name) {
  return std::string(class_name.substr(1)) + "Object";
}

}  // namespace tallyra::server::describe
