// The rules of accounts, customers and VAT codes, and those of SAP.
#pragma once

#include <array>

#include "control/rule.h"

namespace control {

inline constexpr auto kAccountRules = std::to_array<Rule>({
    {"K401", Severity::Error, "En konto mangler i oppsettet",
     "{field} i butikkens oppsett er «{value}», og dagen trenger den kontoen.",
     "Fyll inn {field} i butikkens oppsett.",
     "Overføringen stopper når den kommer til betalingsmidlet som bruker kontoen.",
     "Et nytt betalingsmiddel er tatt i bruk uten at kontoen er lagt inn.",
     "Spør regnskapsføreren om kontonummeret, og legg det inn i butikkens oppsett."},
    {"K402", Severity::Warning, "En konto i oppsettet er 0",
     "{field} i butikkens oppsett er 0 eller tom, og dagen har posteringer på den.",
     "Fyll inn {field} i butikkens oppsett.",
     "Regnskapet får posteringer på konto 0, som det neppe har.", "Kontoen er ikke lagt inn.",
     "Spør regnskapsføreren om kontonummeret, og legg det inn i butikkens oppsett."},
    {"K403", Severity::Warning, "En avgiftskode uten sats",
     "Avgiftskode {value} har ingen sats i tabellen Tax: prisen i ordrefilen blir stående med "
     "avgift.",
     "Legg inn satsen for avgiftskode {value}, eller rett koden på varen.",
     "Ordrefilen skal ha priser uten avgift. Uten sats blir prisen for høy.",
     "En ny avgiftskode er brukt på en vare uten at satsen er lagt inn.",
     "Legg inn koden og satsen i butikksystemet, eller rett koden på varen og lag dagsoppgjøret på "
     "nytt."},
    {"K404", Severity::Error, "Kunden har ikke noe kontonummer",
     "CustomerID er «{value}», og bongen har kredittsalg, forskudd eller betaling av faktura.",
     "Sett riktig kunde på bongen i kassen, og lag dagsoppgjøret på nytt.",
     "Beløpet skal på kundens konto. Uten kundenummer stopper overføringen.",
     "Bongen ble slått uten kunde, eller kundenummeret har bokstaver.",
     "Finn bongen i kassen, velg kunden, og lag dagsoppgjøret på nytt."},
    {"K405", Severity::Warning, "Kunden er ikke i registeret",
     "Kunde «{value}» finnes ikke i butikkens kunderegister.",
     "Se etter at kundenummeret er riktig, og legg inn kunden hvis den er ny.",
     "Regnskapet kjenner kanskje ikke kunden, og beløpet kan havne på feil konto.",
     "Kundenummeret er slått feil, eller kunden er slettet.",
     "Rett kunden på bongen, eller legg kunden inn i registeret."},
    {"K406", Severity::Error, "Bilaget går ikke opp",
     "Debet og kredit i dagens bilag blir ikke like: forskjellen er {value}.",
     "Se de andre funnene i datasettet: de viser som oftest hvilken bong det gjelder.",
     "Regnskapet avviser bilaget, eller legger forskjellen på en feilkonto.",
     "En bong går ikke opp, eller noen linjer kommer ikke i noen postering.",
     "Rett bongene som er nevnt i de andre funnene, og lag dagsoppgjøret på nytt. Er ingen nevnt, "
     "må regnskapsføreren se på dagen."},
    {"K501", Severity::Error, "En bong med bare betaling av faktura",
     "Bongen betaler en faktura og har ingen varer: overføringen til SAP stopper ved den.",
     "Før innbetalingen i SAP, og ta bongen ut av dagsoppgjøret.",
     "Ingenting av dagen blir ført i SAP.",
     "En kunde betalte en faktura i kassen uten å kjøpe noe.",
     "Registrer innbetalingen i SAP for hånd. Slett bongen i kassen, og lag dagsoppgjøret på "
     "nytt."},
    {"K502", Severity::Error, "SAP har ikke kunden",
     "Kunde «{value}» finnes ikke i SAP, og denne overføringen oppretter den ikke.",
     "Opprett kunden i SAP, eller rett kunden på bongen.",
     "SAP avviser dokumentet, og hele dagen blir rullet tilbake.",
     "Kunden er slettet i SAP, eller er ikke merket som ny i butikksystemet.",
     "Opprett kunden i SAP med samme nummer, eller merk den som ny i butikksystemet."},
    {"K503", Severity::Error, "SAP har ikke varen",
     "Vare «{value}» finnes ikke i SAP, og denne overføringen oppretter den ikke.",
     "Opprett varen i SAP, eller rett varenummeret på linjen.",
     "SAP avviser dokumentet, og hele dagen blir rullet tilbake.",
     "Varen er slettet i SAP, eller er ikke merket som ny i butikksystemet.",
     "Opprett varen i SAP med samme nummer, eller merk den som ny i butikksystemet."},
    {"K504", Severity::Error, "SAP har ikke kontoen",
     "Konto «{value}» finnes ikke i SAPs kontoplan.",
     "Opprett kontoen i SAP, eller rett salgskontoen på varen.",
     "SAP avviser dokumentet, og hele dagen blir rullet tilbake.",
     "Salgskontoen på varen er skrevet feil, eller kontoen er fjernet fra kontoplanen.",
     "Rett salgskontoen i vareregisteret, eller opprett kontoen i SAP."},
    {"K505", Severity::Warning, "En pris under 0",
     "Beløpet delt på antallet er under 0 (beløpet er {value}): SAP får prisen uten minus og "
     "antallet med motsatt fortegn.",
     "Se på linjen i kassen: beløp og antall skal ha samme fortegn.",
     "Dokumentet i SAP kan få en annen sum enn bongen.",
     "En rabatt eller en retur er slått som negativ pris i stedet for negativt antall.",
     "Rett linjen i kassen, og lag dagsoppgjøret på nytt."},
});

}  // namespace control
