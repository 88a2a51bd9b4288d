#pragma once

#include <optional>
#include <utility>

#include "standins/ado/odbc/odbc_api.h"
#include "standins/ado/odbc/odbc_error.h"

namespace tallyra::standins::ado {

// Owns one handle of the API. Freeing it does nothing else: a connection must have been disconnected before.
template <SQLSMALLINT type>
class OdbcHandle {
 public:
  // Throws Error with what the parent handle has to say.
  explicit OdbcHandle(SQLSMALLINT parent_type, SQLHANDLE parent) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(type, parent, &handle_))) {
      handle_ = nullptr;
      raise_diagnostic(parent_type, parent);
    }
  }
  OdbcHandle(OdbcHandle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  OdbcHandle& operator=(OdbcHandle&&) = delete;
  ~OdbcHandle() {
    if (handle_ != nullptr) SQLFreeHandle(type, handle_);
  }

  SQLHANDLE get() const { return handle_; }
  void reset() { const OdbcHandle discarded(std::move(*this)); }

  // What the handle has to say when a call on it failed; the next call on it wipes that out.
  std::optional<automation::Error> failure(SQLRETURN result) const {
    if (SQL_SUCCEEDED(result)) return std::nullopt;
    return diagnostic_error(type, handle_);
  }

  void require(SQLRETURN result) const {
    if (!SQL_SUCCEEDED(result)) raise_diagnostic(type, handle_);
  }

 private:
  SQLHANDLE handle_ = nullptr;
};

}  // namespace tallyra::standins::ado
