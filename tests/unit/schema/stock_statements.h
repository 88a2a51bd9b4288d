#pragma once

#include <string>

namespace tallyra::tests::samples {

// The statements of the month close and of a stocktaking's approval in the form in which SQLite runs them.

inline const std::string lines_with_headers =
    " From STKTRANDT Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO  Where  ";

inline const std::string close_outgoing =
    "Select STKTRANDT.PARTNO,SUM(STKTRANDT.QTY) AS QTY" + lines_with_headers +
    "STKTRANHD.DEPTNOFR='20' And STKTRANHD.TRANDT>'2024-01-31 00:00:00' AND STKTRANHD.TRANDT<='2024-02-29 "
    "00:00:00' "
    "AND  STKTRANHD.TRANTYPE<>'STKCLOSEALL' GROUP BY STKTRANDT.PARTNO Order by STKTRANDT.PARTNO";

inline const std::string close_incoming =
    "Select STKTRANDT.PARTNO,SUM(STKTRANDT.QTY) AS QTY" + lines_with_headers +
    "STKTRANHD.DEPTNOTO='20' And STKTRANHD.TRANTYPE='STK024MRPL' And STKTRANHD.TRANDT>'2024-01-31 00:00:00' "
    "AND "
    "STKTRANHD.TRANDT<='2024-02-29 00:00:00' GROUP BY STKTRANDT.PARTNO Order by STKTRANDT.PARTNO";

inline const std::string company_close =
    "Select PARTS.MTYPESN,STKTRANDT.PARTNO,PARTS.PRICETYPESN,PARTS.EDITDT,SUM(STKTRANDT.QTY) AS QTY From "
    "(STKTRANDT "
    "Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO) Inner Join PARTS On "
    "STKTRANDT.PARTNO=PARTS.PARTNO  "
    "Where STKTRANHD.TRANDT='2024-03-01 00:00:00' AND STKTRANHD.TRANTYPE='STK027CLOSE'  GROUP BY "
    "PARTS.MTYPESN,STKTRANDT.PARTNO,PARTS.PRICETYPESN,PARTS.EDITDT Order by PARTS.MTYPESN,STKTRANDT.PARTNO "
    "ASC";

inline const std::string clear_lines =
    "Delete FROM STKTRANDT AS doomed WHERE doomed.rowid IN (SELECT STKTRANDT.rowid" + lines_with_headers +
    "STKTRANHD.TRANTYPE='STK027CLOSE' AND STKTRANHD.STATUSSN=0)";

inline const std::string clear_headers =
    "Delete From STKTRANHD Where STKTRANHD.TRANTYPE='STK027CLOSE' AND STKTRANHD.STATUSSN=0";

inline const std::string approve_close =
    "UPDATE STKTRANHD SET STATUSSN=1 WHERE STKTRANHD.TRANDT='2024-03-01 00:00:00' AND  "
    "(STKTRANHD.TRANTYPE='STK027CLOSE' OR STKTRANHD.TRANTYPE='STKCLOSEALL') ";

inline const std::string check_outgoing = "Select SUM(STKTRANDT.QTY) AS QTY" + lines_with_headers +
                                          "STKTRANHD.DEPTNOFR='20' And STKTRANHD.TRANDT>'2024-01-31 "
                                          "00:00:00' And STKTRANHD.TRANDT<='2024-02-29 00:00:00' "
                                          "AND STKTRANDT.PARTNO='RM-00001'";

inline const std::string check_incoming =
    "Select SUM(STKTRANDT.QTY) AS QTY" + lines_with_headers +
    "STKTRANHD.DEPTNOTO='20' And STKTRANHD.TRANDT>'2024-01-31 00:00:00' And STKTRANHD.TRANDT<='2024-02-29 "
    "00:00:00' "
    "And STKTRANHD.TRANTYPE='STK024MRPL' AND STKTRANDT.PARTNO='RM-00001'";

// Cost look-ups of one part, as the system object of the stand-ins asks them.

inline const std::string priced_lines_of_the_part =
    " From STKTRANDT Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO Where "
    "STKTRANDT.PARTNO='RM-00001' And STKTRANDT.UPRICE Is Not Null And ";

inline const std::string last_receipt =
    "Select STKTRANDT.UPRICE As UPRICE" + priced_lines_of_the_part +
    "Not STKTRANHD.TRANTYPE<>'STK010POREV' And STKTRANHD.STATUSSN=1 And STKTRANHD.TRANDT<='2024-02-29 "
    "00:00:00' "
    "Order By STKTRANHD.TRANDT Desc,STKTRANHD.TRANNO Desc,STKTRANDT.UPRICE Desc LIMIT 1";

inline const std::string receipts_of_period =
    "Select Sum(STKTRANDT.QTY) As QTY,Sum(STKTRANDT.QTY*STKTRANDT.UPRICE) As AMOUNT" +
    priced_lines_of_the_part +
    "Not STKTRANHD.TRANTYPE<>'STK010POREV' And STKTRANHD.STATUSSN=1 And STKTRANHD.TRANDT>'2024-01-31 "
    "00:00:00' "
    "And STKTRANHD.TRANDT<='2024-02-29 00:00:00'";

inline const std::string produced_and_closed =
    "Select STKTRANHD.TRANTYPE,STKTRANHD.STATUSSN,STKTRANHD.TRANNO,STKTRANDT.QTY,STKTRANDT.UPRICE" +
    priced_lines_of_the_part +
    "Not (STKTRANHD.TRANTYPE<>'STK022REVMO' And STKTRANHD.TRANTYPE<>'STK022REVSO' And "
    "STKTRANHD.TRANTYPE<>'STKCLOSEALL') And STKTRANHD.TRANDT>'2024-01-31 00:00:00' And "
    "STKTRANHD.TRANDT<='2024-02-29 00:00:00' Order By STKTRANHD.TRANDT Desc,STKTRANHD.TRANNO Desc";

}  // namespace tallyra::tests::samples
