#include "client/report_json.h"

namespace tallyra::client {
namespace {

Json fields_json(const std::vector<Field>& fields) {
  Json json = Json::object();
  for (const auto& field : fields) {
    std::string name = field.name;
    for (int again = 2; json.contains(name); ++again) name = field.name + "#" + std::to_string(again);
    json[name] = value_json(field.value);
  }
  return json;
}

}  // namespace

Json report_object(const Outcome& outcome, const std::vector<std::string>& complaints) {
  Json json;
  json["class"] = outcome.prog_id;
  json["member"] = outcome.member;
  json["success"] = outcome.succeeded() && complaints.empty();
  json["result"] = value_json(outcome.result);
  if (outcome.raised)
    json["raised"] = {{"number", outcome.raised->number()}, {"description", outcome.raised->description()}};
  json["errNumber"] = outcome.error_number ? number_json(*outcome.error_number) : Json();
  json["errDescription"] = outcome.error_number ? Json(outcome.error_description) : Json();
  Json arguments = Json::object();
  for (const auto& argument : outcome.returned_arguments)
    arguments[std::to_string(argument.position)] = value_json(argument.value);
  json["arguments"] = std::move(arguments);
  json["fields"] = fields_json(outcome.fields);
  if (!complaints.empty()) json["complaints"] = complaints;
  return json;
}

std::string report_json(const Outcome& outcome, const std::vector<std::string>& complaints) {
  return json_text(report_object(outcome, complaints));
}

}  // namespace tallyra::client
