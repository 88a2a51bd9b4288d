#include "standins/lexbank/texts.h"

namespace tallyra::standins::lexbank {

constexpr Texts german{
    .messages = {{
        {10000002, "Feldnamen und Feldwerte fehlen oder sind nicht gleich viele."},
        {10000003, "Der Datensatz wurde nicht gefunden."},
        {10000004, "Ein Datensatz mit diesem Schlüssel ist bereits vorhanden."},
        {10000016,
         "Dazu sind Sie nicht berechtigt: Es fehlt das Recht, oder der Datensatz gehört einem anderen "
         "Benutzer."},
        {10000024, "Der Auftrag benötigt dieses Teil nicht."},
        {10000112, "Das Datum liegt in einem abgeschlossenen Zeitraum."},
        {10000115, "Dieses Teil wurde von diesem Lieferanten noch nie bezogen."},
        {20000005, "Das Teil ist nicht vorhanden."},
    }},
    .status_approved = "Genehmigt",
    .name_check = "Inventurausgleich",
};
static_assert(is_complete(german));

}  // namespace tallyra::standins::lexbank
