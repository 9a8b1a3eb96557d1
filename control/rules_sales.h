// The rules of sales.
#pragma once

#include <array>

#include "control/rule.h"

namespace control {

inline constexpr auto kSalesRules = std::to_array<Rule>({
    {"K201", Severity::Error, "To salg har samme nummer", "Flere salg har nummeret {value}.",
     "La kassen lage dagsoppgjøret på nytt.",
     "Linjene hører til salget gjennom nummeret. Med to like blir de regnet med to ganger.",
     "Dagsoppgjøret er satt sammen av to uttrekk, eller kassens teller er satt tilbake.",
     "Se i kassen hvilken av de to bongene som er riktig, og lag dagsoppgjøret på nytt."},
    {"K202", Severity::Error, "Salgstypen stopper overføringen",
     "SalesType er {value}: overføringen stopper ved dette salget.",
     "Rett salget i kassen, og lag dagsoppgjøret på nytt.",
     "Overføringen stopper midt i dagen, etter at merkene på endrede kunder og varer er nullstilt.",
     "En bong ble avbrutt i kassen og lagret uten type.",
     "Finn bongen i kassen. Fullfør eller slett den, og lag dagsoppgjøret på nytt."},
    {"K203", Severity::Warning, "Et salg er merket som overført fra før",
     "SalesStatus er {value}, ikke 0: salget blir ikke med i summene i bilaget.",
     "Finn ut om salget er bokført før. Er det ikke det, må det åpnes igjen i kassen.",
     "Varer og betalinger i salget kommer ikke med i bilagets summer.",
     "Kassen har sendt med et salg som ble overført en annen dag, eller statusen er satt for hånd.",
     "Se om bongen står i et tidligere bilag. Er den bokført, er alt i orden. Ellers må statusen "
     "settes til 0 i kassen og dagsoppgjøret lages på nytt."},
    {"K204", Severity::Error, "Datoen finnes ikke",
     "SalesDate er «{value}», og det er ingen dato i kalenderen.",
     "Rett datoen på salget i kassen, og lag dagsoppgjøret på nytt.",
     "Bilaget ville få en dato som regnskapet ikke tar imot; overføring til SAP stopper.",
     "Kassens klokke var feil, eller feltet er tomt eller skrevet for hånd.",
     "Still kassens klokke, rett datoen på bongen, og lag dagsoppgjøret på nytt."},
    {"K205", Severity::Warning, "Datoen er frem i tid",
     "Salget er datert {value}, og det er ennå ikke den dagen.",
     "Se etter at klokken er riktig, både i kassen og på denne maskinen.",
     "Bilaget havner på feil dag, kanskje i feil måned.",
     "Klokken i kassen eller på denne maskinen går feil.",
     "Still klokkene. Er datoen feil, rett den i kassen og lag dagsoppgjøret på nytt."},
    {"K206", Severity::Warning, "Flere datoer i ett datasett",
     "Datasettet har salg fra flere dager: {value}.",
     "Se etter om dagsoppgjøret ble glemt en dag. Hver dato får sine egne posteringer.",
     "Alle datoene får samme bilagsnummer, og kan gå over et månedsskifte.",
     "Dagsoppgjøret ble ikke tatt dagen før, eller kassen var åpen over midnatt.",
     "Er dagene riktige, kan datasettet overføres som det er. Ellers må datoene rettes i kassen."},
    {"K207", Severity::Warning, "Et salg uten linjer", "Salget har ingen linjer.",
     "Se bongen i kassen: er den tom der også, kan den slettes.",
     "Er linjene blitt borte på veien, mangler beløpene i regnskapet.",
     "Bongen ble åpnet og lukket uten varer, eller linjefilen er ikke komplett.",
     "Sammenlign med bongen i kassen. Har den linjer der, lag dagsoppgjøret på nytt."},
    {"K208", Severity::Error, "SAP tar ikke imot salgsnummeret",
     "Salgsnummeret {value} er ikke et helt tall fra 1 til 32767.",
     "Sett kassens bongnummer tilbake til 1, og lag dagsoppgjøret på nytt.",
     "Et høyere nummer stopper overføringen til SAP; 0 og lavere gir ikke noe dokument.",
     "Kassens teller har passert 32767.",
     "Sett telleren i kassen tilbake. La leverandøren av kassen hjelpe med dagen som venter."},
    {"K209", Severity::Warning, "Betalinger som ikke kommer i noe bilag",
     "Salget er av type {value} og har betalinger. Bilagets summer tar bare type 1 og 2.",
     "Før betalingen i regnskapet for hånd, eller gjør bestillingen om til et salg i kassen.",
     "Pengene er i kassen, men ikke i regnskapet.",
     "En bestilling ble betalt før den ble gjort om til et salg.",
     "Gjør bestillingen ferdig i kassen som salg, eller registrer betalingen som forskudd på "
     "kundens konto."},
});

}  // namespace control
