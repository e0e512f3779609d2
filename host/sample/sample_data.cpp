#include "host/sample/sample_data.h"

namespace quor::sample_data {
namespace {

constexpr std::string_view kSurnameStems[] = {
    "Ąžuol",  "Alksn",  "Antan",  "Auksor", "Balandž", "Baltr",   "Berž",   "Bijūn",  "Čiobr",  "Čepk",     "Dagil",
    "Dobil",  "Drebul", "Eglyn",  "Ežer",   "Ėriuk",   "Garn",    "Gervėn", "Gint",   "Gluosn", "Grik",     "Gulb",
    "Ievul",  "Ilg",    "Jazm",   "Jovar",  "Kadag",   "Kalnel",  "Kėkšt",  "Kiškel", "Klev",   "Kregžd",   "Lakšt",
    "Lazdyn", "Liep",   "Links",  "Lūšk",   "Medž",    "Miškin",  "Nendr",  "Obel",   "Pakaln", "Pelėd",    "Putin",
    "Ramun",  "Rasyt",  "Rugin",  "Rūtel",  "Sakal",   "Samanėl", "Skrobl", "Smilg",  "Stirn",  "Šermukšn", "Šilin",
    "Šarkel", "Tauren", "Toliuš", "Ūkel",   "Upel",    "Uosin",   "Varnėn", "Vėjel",  "Viržel", "Volung",   "Ylak",
    "Žalč",   "Žąsin",  "Žemuog", "Žilvit", "Žuvėdr",  "Žvirbl"};

constexpr SurnameEnding kSurnameEndings[] = {
    {"aitis", "aitienė", "aitytė"}, {"ėnas", "ėnienė", "ėnaitė"},        {"auskas", "auskienė", "auskaitė"},
    {"ūnas", "ūnienė", "ūnaitė"},   {"avičius", "avičienė", "avičiūtė"}, {"onis", "onienė", "onytė"},
    {"utis", "utienė", "utytė"},
};

constexpr std::string_view kMen[] = {
    "Adomas",   "Aidas",    "Albinas",  "Algirdas",  "Andrius",  "Antanas",  "Arnas",     "Arūnas",    "Audrius",
    "Aurimas",  "Benas",    "Bronius",  "Česlovas",  "Dainius",  "Darius",   "Dominykas", "Donatas",   "Edvinas",
    "Eimantas", "Ernestas", "Evaldas",  "Gediminas", "Giedrius", "Gintaras", "Ignas",     "Jonas",     "Jurgis",
    "Justas",   "Kazys",    "Kęstutis", "Linas",     "Lukas",    "Mantas",   "Marius",    "Mindaugas", "Nerijus",
    "Paulius",  "Petras",   "Ramūnas",  "Rimantas",  "Romas",    "Saulius",  "Stasys",    "Šarūnas",   "Tadas",
    "Tomas",    "Vaidas",   "Valdas",   "Vilius",    "Vytautas", "Zigmas",   "Žilvinas",  "Žygimantas"};

constexpr std::string_view kWomen[] = {
    "Agnė",   "Aistė",  "Aldona", "Alina",  "Asta",    "Audra", "Aušra",   "Birutė",    "Dalia",  "Danguolė", "Daiva",
    "Diana",  "Edita",  "Eglė",   "Elena",  "Emilija", "Erika", "Gabija",  "Genovaitė", "Giedrė", "Gintarė",  "Ieva",
    "Ilona",  "Inga",   "Irena",  "Janina", "Jolanta", "Jurga", "Jūratė",  "Kristina",  "Laima",  "Laura",    "Lina",
    "Loreta", "Marija", "Milda",  "Monika", "Nijolė",  "Ona",   "Rasa",    "Regina",    "Rima",   "Rūta",     "Sandra",
    "Sigita", "Šarūnė", "Ugnė",   "Urtė",   "Vaida",   "Vilma", "Violeta", "Zita",      "Žaneta", "Živilė"};

constexpr std::string_view kDepartmentAreas[] = {"Finansų",
                                                 "Teisės ir personalo",
                                                 "Aplinkosaugos",
                                                 "Švietimo",
                                                 "Kultūros",
                                                 "Socialinės paramos",
                                                 "Statybos",
                                                 "Architektūros",
                                                 "Žemės ūkio",
                                                 "Turto valdymo",
                                                 "Viešosios tvarkos",
                                                 "Civilinės metrikacijos",
                                                 "Investicijų",
                                                 "Vaiko teisių",
                                                 "Sveikatos",
                                                 "Miesto ūkio",
                                                 "Kaimo plėtros",
                                                 "Energetikos",
                                                 "Sporto",
                                                 "Turizmo",
                                                 "Informacinių sistemų",
                                                 "Ryšių su visuomene",
                                                 "Dokumentų valdymo",
                                                 "Kontrolės"};
constexpr std::string_view kDivisionTasks[] = {"planavimo", "priežiūros", "aptarnavimo"};

constexpr ConstantType kConstantTypes[] = {
    {"MMA_VT", "Valstybės tarnautojų bazinė mėnesinė alga"},
    {"MVA_VT", "Valstybės tarnautojų bazinis valandinis atlygis"},
    {"MMA_SP", "Statutinių pareigūnų bazinė mėnesinė alga"},
    {"MMA", "Minimalioji mėnesinė alga"},
};
constexpr ConstantValue kConstantValues[] = {
    {kMonthTariff, {2005, 1, 1}, 115.0},
    {kMonthTariff, {2006, 7, 1}, 120.0},
    {kMonthTariff, {2007, 1, 1}, 125.0},
    {kMonthTariff, {2008, 1, 1}, 130.0},
    {kHourTariff, {2005, 1, 1}, 0.68},
    {kHourTariff, {2006, 7, 1}, 0.71},
    {kHourTariff, {2007, 1, 1}, 0.74},
    {kHourTariff, {2008, 1, 1}, 0.77},
    {kOfficerTariff, {2005, 1, 1}, 118.0},
    {kOfficerTariff, {2006, 7, 1}, 124.0},
    {kOfficerTariff, {2007, 7, 1}, 132.5},
    {3, {2005, 1, 1}, 500.0},
    {3, {2006, 7, 1}, 600.0},
    {3, {2007, 7, 1}, 700.0},
    {3, {2008, 1, 1}, 800.0},
};

constexpr Indication kIndications[] = {
    {"WorkTime", 1, "FD", "Faktiškai dirbtas laikas"},
    {"WorkTime", 2, "VD", "Viršvalandinis darbas"},
    {"WorkTime", 3, "DN", "Darbas naktį"},
    {"WorkTime", 4, "DP", "Darbas poilsio ir švenčių dienomis"},
    {"WorkTime", 5, "PV", "Pavadavimas"},
    {"WorkTime", 6, "A", "Kasmetinės atostogos"},
    {"WorkTime", 7, "L", "Nedarbingumas dėl ligos"},
    {"WorkTime", 8, "K", "Tarnybinė komandiruotė"},
    {"DayType", 1, "D", "Darbo diena"},
    {"DayType", 2, "P", "Poilsio diena"},
    {"DayType", 3, "Š", "Švenčių diena"},
};

constexpr SalaryCode kSalaryCodes[] = {
    {"101", "Pareiginė alga"},
    {"102", "Priedas už tarnybos stažą"},
    {"103", "Priedas už kvalifikacinę klasę"},
    {"104", "Priedas už papildomas užduotis"},
    {"105", "Nustatyto dydžio priedas"},
    {"201", "Priemoka už viršvalandinį darbą"},
    {"202", "Priemoka už darbą naktį"},
    {"203", "Priemoka už darbą poilsio ir švenčių dienomis"},
    {"204", "Priemoka už pavadavimą"},
};

constexpr Category kCategories[] = {
    {"A lygio 5 kategorija", 4.9, 0.0, 5.1},    {"A lygio 6 kategorija", 5.2, 5.3, 5.5},
    {"A lygio 7 kategorija", 5.6, 0.0, 5.9},    {"A lygio 8 kategorija", 6.1, 0.0, 6.4},
    {"A lygio 9 kategorija", 6.6, 6.8, 7.0},    {"A lygio 10 kategorija", 7.2, 0.0, 7.6},
    {"A lygio 11 kategorija", 7.9, 8.0, 8.3},   {"A lygio 12 kategorija", 8.6, 0.0, 9.0},
    {"A lygio 13 kategorija", 9.2, 9.4, 9.7},   {"A lygio 14 kategorija", 10.1, 0.0, 10.6},
    {"A lygio 15 kategorija", 11.0, 0.0, 11.5}, {"A lygio 16 kategorija", 12.1, 12.4, 12.7},
    {"A lygio 18 kategorija", 13.4, 0.0, 14.0}, {"B lygio 4 kategorija", 3.8, 0.0, 4.0},
    {"B lygio 6 kategorija", 4.3, 4.4, 4.6},    {"B lygio 8 kategorija", 4.9, 0.0, 5.2},
    {"B lygio 10 kategorija", 5.6, 0.0, 5.85},  {"C lygio 1 kategorija", 3.0, 0.0, 3.1},
    {"C lygio 3 kategorija", 3.3, 0.0, 3.45},   {"C lygio 5 kategorija", 3.6, 3.7, 3.8},
};

constexpr Settings kSettings[] = {
    {{2005, 1, 1}, "2,3,4", 55.0, 60.0, 70.0},
    {{2008, 1, 1}, "2,3,4,5", 55.0, 60.0, 70.0},
};

}  // namespace

std::span<const std::string_view> surname_stems() { return kSurnameStems; }
std::span<const SurnameEnding> surname_endings() { return kSurnameEndings; }
std::span<const std::string_view> men() { return kMen; }
std::span<const std::string_view> women() { return kWomen; }
std::span<const std::string_view> department_areas() { return kDepartmentAreas; }
std::span<const std::string_view> division_tasks() { return kDivisionTasks; }
std::span<const ConstantType> constant_types() { return kConstantTypes; }
std::span<const ConstantValue> constant_values() { return kConstantValues; }
std::span<const Indication> indications() { return kIndications; }
std::span<const SalaryCode> salary_codes() { return kSalaryCodes; }
std::span<const Category> categories() { return kCategories; }
std::span<const Settings> settings() { return kSettings; }

}  // namespace quor::sample_data
