// The rules of settings, databases and data-set files.
#pragma once

#include <array>

#include "control/rule.h"

namespace control {

inline constexpr auto kShopRules = std::to_array<Rule>({
    {"K001", Severity::Error, "En importfil kan ikke skrives",
     "{field} er satt til «{value}», og der kan programmet ikke lage en fil.",
     "Rett {field} i Kassovia.ini, eller lag mappen og gi programmet skrivetilgang til den.",
     "Uten en fil å skrive til stopper overføringen, og dagen blir ikke bokført.",
     "Navnet mangler i Kassovia.ini, mappen finnes ikke eller er skrivebeskyttet, eller navnet er "
     "navnet på en mappe. Ofte er en nettverksmappe flyttet eller koblet fra.",
     "Åpne Kassovia.ini i butikkens mappe og se på VoucherFileName (bilag) og EDIFileName (ordre). "
     "Mappen må finnes, og brukeren som programmet kjører som, må kunne lage filer i den."},
    {"K002", Severity::Error, "Bilag og ordre skal til samme fil",
     "VoucherFileName og EDIFileName er samme fil: «{value}».",
     "Gi de to filene hvert sitt navn i Kassovia.ini.",
     "Den ene filen ville erstatte den andre, og enten bilagene eller ordrene ville bli borte.",
     "To navn i Kassovia.ini er like, eller peker på samme fil gjennom en lenke.",
     "Rett VoucherFileName eller EDIFileName i Kassovia.ini, og kjør kontrollen på nytt."},
    {"K003", Severity::Warning, "En bilagsfil ligger og venter",
     "Bilagsfilen «{value}» er ikke lest inn i regnskapet ennå, og Overwrite=1 gjør at den blir "
     "erstattet uten spørsmål.",
     "Les filen inn i regnskapet før neste overføring.",
     "Bilagene i filen finnes bare der. Blir den erstattet før regnskapet har lest den, mangler en "
     "hel dag i regnskapet.",
     "Forrige dags fil er ikke importert, eller regnskapssystemet lar filen ligge etter importen.",
     "Se i regnskapssystemet om bilagene i filen er ført. Er de det, kan filen slettes. Er de ikke "
     "det, les den inn først."},
    {"K004", Severity::Warning, "Flere dager venter mens bilagsfilen blir erstattet",
     "{value} datasett venter, og Overwrite=1: hver overføring erstatter bilagene fra den forrige, "
     "så bare det siste datasettets bilag blir igjen.",
     "Overfør ett datasett om gangen, og les bilagene inn i regnskapet etter hvert.",
     "De andre dagene ville få ferdige navn og se overført ut, men bilagene deres ville være "
     "borte.",
     "Flere kasser eller flere dager venter samtidig, og Overwrite er slått på i Kassovia.ini.",
     "Overfør ett datasett, les filen inn i regnskapet, og ta så det neste. Eller sett Overwrite=0 "
     "i Kassovia.ini og svar Nei på spørsmålet om å overskrive."},
    {"K005", Severity::Error, "Bilagsnummeret mangler", "Tabellen Options mangler {field}.",
     "Legg inn butikkens oppsett, med neste bilagsnummer, i butikksystemet.",
     "Uten oppsettet har overføringen verken bilagsnummer eller kontoer.",
     "Databasen er ny eller gjenopprettet, og butikkens oppsett er ikke lagret.",
     "Åpne oppsettet i butikksystemet, fyll inn neste bilagsnummer og kontoene, og lagre."},
    {"K006", Severity::Error, "En database, tabell eller nøkkel mangler",
     "{field} mangler eller kan ikke leses: {value}.",
     "Hent databasen fra backup, eller kjør reindeksering i butikksystemet.",
     "Programmet kan ikke starte, eller stopper midt i en dag.",
     "Datapath i Kassovia.ini peker feil, filen er flyttet eller skadet, eller en tabell har "
     "mistet primærnøkkelen sin.",
     "Se at Datapath i Kassovia.ini er mappen med Kassovia.mdb og KVDayEndServer.mdb. Er den det: "
     "ta backup, og kjør reindeksering fra System-menyen i butikksystemet."},
    {"K007", Severity::Warning, "AccountingSystem er nesten SAP",
     "AccountingSystem er «{value}», ikke nøyaktig SAP: dagen blir overført som filer, ikke til "
     "SAP.",
     "Skriv AccountingSystem=SAP i Kassovia.ini hvis butikken fører i SAP.",
     "Bare nøyaktig SAP betyr SAP. Alt annet gir filer, og i SAP mangler dagen.",
     "Ordet er skrevet med små bokstaver eller med blanke inne i anførselstegn.",
     "Rett linjen i Kassovia.ini, start programmet på nytt, og kjør kontrollen igjen."},
    {"K008", Severity::Warning, "Programmet etter dagsoppgjøret finnes ikke",
     "DayEndCommand er «{value}», og det programmet finnes ikke.",
     "Rett DayEndCommand i KVDayEndServer.ini, eller fjern linjen.",
     "Dagen blir overført, men det som skulle skje etterpå, blir ikke gjort.",
     "Programmet er flyttet eller avinstallert, eller stien er skrevet feil.",
     "Finn programmet, og skriv hele stien til det i DayEndCommand i KVDayEndServer.ini. En sti "
     "med blanke skal stå i anførselstegn."},
    {"K101", Severity::Error, "En av de to filene mangler",
     "Filen {value} finnes ikke: dagen har bare den ene av sine to filer.",
     "Hent den manglende filen fra kassen før du overfører dagen.",
     "En dag er to filer: salgene og linjene deres. Med bare den ene blir ingenting overført.",
     "Kopieringen fra kassen ble avbrutt eller er ikke ferdig, eller filen er flyttet eller har "
     "fått et annet navn.",
     "Vent litt og kjør kontrollen igjen. Mangler filen fortsatt, kopier begge filene fra kassen "
     "på "
     "nytt, eller la kassen lage dagsoppgjøret på nytt."},
    {"K102", Severity::Error, "En fil er skadet eller kuttet av", "Filen kan ikke leses: {value}.",
     "Hent filen fra kassen på nytt.", "Overføringen stopper. En halv fil ville gitt en halv dag.",
     "Kopieringen ble avbrutt, disken var full, eller noen har åpnet og lagret filen i et annet "
     "program.",
     "Kopier begge filene fra kassen på nytt. Er filen skadet der også, må kassen lage "
     "dagsoppgjøret på nytt."},
    {"K103", Severity::Error, "En fil har for få kolonner",
     "Filen har {value} kolonner og mangler blant annet {field}.",
     "La kassen lage dagsoppgjøret på nytt med samme versjon som butikksystemet.",
     "Importen går etter kolonnenes rekkefølge og stopper når en mangler.",
     "Kassen og butikksystemet har ulik versjon, eller arbeidsdatabasen er oppgradert alene.",
     "Oppgrader kassen, eller legg tilbake arbeidsdatabasen KVDayEndServer.mdb som hører til."},
    {"K104", Severity::Warning, "En kolonne har et annet navn enn ventet",
     "Der arbeidstabellen har {field}, har filen {value}.",
     "Se etter at kassen og butikksystemet har samme versjon.",
     "Importen går etter plassen og ikke etter navnet: står kolonnene i annen rekkefølge, kan "
     "beløp havne i feil felt.",
     "Kassen er oppgradert, eller filen er laget av et annet program.",
     "Sammenlign kolonnene i filen med arbeidstabellen. Er bare navnet nytt, er dagen i orden. Er "
     "rekkefølgen en annen, skal dagen ikke overføres før kassen er rettet."},
    {"K105", Severity::Error, "En verdi passer ikke i kolonnen sin",
     "{field} inneholder «{value}», som kolonnen ikke tar imot.",
     "Rett verdien i kassen, og la den lage dagsoppgjøret på nytt.",
     "Importen stopper ved den første slike verdien, og dagen blir ikke overført.",
     "En tekst står der det skal være et tall, et tall er for stort, eller en dato finnes ikke.",
     "Finn bongen i kassen, rett verdien, og lag dagsoppgjøret på nytt. Ikke rett i filen for "
     "hånd."},
    {"K106", Severity::Note, "Datasettet har ingen salg",
     "Datasettet har ingen salg. Da er det ingenting å overføre.",
     "Ingenting, hvis butikken ikke solgte noe den dagen.",
     "En tom dag blir stående i listen: overføringen gjør ingenting med den.",
     "Kassen ble åpnet og lukket uten salg, eller dagsoppgjøret ble tatt to ganger.",
     "Se i kassen om den virkelig ikke hadde salg. Hadde den det, la den lage dagsoppgjøret på "
     "nytt."},
});

}  // namespace control
