#pragma once

#include <span>
#include <string>
#include <string_view>

#include "tests/com/server_dll.h"
#include "tests/support/company_database.h"

// Business objects out of Tallyra.dll, as a client of the machine has them.
namespace tallyra::tests::com {

struct ServedClassId {
  std::string_view name;
  CLSID id;
};

// The ten classes.
std::span<const ServedClassId> served_class_ids();
REFCLSID served_class_id(std::string_view name);

// A new object with its session on that database, as ADMIN. The stand-ins that it uses are the registered
// ones.
Pointer<IDispatch> new_client(const ServerDll& dll, REFCLSID class_id,
                              const behaviour::CompanyDatabase& company);

// Puts a session property by its dispatch id.
void put_session(IDispatch* object, DISPID id, std::string_view text);

// The number that tells of a closed period.
inline constexpr float closed_period = 10000112;

float error_number_of(IDispatch* object);
std::string error_description_of(IDispatch* object);

}  // namespace tallyra::tests::com
