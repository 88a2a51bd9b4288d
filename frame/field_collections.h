#pragma once

#include "automation/object.h"

namespace tallyra::frame {

// The two collections of a business method that moves whole rows: entry i of the names is a column, entry i
// of the values its value. A collaborator may put others in their place.
struct FieldCollections {
  automation::Object& names;
  automation::Object& values;
};

}  // namespace tallyra::frame
