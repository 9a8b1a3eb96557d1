#include "demo/catalogue.h"

namespace demo {

namespace {

constexpr std::size_t kHigh = 0;    // 25 %
constexpr std::size_t kFood = 1;    // 15 %
constexpr std::size_t kTicket = 2;  // 12 %
constexpr std::size_t kBook = 3;    // 0 %

// With the Norwegian letters, so that a demo shop tries the code pages too.
constexpr Goods kGoods[] = {
    {"Brød grovt", 3990, kFood},
    {"Rundstykker 6 stk", 2990, kFood},
    {"Lettmelk 1 l", 2190, kFood},
    {"Brunost 500 g", 7990, kFood},
    {"Gulost skivet", 8490, kFood},
    {"Smør 250 g", 3190, kFood},
    {"Egg 12 stk", 4590, kFood},
    {"Kaffe filtermalt 250 g", 5490, kFood},
    {"Te urter", 3490, kFood},
    {"Fårikålkjøtt", 14990, kFood, true},
    {"Røkt ørret", 27990, kFood, true},
    {"Poteter løsvekt", 2490, kFood, true},
    {"Gulrøtter løsvekt", 2990, kFood, true},
    {"Epler løsvekt", 3990, kFood, true},
    {"Jordbærsyltetøy", 4290, kFood},
    {"Havregryn 1 kg", 2790, kFood},
    {"Melkesjokolade", 3690, kFood},
    {"Eplemost 1 l", 4990, kFood},
    {"Lyspære LED", 5990, kHigh},
    {"Batterier AA 4 stk", 6990, kHigh},
    {"Stearinlys 12 stk", 8990, kHigh},
    {"Ullsokker", 12990, kHigh},
    {"Regnjakke", 69990, kHigh},
    {"Gummistøvler", 49990, kHigh},
    {"Arbeidshansker", 9990, kHigh},
    {"Hammer", 24990, kHigh},
    {"Skruer 200 stk", 11990, kHigh},
    {"Maling hvit 3 l", 54990, kHigh},
    {"Malerpensel", 7990, kHigh},
    {"Spade", 34990, kHigh},
    {"Blomsterfrø", 3490, kHigh},
    {"Fiskesluk", 6490, kHigh},
    {"Ved 40 l", 9990, kHigh},
    {"Tørkerull 4 stk", 4990, kHigh},
    {"Oppvaskmiddel", 3290, kHigh},
    {"Kopp med motiv", 14990, kHigh},
    {"Innpakking", 2500, kHigh, false, true},
    {"Sliping av skøyter", 15000, kHigh, false, true},
    {"Bussbillett voksen", 5800, kTicket, false, true},
    {"Bussbillett barn", 2900, kTicket, false, true},
    {"Fergebillett", 9600, kTicket, false, true},
    {"Kinobillett", 15500, kTicket, false, true},
    {"Museumsbillett", 12000, kTicket, false, true},
    {"Turkart", 24900, kBook},
    {"Krim pocket", 19900, kBook},
    {"Kokebok", 39900, kBook},
    {"Barnebok", 17900, kBook},
    {"Lokalavis", 4000, kBook},
};

// The first is none: the first round of products bears plain names.
constexpr std::string_view kBrands[] = {"",         "Fjellheim", "Solsiden",   "Nordlys", "Granli",
                                        "Havblikk", "Åsly",      "Elvebakken", "Sæterli", "Øyra"};

constexpr std::string_view kFirstNames[] = {
    "Anne",   "Bjørn",  "Camilla", "Dag",  "Eva",   "Frode", "Grete",  "Håkon",
    "Ingrid", "Jørgen", "Kari",    "Lars", "Marit", "Nils",  "Ola",    "Pål",
    "Randi",  "Sigrid", "Tor",     "Unni", "Vidar", "Åse",   "Øystein"};

constexpr std::string_view kLastNames[] = {
    "Hansen", "Johansen", "Olsen",  "Larsen", "Andersen", "Bakken", "Berg",  "Dahl",
    "Eide",   "Fossum",   "Grønli", "Haugen", "Iversen",  "Kvåle",  "Lunde", "Moen",
    "Nygård", "Ødegård",  "Rød",    "Sæther", "Solberg",  "Tveit",  "Vik",   "Ås"};

constexpr std::string_view kTrades[] = {
    "Bygg AS", "Elektro AS", "Rørservice AS", "Transport AS", "Hytteutleie",
    "Gård DA", "Maskin AS",  "Kafé AS",       "Regnskap AS",  "Bygdelag"};

constexpr std::string_view kStreets[] = {
    "Storgata", "Kirkeveien", "Skolegata", "Bøgata",      "Stasjonsveien", "Åsveien",
    "Elvegata", "Sjøgata",    "Granveien", "Møllebakken", "Øvre Torggate", "Industriveien"};

constexpr Place kPlaces[] = {
    {"0155", "OSLO"},           {"1606", "FREDRIKSTAD"},   {"2317", "HAMAR"},
    {"2615", "LILLEHAMMER"},    {"3015", "DRAMMEN"},       {"3674", "NOTODDEN"},
    {"3724", "SKIEN"},          {"3800", "BØ I TELEMARK"}, {"3833", "BØ I TELEMARK"},
    {"3825", "LUNDE"},          {"3810", "GVARV"},         {"3812", "AKKERHAUGEN"},
    {"3841", "FLATDAL"},        {"3840", "SELJORD"},       {"4006", "STAVANGER"},
    {"4611", "KRISTIANSAND S"}, {"5003", "BERGEN"},        {"6003", "ÅLESUND"},
    {"7010", "TRONDHEIM"},      {"9008", "TROMSØ"}};

constexpr Account kChart[] = {{account::kReceivables, "Kundefordringer"},
                              {account::kFirstCard, "Fordring bankkort"},
                              {account::kFirstCard + 1, "Fordring debetkort"},
                              {account::kFirstCard + 2, "Fordring kredittkort"},
                              {account::kFirstCard + 3, "Fordring firmakort"},
                              {account::kFirstCard + 4, "Fordring gavekort"},
                              {account::kFirstCard + 5, "Fordring reisekort"},
                              {account::kFirstCard + 6, "Fordring drivstoffkort"},
                              {account::kCash, "Kontanter"},
                              {account::kBank, "Bankinnskudd"},
                              {account::kIou, "Utestående tilgodelapper"},
                              {account::kSales, "Salgsinntekt, avgiftspliktig høy sats"},
                              {3010, "Salgsinntekt, avgiftspliktig middels sats"},
                              {3020, "Salgsinntekt, avgiftspliktig lav sats"},
                              {3100, "Salgsinntekt, avgiftsfri"},
                              {account::kRounding, "Øreavrunding"}};

}  // namespace

std::span<const Goods> AllGoods() {
    return kGoods;
}

std::span<const std::string_view> Brands() {
    return kBrands;
}

std::span<const std::string_view> FirstNames() {
    return kFirstNames;
}

std::span<const std::string_view> LastNames() {
    return kLastNames;
}

std::span<const std::string_view> Trades() {
    return kTrades;
}

std::span<const std::string_view> Streets() {
    return kStreets;
}

std::span<const Place> Places() {
    return kPlaces;
}

std::span<const Account> ChartOfAccounts() {
    return kChart;
}

}  // namespace demo
