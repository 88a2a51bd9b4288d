// refused: 'text' is not a constant expression
// A statement that is put together at run time escapes the counting of holes, and whoever searches for it.
#include "frame/sql.h"

std::string statement(const char* text) {
#ifdef MENDED
  return tallyra::frame::sql("{}", text);
#else
  return tallyra::frame::sql(text);
#endif
}
