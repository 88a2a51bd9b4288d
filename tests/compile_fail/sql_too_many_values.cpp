// refused: the statement has fewer holes than values are given
#include "frame/sql.h"

std::string statement() {
#ifdef MENDED
  return tallyra::frame::sql("Delete From STKSHIPNOTE Where TRANNO='{}'", "SI24010001");
#else
  return tallyra::frame::sql("Delete From STKSHIPNOTE Where TRANNO='{}'", "SI24010001", 1);
#endif
}
