// The rules of sale lines.
#pragma once

#include <array>

#include "control/rule.h"

namespace control {

inline constexpr auto kLineRules = std::to_array<Rule>({
    {"K301", Severity::Error, "En linje uten salg",
     "Linjen hører til salg {value}, og det salget er ikke i salgsfilen.",
     "Hent begge filene fra kassen på nytt.", "Beløpet på linjen kommer ikke i noen postering.",
     "De to filene er fra hver sin dag eller hvert sitt uttrekk, eller salgsfilen er ikke "
     "komplett.",
     "Kopier begge filene fra kassen på nytt. Hjelper det ikke, lag dagsoppgjøret på nytt."},
    {"K302", Severity::Error, "Bongen går ikke opp",
     "Linjene på bongen blir til sammen {value}, ikke 0,00: varer og betaling stemmer ikke.",
     "Finn bongen i kassen, rett den, og lag dagsoppgjøret på nytt.",
     "Debet og kredit i bilaget blir ikke like.",
     "En linje mangler eller har feil beløp, eller bongen ble avbrutt under betalingen.",
     "Sammenlign bongen i kassen med kvitteringen. Rett beløpet eller betalingen, og lag "
     "dagsoppgjøret på nytt."},
    {"K303", Severity::Warning, "En linje av en type som ikke blir bokført",
     "TransType er {value}, og linjer av den typen kommer ikke i noen postering, enda den har et "
     "beløp.",
     "Før beløpet for hånd, eller rett linjen i kassen.", "Beløpet blir borte for regnskapet.",
     "Kassen har et betalingsmiddel eller en linjetype som overføringen ikke kjenner, for eksempel "
     "et åttende kort.",
     "Velg et av de kjente betalingsmidlene i kassens oppsett, og rett linjen i kassen."},
    {"K304", Severity::Warning, "Beløpet stemmer ikke med antall, pris og rabatt",
     "Amount er {value}, men antall ganger pris minus rabatt blir noe annet.",
     "Se på linjen i kassen. Er beløpet riktig, kan dagen overføres.",
     "Ordrefilen får antall, pris og rabatt, og bilaget får beløpet. De to ville ikke stemme.",
     "Prisen er endret for hånd etter at linjen ble slått inn, eller rabatten er regnet to ganger.",
     "Rett prisen eller rabatten på linjen i kassen, og lag dagsoppgjøret på nytt."},
    {"K305", Severity::Error, "Et felt mangler tallet det regnes med",
     "{field} er «{value}», og overføringen regner med et tall der.",
     "Rett linjen i kassen, og lag dagsoppgjøret på nytt.",
     "Overføringen stopper der, eller beløpet blir ikke med.",
     "Linjen ble ikke skrevet ferdig, eller feltet er tomt i kassen.",
     "Finn linjen i kassen, fyll inn tallet, og lag dagsoppgjøret på nytt."},
    {"K306", Severity::Warning, "Et tegn som deler en post",
     "{field} er «{value}» og inneholder semikolon, anførselstegn eller linjeskift.",
     "Fjern tegnet i kassen eller i vareregisteret.",
     "Semikolon, anførselstegn og linjeskift skiller feltene i importfilene. Regnskapet leser da "
     "resten av posten feil.",
     "Tegnet står i et varenavn, et kundenavn eller en referanse.",
     "Rett teksten i registeret den kommer fra, og lag dagsoppgjøret på nytt."},
    {"K307", Severity::Warning, "En post er for lang og blir kuttet",
     "Posten i bilagsfilen blir {value} tegn lang; alt etter tegn 200 går tapt.",
     "Kort ned teksten: navnet på betalingsmidlet i oppsettet, eller referansen på bongen.",
     "Det som går tapt er slutten av posten, med blant annet avdeling.",
     "En svært lang tekst i oppsettet eller i en referanse.",
     "Kort ned teksten i butikkens oppsett eller i kassen."},
    {"K308", Severity::Warning, "Et tegn som importfilene ikke har",
     "{field} er «{value}» og har tegn som blir til spørsmålstegn i importfilene.",
     "Skriv teksten med vanlige bokstaver.", "Navnet blir annerledes i regnskapet enn i kassen.",
     "Filene til regnskapet har tegnsettet Windows-1252, som mangler blant annet smilefjes og "
     "ikke-latinske bokstaver.",
     "Rett teksten i vare- eller kunderegisteret."},
    {"K309", Severity::Warning, "En varelinje uten brukbar konto",
     "SalesAccount er {value}: linjer med en konto under 0, eller uten konto, kommer ikke i noen "
     "postering.",
     "Gi varen en salgskonto (0 betyr butikkens vanlige) i vareregisteret.",
     "Salget mangler i regnskapet, og debet og kredit blir ikke like.",
     "Varen eller varegruppen har ingen konto, eller en med minustegn.",
     "Sett kontoen på varen eller varegruppen, og lag dagsoppgjøret på nytt."},
    {"K310", Severity::Warning, "En avrunding som ikke blir bokført",
     "Avrundingen på {value} kommer ikke i noen postering.", "Før avrundingen for hånd.",
     "Bilaget blir like mye feil som avrundingen er stor.",
     "Bare avrundinger på vanlige bonger (type 1) med produktet «Avrunding» blir bokført. Denne "
     "står på en bestilling, eller har et annet produkt.",
     "Rett linjen i kassen, eller før beløpet på øreavrundingskontoen for hånd."},
});

}  // namespace control
