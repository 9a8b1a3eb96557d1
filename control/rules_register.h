// The rules of the register of sent days. Nothing finds them where there is no register.
#pragma once

#include <array>

#include "control/rule.h"

namespace control {

inline constexpr auto kRegisterRules = std::to_array<Rule>({
    {"K601", Severity::Error, "Disse filene er sendt før",
     "Nøyaktig disse filene er sendt før, som nummer {value} i registeret.",
     "Ikke overfør dem på nytt. Flytt filene bort.", "Hele dagen ville bli bokført to ganger.",
     "Filene er kopiert fra kassen en gang til, eller hentet tilbake fra en backup.",
     "Se i registeret når dagen ble sendt. Er den bokført, skal filene flyttes bort."},
    {"K602", Severity::Error, "Bonger i datasettet er sendt før",
     "Bonger i datasettet er sendt før i et annet datasett, nummer {value} i registeret.",
     "Ikke overfør dagen før du vet hvilke bonger som er nye.",
     "Bongene ville bli bokført to ganger.",
     "Kassen har laget dagsoppgjøret to ganger, den andre gangen med flere bonger.",
     "Se i registeret hvilke bonger som er sendt. La kassen lage et dagsoppgjør med bare resten."},
    {"K603", Severity::Warning, "Et hull i bongnumrene",
     "Det er et hull mellom siste bong i dette datasettets forrige dag og den første i denne: "
     "{value}.",
     "Se i kassen om bonger mangler mellom de to dagene.",
     "Bonger som ikke er kommet med i noe dagsoppgjør, er ikke bokført.",
     "Et dagsoppgjør mangler, eller bonger er slettet.",
     "Sammenlign bongnumrene i kassen med registeret."},
    {"K604", Severity::Warning, "En tidligere dag er ikke kommet",
     "En tidligere åpen dag fra denne kassen er ikke kommet, eller venter fortsatt: {value}.",
     "Finn den dagen først.",
     "Dagen mangler i regnskapet, og ingen legger merke til det før avstemmingen.",
     "Dagsoppgjøret ble glemt, eller filene ble ikke kopiert.",
     "Lag dagsoppgjøret for den dagen i kassen, og overfør dagene i rekkefølge."},
});

}  // namespace control
