// Defines the identifiers that the interface header declares.
#include <initguid.h>

#include "tallyra.h"
