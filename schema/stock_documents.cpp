#include "schema/subjects.h"

namespace tallyra::schema {
namespace {

constexpr std::string_view of_stock_documents = "Stock documents";

Table headers() {
  return {.name = "STKTRANHD",
          .subject = of_stock_documents,
          .note =
              "TRANNO is unique except when it is empty: a posting that was issued no number is stored under "
              "''.",
          .columns = with_stamp({required(text("TRANNO", 20)), required(text("TRANTYPE", 20)),
                                 text("REFERENCE", 20), compared(date("TRANDT")), partner("DEPTNOFR"),
                                 text("DEPTNMFR", 60), partner("DEPTNOTO"), text("DEPTNMTO", 60),
                                 text("STATUS", 20), from_zero(integer("STATUSSN")), text("STATUSBY", 50),
                                 date("STATUSDT"), text("MAKEBY", 50), text("NOTES", 255)}),
          .indexes = {
              {"STKTRANHD_KEY", {"TRANNO"}, true, "TRANNO", "100000 1"},
              {"STKTRANHD_BY_NUMBER",
               {"TRANNO", "DEPTNOFR", "TRANDT", "TRANTYPE", "DEPTNOTO", "STATUSSN"},
               false,
               {},
               "100000 1 1 1 1 1 1"},
              {"STKTRANHD_BY_SOURCE",
               {"DEPTNOFR", "TRANDT", "TRANTYPE", "TRANNO"},
               false,
               {},
               "100000 50000 500 100 1 noskipscan"},
              {"STKTRANHD_BY_TARGET",
               {"DEPTNOTO", "TRANTYPE", "TRANDT", "TRANNO"},
               false,
               {},
               "100000 50000 50000 500 1 noskipscan"},
              {"STKTRANHD_BY_TYPE",
               {"TRANTYPE", "TRANDT", "STATUSSN", "TRANNO"},
               false,
               {},
               "100000 20000 500 300 1 noskipscan"},
          }};
}

Table lines() {
  return {.name = "STKTRANDT",
          .subject = of_stock_documents,
          .note = "No unique key: close documents and postings number every line 0.",
          .columns = with_stamp({required(text("TRANNO", 20)), text("REFERENCE", 20), integer("SN"),
                                 required(text("PARTNO", 40)), text("REFPARTNO", 40), text("MONO", 20),
                                 number("QTY"), number("VQTY"), number("UPRICE"), text("NOTES", 255)}),
          .indexes = {
              {"STKTRANDT_BY_NUMBER", {"TRANNO", "SN", "PARTNO", "QTY"}, false, {}, "1000000 10 2 1 1"},
              {"STKTRANDT_BY_PART", {"PARTNO", "TRANNO", "QTY", "UPRICE"}, false, {}, "1000000 60 1 1 1"},
              {"STKTRANDT_BY_REFERENCE", {"REFERENCE", "SN"}, false, {}, "1000000 30 5"},
          }};
}

Table shipping_notes() {
  return {.name = "STKSHIPNOTE",
          .subject = of_stock_documents,
          .note = {},
          .columns = with_stamp({required(text("TRANNO", 20)), text("TRANTYPE", 20), date("NOTEDT"),
                                 text("CARRIER", 60), text("RECEIVEDBY", 60), text("NOTES", 255)}),
          .key = {"TRANNO"}};
}

}  // namespace

std::vector<Table> stock_documents() {
  return {headers(), lines(), shipping_notes()};
}

}  // namespace tallyra::schema
