#pragma once

#include <memory>
#include <ostream>
#include <string>

namespace tallyra::tests {

// An empty database of some engine for one test; it goes with the object.
class EmptyDatabase {
 public:
  virtual ~EmptyDatabase() = default;
  EmptyDatabase(const EmptyDatabase&) = delete;
  EmptyDatabase& operator=(const EmptyDatabase&) = delete;

  // A connection string of ADO.
  const std::string& connection_string() const { return connection_string_; }

 protected:
  explicit EmptyDatabase(std::string connection_string) : connection_string_(std::move(connection_string)) {}

 private:
  std::string connection_string_;
};

// What a test that holds on every engine is instantiated with.
struct TestedEngine {
  const char* name;
  // Registers ADO's classes. None where the machine has no such server.
  std::unique_ptr<EmptyDatabase> (*empty_database)();
};
inline void PrintTo(const TestedEngine& engine, std::ostream* out) {
  *out << engine.name;
}

// A file in a folder of its own.
extern const TestedEngine sqlite_engine;
// A new database of the server that the environment names: TALLYRA_POSTGRES is a connection string to any
// database of it, of a user who may create databases.
extern const TestedEngine postgresql_engine;

}  // namespace tallyra::tests
