// refused: the statement has more holes than values are given
#include "frame/sql.h"

std::string statement() {
#ifdef MENDED
  return tallyra::frame::sql("Delete From STKSHIPNOTE Where TRANNO='{}' And CARRIER='{}'", "SI24010001",
                             "Rail");
#else
  return tallyra::frame::sql("Delete From STKSHIPNOTE Where TRANNO='{}' And CARRIER='{}'", "SI24010001");
#endif
}
