#include "standins/corvane/column_kind.h"

namespace tallyra::standins::corvane {

ColumnKind column_kind(std::int32_t data_type) {
  switch (data_type) {
    case 2:   // adSmallInt
    case 3:   // adInteger
    case 16:  // adTinyInt
    case 17:  // adUnsignedTinyInt
    case 18:  // adUnsignedSmallInt
    case 19:  // adUnsignedInt
    case 20:  // adBigInt
    case 21:  // adUnsignedBigInt
      return ColumnKind::whole_number;
    case 4:    // adSingle
    case 5:    // adDouble
    case 6:    // adCurrency
    case 14:   // adDecimal
    case 131:  // adNumeric
    case 139:  // adVarNumeric
      return ColumnKind::number;
    case 7:    // adDate
    case 133:  // adDBDate
    case 135:  // adDBTimeStamp
      return ColumnKind::date;
    case 8:    // adBSTR
    case 72:   // adGUID
    case 129:  // adChar
    case 130:  // adWChar
    case 200:  // adVarChar
    case 201:  // adLongVarChar
    case 202:  // adVarWChar
    case 203:  // adLongVarWChar
      return ColumnKind::text;
    case 11:  // adBoolean
      return ColumnKind::boolean;
    case 12:  // adVariant
      return ColumnKind::any;
    default: return ColumnKind::unsupported;
  }
}

}  // namespace tallyra::standins::corvane
