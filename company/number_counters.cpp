#include "company/number_counters.h"

#include <algorithm>
#include <filesystem>

#include "automation/convert.h"
#include "company/database_place.h"
#include "standins/corvane/document_database.h"

namespace tallyra::company {
namespace {

std::string file_of(const AdoConnection& sqlite) {
  for (const auto& row : sqlite.rows("PRAGMA database_list")) {
    if (automation::to_text(row.at(1)) == "main") return automation::to_text(row.at(2));
  }
  return {};
}

bool has_counters(const AdoConnection& connection) {
  return std::ranges::count(connection.relations(), schema::number_table) != 0;
}

}  // namespace

const schema::Table& number_counters_table() {
  return *std::ranges::find(schema::tables(), schema::number_table, &schema::Table::name);
}

NumberCounters::NumberCounters(const AdoConnection& source, const AdoConnection& target,
                               const std::string& target_connection_string)
    : target_(target) {
  const std::string file = file_of(source) + ".keys";
  if (!std::filesystem::exists(file)) return;
  auto found = std::make_unique<AdoConnection>(DatabasePlace(file).connection_string);
  found->begin();
  if (!has_counters(*found)) return;
  if (!schema::in_database(target.engine(), number_counters_table())) {
    const standins::corvane::DocumentDatabase documents(target_connection_string);
    own_target_ = std::make_unique<AdoConnection>(documents.open_counters());
    own_target_->begin();
    if (!has_counters(*own_target_)) {
      own_target_->execute(schema::create_table(schema::Engine::sqlite, number_counters_table()));
    }
  }
  source_ = std::move(found);
}

void NumberCounters::commit() const {
  if (own_target_) own_target_->commit();
}

}  // namespace tallyra::company
