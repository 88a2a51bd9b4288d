#include "bench/sqlite_replay.h"

#include <charconv>
#include <unordered_map>

#include "bench/connection_key.h"
#include "bench/shape.h"
#include "bench/sqlite_database.h"

namespace tallyra::bench {
namespace {

constexpr int driver_waits_milliseconds = 100'000;
constexpr std::size_t most_shapes = 500;

int wait_of(const std::string& connection_string) {
  const std::string text = connection_key(connection_string, "Timeout");
  int milliseconds = driver_waits_milliseconds;
  std::from_chars(text.data(), text.data() + text.size(), milliseconds);
  return milliseconds;
}

class TextConnection : public ReplayConnection {
 public:
  explicit TextConnection(const std::string& connection_string)
      : database_(connection_key(connection_string, "Database"), wait_of(connection_string)) {}

  void run(std::string& sql, bool) override { database_.drain(database_.prepare(sql).get()); }
  void begin() override { database_.execute("BEGIN"); }
  void commit() override { database_.execute("COMMIT"); }
  void roll_back() override {
    if (database_.in_transaction()) database_.execute("ROLLBACK");
  }

 protected:
  SqliteDatabase database_;
};

class ShapeConnection : public TextConnection {
 public:
  using TextConnection::TextConnection;

  void run(std::string& sql, bool) override {
    const Shape& shape = reader_.read(sql);
    sqlite3_stmt* const statement = statement_of(shape);
    bind(statement, shape);
    const Reset reset{statement};
    database_.drain(statement);
  }

 private:
  // Lets go of the locks and of the bound texts, also after an error.
  struct Reset {
    sqlite3_stmt* statement;
    ~Reset() {
      sqlite3_reset(statement);
      sqlite3_clear_bindings(statement);
    }
  };

  sqlite3_stmt* statement_of(const Shape& shape) {
    const auto found = statements_.find(shape.sql);
    if (found != statements_.end()) return found->second.get();
    if (statements_.size() == most_shapes) statements_.clear();
    return statements_.emplace(shape.sql, database_.prepare(shape.sql)).first->second.get();
  }

  static void bind(sqlite3_stmt* statement, const Shape& shape) {
    int place = 0;
    for (const Literal& literal : shape.literals) {
      ++place;
      switch (literal.kind) {
        case Literal::Kind::integer: sqlite3_bind_int64(statement, place, literal.integer); break;
        case Literal::Kind::real: sqlite3_bind_double(statement, place, literal.real); break;
        case Literal::Kind::text: {
          const std::string_view text = shape.text(literal);
          sqlite3_bind_text(statement, place, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
        }
      }
    }
  }

  ShapeReader reader_;
  // Goes before the database that the statements belong to.
  std::unordered_map<std::string, SqliteStatement> statements_;
};

}  // namespace

Connect through_sqlite_by_text() {
  return [](std::string& connection_string) { return std::make_unique<TextConnection>(connection_string); };
}

Connect through_sqlite_by_shape() {
  return [](std::string& connection_string) { return std::make_unique<ShapeConnection>(connection_string); };
}

}  // namespace tallyra::bench
