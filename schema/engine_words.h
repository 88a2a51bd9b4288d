#pragma once

#include <string>
#include <string_view>

#include "schema/description.h"
#include "schema/script.h"

namespace tallyra::schema {

// All in which the engines differ, a file each.
struct EngineWords {
  std::string_view heading;  // what a reader of the script should know, in comment lines
  std::string_view setting;  // a statement before the first table, may be empty
  std::string (*type)(const Column&);
  // What the engine checks of a value, with a blank in front; empty when its type is enough.
  std::string (*check)(const Column&);
  std::string_view stored_by_key;  // behind the columns of such a table
  bool partial_indexes = true;
  bool numbers_in_database = true;
};

extern const EngineWords sqlite_words;
extern const EngineWords postgresql_words;
extern const EngineWords sqlserver_words;
extern const EngineWords access_words;

const EngineWords& words_of(Engine engine);

}  // namespace tallyra::schema
