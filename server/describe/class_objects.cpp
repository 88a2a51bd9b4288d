#include "server/describe/class_objects.h"

#include <vector>

#include "server/describe/words.h"

namespace tallyra::server::describe {
namespace {

constexpr std::size_t line_width = 110;

// `head` and the parameters behind it, broken where a line is full and aligned below the first; `tail` stays
// with the last.
std::string wrapped(const std::string& head, const std::vector<std::string>& parameters,
                    const std::string& tail) {
  std::string text = head;
  std::size_t column = head.size();
  for (const auto& parameter : parameters) {
    const bool is_last = &parameter == &parameters.back();
    const std::string piece = parameter + (is_last ? tail : ",");
    const bool is_first = &parameter == &parameters.front();
    if (!is_first && column + 1 + piece.size() > line_width) {
      text += "\n" + std::string(head.size(), ' ');
      column = head.size();
    } else if (!is_first) {
      text += " ";
      ++column;
    }
    text += piece;
    column += piece.size();
  }
  return text;
}

std::string slot_name(const ClassMember& member) {
  const char* prefix = member.kind == MemberKind::property_get   ? "get_"
                       : member.kind == MemberKind::property_put ? "put_"
                                                                 : "";
  return prefix + std::string(member.name);
}

std::string passed_on(const ClassMember& member) {
  std::string text = member.kind == MemberKind::property_put ? "return put(" : "return call(";
  text += std::to_string(member.id);
  if (member.result != ResultType::none) text += ", result";
  for (const auto& parameter : member.parameters) text += ", " + std::string(parameter.name);
  return text + ");";
}

std::string slot(const ClassMember& member) {
  std::vector<std::string> parameters;
  parameters.reserve(member.parameters.size() + 1);
  for (const auto& parameter : member.parameters)
    parameters.push_back(interface_type(parameter) + " " + std::string(parameter.name));
  if (member.result != ResultType::none) parameters.push_back(interface_type(member.result) + " result");
  const std::string head = "  STDMETHODIMP " + slot_name(member) + "(";
  const std::string body = passed_on(member);
  const std::string line = wrapped(head, parameters, ") override { " + body + " }");
  if (line.size() <= line_width && line.find('\n') == std::string::npos) return line + "\n";
  return wrapped(head, parameters, ") override {") + "\n    " + body + "\n  }\n";
}

std::string class_object(const ClassTable& table) {
  const std::string interface_name = "_" + std::string(table.name);
  const std::string base = table.about.event_interface.empty() ? "InterfaceObject" : "EventSource";
  std::string arguments = interface_name;
  if (base == "EventSource") arguments += ", " + std::string(table.about.event_interface);
  std::string text = "class " + object_name(table.name) + " final : public " + base + "<" + arguments +
                     "> {\n public:\n  using " + base + "::" + base + ";\n\n";
  for (const auto& member : table.members) text += slot(member);
  return text + "};\n";
}

}  // namespace

std::string class_objects(std::span<const ClassTable> classes) {
  std::string text;
  for (const auto& table : classes) {
    if (!text.empty()) text += "\n";
    text += class_object(table);
  }
  return text;
}

std::string served_classes(std::span<const ClassTable> classes) {
  std::string text;
  for (const auto& table : classes) {
    const std::string name(table.name);
    text.append("          served<").append(object_name(name)).append(">(\"").append(name);
    text.append("\", CLSID_").append(name).append(", L\"Tallyra ").append(table.about.registered_as);
    text.append("\"),\n");
  }
  return text;
}

}  // namespace tallyra::server::describe
