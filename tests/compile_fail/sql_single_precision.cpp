// refused: use of deleted function
// The text of a quantity has 15 digits; that of a single-precision number has 7.
#include "frame/sql.h"

std::string statement(float quantity) {
#ifdef MENDED
  return tallyra::frame::sql("Update STKTRANDT Set QTY={}", double{quantity});
#else
  return tallyra::frame::sql("Update STKTRANDT Set QTY={}", quantity);
#endif
}
