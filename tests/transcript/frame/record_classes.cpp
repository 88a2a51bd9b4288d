#include <algorithm>

#include "tests/transcript/frame/record_class.h"

namespace tallyra::records {
namespace {

// A backquote stands for the quote of a date.
const std::vector<RecordClass> of_every_kind{
    {
        .class_name = "CRevAddr",
        .function_code = "STK028ADDR",
        .table = "REVADDR",
        .keys = {"A1"},
        .every_key_by_reference = true,
        .row_query = "Select * From REVADDR Where AddrNo='A1'",
        .read_appends = true,
        .key_query = "Select * From REVADDR where AddrNo='A1'",
        .insert_wants_one = false,
        .insert_in_transaction = false,
        .structure = {"Select top 1 * From REVADDR", Query::forward_only, Query::server},
        .condition = " Where AddrNo='A1'",
        .update_owner = {"Select ADDBY from REVADDR WHERE ADDRNO='A1'", Query::forward_only, Query::as_it_is},
        .delete_owner = {"Select ADDBY from REVADDR WHERE ADDRNO='A1'", Query::forward_only, Query::as_it_is},
        .opens_again = true,
        .removals = {"Delete From REVADDR Where AddrNo='A1'"},
    },
    {
        .class_name = "CSTKController",
        .function_code = "STK032USER",
        .table = "STKCONTROLLER",
        .keys = {"A1"},
        .every_key_by_reference = true,
        .row_query = "Select * From STKCONTROLLER Where CONTROLLERNO='A1'",
        .read_appends = true,
        .key_query = "Select * From STKCONTROLLER where CONTROLLERNO='A1'",
        .insert_wants_one = false,
        .insert_in_transaction = false,
        .structure = {"Select top 1 * From STKCONTROLLER", Query::forward_only, Query::server},
        .condition = " Where CONTROLLERNO='A1'",
        .update_owner = {"Select ADDBY from STKCONTROLLER WHERE CONTROLLERNO='A1'", Query::forward_only,
                         Query::as_it_is},
        .delete_owner = {"Select ADDBY from STKCONTROLLER WHERE CONTROLLERNO='A1'", Query::forward_only,
                         Query::as_it_is},
        .opens_again = true,
        .removals = {"Delete From STKCONTROLLER Where CONTROLLERNO='A1'"},
    },
    {
        .class_name = "CStkShipNote",
        .function_code = "STK030SHIPN",
        .table = "STKSHIPNOTE",
        .keys = {"T1"},
        .row_query = "Select STKSHIPNOTE.* From STKSHIPNOTE Where STKSHIPNOTE.TRANNO='T1'",
        .read_appends = true,
        .key_query = "Select * From STKSHIPNOTE where TRANNO='T1'",
        .structure = {"Select top 1 * From STKSHIPNOTE", Query::fixed, Query::as_it_is},
        .condition = " Where STKSHIPNOTE.TRANNO='T1' ",
        // Only a note of the class's own type is asked for its owner.
        .update_owner = {"Select ADDBY from STKSHIPNOTE WHERE STKSHIPNOTE.TRANNO='T1' AND "
                         "STKSHIPNOTE.TRANTYPE='STK030SHIPN'",
                         Query::fixed, Query::as_it_is},
        .delete_owner = {"Select ADDBY from STKSHIPNOTE WHERE TRANNO='T1'", Query::forward_only,
                         Query::as_it_is},
        .opens_again = true,
        .removals = {"Delete From STKSHIPNOTE Where TRANNO='T1'"},
    },
    {
        .class_name = "CPartCostSet",
        .function_code = "STK050PCOST",
        .table = "PARTCOSTSET",
        .keys = {7},
        .update_tag = RecordClass::tag_may_be_left_out,
        .row_query = "Select PARTCOSTSET.* From PARTCOSTSET Where PARTCOSTSET.MTYPESN=7",
        .key_query = "Select * From PARTCOSTSET where MTYPESN=7",
        .structure = {"Select top 1 * From PARTCOSTSET", Query::forward_only, Query::server},
        .condition = " Where PARTCOSTSET.MTYPESN=7",
        .removals = {"Delete From PARTCOSTSET Where MTYPESN=7"},
        .delete_rolls_back = false,
    },
    {
        .class_name = "CCheckHead",
        .function_code = "STK026CHECK",
        .table = "STKCHECKHD",
        .keys = {"S1"},
        .update_tag = RecordClass::tag_is_needed,
        .row_query = "Select STKCHECKHD.* From STKCHECKHD Where STKCHECKHD.CHECKNO='S1'",
        .key_query = "Select * From STKCHECKHD where CHECKNO='S1'",
        .structure = {"Select top 1 * From STKCHECKHD", Query::fixed, Query::server},
        .condition = " Where STKCHECKHD.CHECKNO='S1' ",
        .update_in_transaction = true,
        .update_owner = {"Select ADDBY from STKCHECKHD WHERE STKCHECKHD.CHECKNO='S1'", Query::fixed,
                         Query::as_it_is},
        .delete_owner = {"Select ADDBY from STKCHECKHD WHERE CHECKNO='S1'", Query::fixed, Query::as_it_is},
        // The header first, then the lines.
        .removals = {"Delete From STKCHECKHD Where CHECKNO='S1'",
                     "Delete From STKCHECKDT Where CHECKNO='S1'"},
        .delete_rolls_back = false,
    },
    {
        .class_name = "CCheckDetail",
        .function_code = "STK026CHECK",
        .table = "STKCHECKDT",
        .keys = {"S1", "P1"},
        .every_key_by_reference = true,
        .row_query =
            "Select STKCHECKDT.*,PARTS.PARTNM,PARTS.COLORNO,PARTS.COLORNM,PARTS.UNITNM From STKCHECKDT INNER "
            "JOIN PARTS ON STKCHECKDT.PARTNO=PARTS.PARTNO  Where STKCHECKDT.CHECKNO='S1' And "
            "STKCHECKDT.PartNo='P1' ",
        .read_counts_rows = false,
        .known_query = "Select PARTNO from PARTS WHERE PARTS.PARTNO='P1'",
        .key_query = "Select * From STKCHECKDT Where CHECKNO='S1' And PartNo='P1' ",
        .insert_in_transaction = false,
        .structure = {"Select top 1 * From STKCHECKDT", Query::forward_only, Query::server},
        .condition = " Where CHECKNO='S1' And PartNo='P1' ",
        // Lines belong to the creator of their header.
        .update_owner = {"Select ADDBY from STKCHECKHD WHERE STKCHECKHD.CHECKNO='S1'", Query::fixed,
                         Query::as_it_is},
        .delete_owner = {"Select ADDBY from STKCHECKHD WHERE CHECKNO='S1'", Query::forward_only,
                         Query::as_it_is},
        .removals = {"Delete From STKCHECKDT Where CHECKNO='S1' And PartNo='P1'"},
    },
    {
        .class_name = "CTranHead",
        // The document's type is the function whose rights count.
        .function_code = "STK010POREV",
        .table = "STKTRANHD",
        .keys = {"T1", "STK010POREV"},
        .other_keys_elsewhere = true,
        .update_tag = RecordClass::tag_is_needed,
        .row_query = "Select STKTRANHD.* From STKTRANHD Where STKTRANHD.TRANNO='T1'",
        .key_query = "Select * From STKTRANHD where TRANNO='T1'",
        .structure = {"Select top 1 * From STKTRANHD", Query::fixed, Query::server},
        .condition = " Where STKTRANHD.TRANNO='T1' ",
        .update_owner = {"Select ADDBY from STKTRANHD WHERE STKTRANHD.TRANNO='T1' AND "
                         "STKTRANHD.TRANTYPE='STK010POREV'",
                         Query::fixed, Query::server},
        .delete_owner = {"Select ADDBY from STKTRANHD WHERE TRANNO='T1'", Query::fixed, Query::server},
        .removals = {"Delete From STKTRANHD Where TRANNO='T1'", "Delete From STKTRANDT Where TRANNO='T1'",
                     "Delete From STKSHIPNOTE Where TRANNO='T1'"},
    },
    {
        .class_name = "CTranDetail",
        .function_code = "STK010POREV",
        .table = "STKTRANDT",
        // A line without a number is found by its part.
        .keys = {"T1", "STK010POREV", "PO1", "P1"},
        .read_keys = {"T1", "PO1", "P1"},
        .other_keys_elsewhere = true,
        .every_key_by_reference = true,
        .row_query = "Select STKTRANDT.*,PARTS.PARTNM,PARTS.CATEGORYNO,PARTS.CATEGORYNO,PARTS.COLORNO,"
                     "PARTS.COLORNM,PARTS.UNITNM  From STKTRANDT INNER JOIN PARTS ON "
                     "STKTRANDT.PARTNO=PARTS.PARTNO WHERE STKTRANDT.TRANNO='T1' AND "
                     "STKTRANDT.REFERENCE='PO1' AND STKTRANDT.PARTNO='P1' ",
        .key_query = "Select STKTRANDT.* From  STKTRANDT  WHERE STKTRANDT.TRANNO='T1' And "
                     "STKTRANDT.REFERENCE='PO1' And STKTRANDT.PARTNO='P1'",
        .insert_in_transaction = false,
        .structure = {"Select top 1 * From STKTRANDT", Query::fixed, Query::server},
        .condition = " WHERE STKTRANDT.TRANNO='T1' AND STKTRANDT.REFERENCE='PO1' AND STKTRANDT.PARTNO='P1' ",
        .update_owner = {"Select ADDBY from STKTRANDT WHERE STKTRANDT.TRANNO='T1' AND "
                         "STKTRANDT.REFERENCE='PO1' AND STKTRANDT.PARTNO='P1' ",
                         Query::fixed, Query::server},
        .delete_owner = {"Select ADDBY from STKTRANDT WHERE STKTRANDT.TRANNO='T1' AND "
                         "STKTRANDT.REFERENCE='PO1' AND STKTRANDT.PARTNO='P1' ",
                         Query::fixed, Query::server},
        .removals = {"Delete From STKTRANDT WHERE STKTRANDT.TRANNO='T1' AND STKTRANDT.REFERENCE='PO1' AND "
                     "STKTRANDT.PARTNO='P1' "},
    },
    {
        .class_name = "CStockClose",
        .function_code = "STK027CLOSE",
        .table = "STKCLOSEHD",
        .keys = {"2024/03/31"},
        .other_keys_elsewhere = true,
        .update_tag = RecordClass::tag_is_needed,
        .row_query = "Select STKCLOSEHD.* From STKCLOSEHD Where STKCLOSEHD.CLOSEDT=`2024/03/31`",
        .read_appends = true,
        .inserts = false,
        .structure = {"Select top 1 * From STKCLOSEHD", Query::forward_only, Query::server},
        .condition = " Where STKCLOSEHD.CLOSEDT=`2024/03/31`",
        .update_in_transaction = true,
        .also_updated = {"Update STKCLOSEHD Set STATUSSN=1 Where CLOSEDT<`2024/03/31` And STATUSSN<1",
                         "UPDATE STKTRANHD SET STATUSSN=1 WHERE STKTRANHD.TRANDT=`2024/04/01` AND  "
                         "(STKTRANHD.TRANTYPE='STK027CLOSE' OR STKTRANHD.TRANTYPE='STKCLOSEALL') "},
        .opens_again = true,
        .removals = {"Delete * From STKCLOSEHD Where CLOSEDT=`2024/03/31`",
                     "Delete STKTRANDT.* From STKTRANDT Inner Join STKTRANHD On "
                     "STKTRANDT.TRANNO=STKTRANHD.TRANNO Where STKTRANHD.TRANDT=`2024/04/01` AND "
                     "(STKTRANHD.TRANTYPE='STK027CLOSE' OR STKTRANHD.TRANTYPE='STKCLOSEALL') ",
                     "Delete * From STKTRANHD Where  STKTRANHD.TRANDT=`2024/04/01` AND  "
                     "(STKTRANHD.TRANTYPE='STK027CLOSE' OR STKTRANHD.TRANTYPE='STKCLOSEALL') "},
    },
};

}  // namespace

std::vector<RecordClass> record_classes(const std::string& kind) {
  const char quote = kind == "MSACCESS" ? '#' : '\'';
  const auto in_form = [quote](std::string& statement) {
    std::replace(statement.begin(), statement.end(), '`', quote);
  };
  std::vector<RecordClass> classes = of_every_kind;
  for (RecordClass& each : classes) {
    in_form(each.row_query);
    in_form(each.condition);
    for (auto* statements : {&each.also_updated, &each.removals})
      for (std::string& statement : *statements) in_form(statement);
  }
  return classes;
}

}  // namespace tallyra::records
