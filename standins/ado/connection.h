#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "standins/ado/ado_object.h"
#include "standins/ado/engine.h"
#include "standins/ado/enumerations.h"

namespace tallyra::standins::ado {

class Recordset;

// ADODB.Connection to whatever engine its connection string stands for. Released in a transaction, it
// discards what the transaction did.
class Connection : public AdoObject<Connection> {
 public:
  static const automation::MemberTable<Connection>& members();

  automation::Value open(automation::Arguments arguments);
  automation::Value execute(automation::Arguments arguments);
  automation::Value begin_trans(automation::Arguments arguments);
  automation::Value commit_trans(automation::Arguments arguments);
  automation::Value rollback_trans(automation::Arguments arguments);
  automation::Value close(automation::Arguments arguments);

  automation::Value state();
  automation::Value version();
  automation::Value connection_string();
  void set_connection_string(const automation::Value& value);
  automation::Value connection_timeout();
  void set_connection_timeout(const automation::Value& value);
  automation::Value command_timeout();
  void set_command_timeout(const automation::Value& value);
  automation::Value location();
  void set_location(const automation::Value& value);
  automation::Value provider();
  void set_provider(const automation::Value& value);
  automation::Value properties(automation::Arguments arguments);

  // For recordsets.
  bool is_open() const { return session_ != nullptr; }
  CursorLocation cursor_location() const { return location_; }
  void open_with(std::string connection_string, std::string_view user, std::string_view password);
  // Throws 3704 when closed.
  EngineSession& session() const;
  // An open recordset closes with its connection, which does not own it.
  void attach(Recordset& recordset) { recordsets_.push_back(&recordset); }
  void detach(Recordset& recordset) { std::erase(recordsets_, &recordset); }

 private:
  std::unique_ptr<EngineSession> session_;  // while open
  std::vector<Recordset*> recordsets_;
  std::string connection_string_;
  std::string provider_ = "MSDASQL";
  std::int32_t connection_timeout_ = 15;
  // Statements take as long as the driver lets them, until a client says otherwise.
  std::optional<std::int32_t> command_timeout_;
  CursorLocation location_ = CursorLocation::server;
};

}  // namespace tallyra::standins::ado
