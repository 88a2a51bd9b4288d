#pragma once

namespace tallyra::standins::ado {

// Makes ADODB.Connection and ADODB.Recordset known to the local registry. Safe to call again.
void register_classes();

}  // namespace tallyra::standins::ado
