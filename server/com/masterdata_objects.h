#pragma once

// Master data and shipping notes.

#include "server/com/record_object.h"
#include "tallyra.h"

namespace tallyra::server::com {

using RevAddrObject = RecordObject<_CRevAddr, BSTR*, BSTR*>;
using STKControllerObject = RecordObject<_CSTKController, BSTR*, BSTR*>;
using StkShipNoteObject = RecordObject<_CStkShipNote, BSTR*, BSTR>;

}  // namespace tallyra::server::com
