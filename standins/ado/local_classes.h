#pragma once

namespace tallyra::standins::ado {

// Makes ADODB.Connection and ADODB.Recordset classes of this process. Safe to call again.
void register_classes();

}  // namespace tallyra::standins::ado
