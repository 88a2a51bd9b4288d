#include "server/describe/interface_description.h"

#include <stdexcept>
#include <vector>

#include "automation/convert.h"
#include "server/describe/words.h"

namespace tallyra::server::describe {
namespace {

std::string quoted(std::string_view text) {
  return '"' + std::string(text) + '"';
}

std::string help_string(std::string_view help) {
  return "helpstring(" + quoted(help) + ")";
}

// The language knows but one default for a text by reference, a null pointer: an empty text.
std::string default_value(const automation::Value& value) {
  if (!value.is_text()) return automation::to_text(value);
  if (!automation::to_text(value).empty())
    throw std::invalid_argument("a text that is left out can only be empty");
  return "0";
}

std::string declared(const Parameter& parameter) {
  std::string text = parameter.by_reference ? "[in, out, " : "[in, ";
  if (parameter.optional()) text += "optional, defaultvalue(" + default_value(parameter.when_omitted) + "), ";
  return text + "HELP(" + quoted(parameter.help) + ")] " + interface_type(parameter) + " " +
         std::string(parameter.name);
}

std::string attributes(const ClassMember& member) {
  std::string text = "    [id(" + std::to_string(member.id) + "), ";
  if (member.kind == MemberKind::property_get) text += "propget, ";
  if (member.kind == MemberKind::property_put) text += "propput, ";
  return text + help_string(member.help) + "]\n";
}

std::string declared(const ClassMember& member) {
  std::vector<std::string> parameters;
  parameters.reserve(member.parameters.size() + 1);
  for (const auto& parameter : member.parameters) parameters.push_back(declared(parameter));
  if (member.result != ResultType::none)
    parameters.push_back("[out, retval, HELP(" + quoted(member.result_help) + ")] " +
                         interface_type(member.result) + " result");
  std::string text = attributes(member) + "    HRESULT " + std::string(member.name) + "(";
  for (const auto& parameter : parameters) {
    if (&parameter != &parameters.front()) text += ",";
    if (parameters.size() > 1) text += "\n        ";
    text += parameter;
  }
  return text + ");\n";
}

std::string interface_of(const ClassTable& table) {
  std::string text = "  [\n    object,\n    uuid(" + std::string(table.about.interface_id) +
                     "),\n    dual,\n    oleautomation,\n    nonextensible,\n    " +
                     help_string(table.about.help) + "\n  ]\n  interface _" + std::string(table.name) +
                     " : IDispatch\n  {\n";
  for (const auto& member : table.members) text += declared(member);
  return text + "  };\n";
}

std::string creatable_class(const ClassTable& table) {
  std::string text = "  [\n    uuid(" + std::string(table.about.class_id) + "),\n    " +
                     help_string(table.about.help) + "\n  ]\n  coclass " + std::string(table.name) +
                     "\n  {\n    [default] interface _" + std::string(table.name) + ";\n";
  if (!table.about.event_interface.empty())
    text += "    [default, source] dispinterface " + std::string(table.about.event_interface) + ";\n";
  return text + "  };\n";
}

std::string separated(std::span<const ClassTable> classes, std::string (*write)(const ClassTable&)) {
  std::string text;
  for (const auto& table : classes) {
    if (!text.empty()) text += "\n";
    text += write(table);
  }
  return text;
}

}  // namespace

std::string interface_names(std::span<const ClassTable> classes) {
  std::string text;
  for (const auto& table : classes) text += "  interface _" + std::string(table.name) + ";\n";
  return text;
}

std::string interfaces(std::span<const ClassTable> classes) {
  return separated(classes, interface_of);
}

std::string creatable_classes(std::span<const ClassTable> classes) {
  return separated(classes, creatable_class);
}

}  // namespace tallyra::server::describe
