#include "server/demo/Names.h"

#include <QSet>

namespace demo {

namespace {

constexpr const char* lastList[] = {
    "ABAD",       "ABELLA",     "ABRENICA",   "ACOSTA",     "ADRIANO",     "AGBAYANI",     "AGUILAR",
    "AGUSTIN",    "ALCANTARA",  "ALMARIO",    "ALONZO",     "ALVAREZ",     "AMORSOLO",     "ANDRADA",
    "ANGELES",    "ANTONIO",    "AQUILINO",   "ARANETA",    "ARCEO",       "ARELLANO",     "ARROYO",
    "ASUNCION",   "AVELINO",    "BALAGTAS",   "BALUYOT",    "BAÑAS",       "BARRIOS",      "BAUTISTA",
    "BELTRAN",    "BENITEZ",    "BERNARDO",   "BONDOC",     "BUENAVISTA",  "CABRERA",      "CALDERON",
    "CAMACHO",    "CAMPOS",     "CAÑETE",     "CARANDANG",  "CASTAÑEDA",   "CASTILLO",     "CASTRO",
    "CATACUTAN",  "CHUA",       "CONCEPCION", "CORDERO",    "CORTEZ",      "CRISOSTOMO",   "CRUZ",
    "CUEVAS",     "CUNANAN",    "DACANAY",    "DALISAY",    "DAVID",       "DIMACULANGAN", "DIMAGIBA",
    "DIAZ",       "DIZON",      "DOMINGO",    "DUMLAO",     "ECHEVERRIA",  "ENRIQUEZ",     "ESCOBAR",
    "ESGUERRA",   "ESPINOSA",   "ESPIRITU",   "ESTRELLA",   "EVANGELISTA", "FAJARDO",      "FERNANDEZ",
    "FERRER",     "FLORES",     "FRANCISCO",  "FUENTES",    "GALANG",      "GALLARDO",     "GARCIA",
    "GATCHALIAN", "GERONIMO",   "GOMEZ",      "GONZALES",   "GUERRERO",    "GUEVARRA",     "GUTIERREZ",
    "GUZMAN",     "HERNANDEZ",  "HERRERA",    "HIDALGO",    "IBAÑEZ",      "IGNACIO",      "ILAGAN",
    "INOCENCIO",  "JACINTO",    "JAVIER",     "JIMENEZ",    "KALAW",       "LACSON",       "LAGMAN",
    "LAPUZ",      "LAUREL",     "LAZARO",     "LEGASPI",    "LIM",         "LIWANAG",      "LOPEZ",
    "LORENZO",    "LUMIBAO",    "LUNA",       "MABINI",     "MACARAEG",    "MADRIGAL",     "MAGBANUA",
    "MAGSAYSAY",  "MALABANAN",  "MALLARI",    "MANALASTAS", "MANALO",      "MANANSALA",    "MANIQUIS",
    "MARASIGAN",  "MARIANO",    "MARQUEZ",    "MARTINEZ",   "MATIAS",      "MEDINA",       "MENDOZA",
    "MERCADO",    "MIRANDA",    "MOLINA",     "MONTEMAYOR", "MORALES",     "MUÑOZ",        "NATIVIDAD",
    "NAVARRO",    "NICOLAS",    "NOLASCO",    "NÚÑEZ",      "OCAMPO",      "OLIVAREZ",     "ONG",
    "ORDOÑEZ",    "ORTEGA",     "ORTIZ",      "PACHECO",    "PADILLA",     "PAGUIO",       "PALMA",
    "PANGANIBAN", "PANGILINAN", "PANLILIO",   "PASCUAL",    "PATERNO",     "PEÑA",         "PERALTA",
    "PEREZ",      "PINEDA",     "PUNZALAN",   "QUIAMBAO",   "QUINTOS",     "QUIZON",       "RAMIREZ",
    "RAMOS",      "RAYMUNDO",   "RECTO",      "REYES",      "RIVERA",      "ROBLES",       "RODRIGUEZ",
    "ROMERO",     "ROQUE",      "ROSALES",    "ROXAS",      "RUIZ",        "SALAZAR",      "SALONGA",
    "SALVADOR",   "SAMONTE",    "SAMSON",     "SANCHEZ",    "SANTIAGO",    "SANTOS",       "SARMIENTO",
    "SEBASTIAN",  "SERRANO",    "SEVILLA",    "SILANG",     "SISON",       "SOLIMAN",      "SORIANO",
    "SUAREZ",     "SUMULONG",   "SY",         "TAN",        "TANTOCO",     "TIONGSON",     "TOLENTINO",
    "TORRES",     "TRINIDAD",   "TUAZON",     "UMALI",      "UY",          "VALDEZ",       "VALENCIA",
    "VALERIO",    "VARGAS",     "VELASCO",    "VELASQUEZ",  "VENTURA",     "VERGARA",      "VICENTE",
    "VIDAL",      "VILLANUEVA", "VILLARAMA",  "VILLEGAS",   "VIÑAS",       "YAMBAO",       "YAP",
    "YLAGAN",     "YUSON",      "ZABALA",     "ZAMORA",     "ZARATE",      "ZULUETA",      "ZUÑIGA"};

constexpr const char* maleList[] = {
    "ADRIAN",    "ALBERTO",  "ALFREDO",   "ALEJANDRO", "ANDRES",   "ANGELO",  "ANTONIO",  "ARTURO",
    "BENIGNO",   "BENJAMIN", "CARLOS",    "CESAR",     "CRISANTO", "DANILO",  "DENNIS",   "DIEGO",
    "DOMINADOR", "EDGARDO",  "EDUARDO",   "EFREN",     "EMILIO",   "ENRICO",  "ERNESTO",  "FELIPE",
    "FERDINAND", "FERNANDO", "FLORENCIO", "FRANCISCO", "GABRIEL",  "GERARDO", "GREGORIO", "HECTOR",
    "HERMINIO",  "IGNACIO",  "ISIDRO",    "JAIME",     "JESÚS",    "JOAQUIN", "JOSÉ",     "JUAN",
    "JULIO",     "LEANDRO",  "LEOPOLDO",  "LORENZO",   "LUIS",     "MANUEL",  "MARCELO",  "MARIO",
    "MARTIN",    "MAURICIO", "MIGUEL",    "NARCISO",   "NESTOR",   "NOEL",    "OSCAR",    "PABLO",
    "PEDRO",     "RAFAEL",   "RAMON",     "RENATO",    "RICARDO",  "ROBERTO", "RODOLFO",  "ROGELIO",
    "ROLANDO",   "ROMEO",    "RUBEN",     "SALVADOR",  "SANTIAGO", "SERGIO",  "TEODORO",  "TOMAS",
    "VICENTE",   "VICTOR",   "VIRGILIO",  "WILFREDO"};

constexpr const char* femaleList[] = {
    "ADELA",      "ALICIA",       "AMALIA",     "AMELIA",     "ANA",      "ANGELICA",  "ANITA",
    "AURORA",     "BEATRIZ",      "BELEN",      "CARIDAD",    "CARMEN",   "CATALINA",  "CECILIA",
    "CELIA",      "CLARA",        "CONSUELO",   "CORAZON",    "CRISTINA", "DIVINA",    "DOLORES",
    "EDITHA",     "ELENA",        "ELISA",      "ELVIRA",     "EMILIA",   "ERLINDA",   "ESPERANZA",
    "ESTELA",     "ESTRELLA",     "EVANGELINE", "EVELYN",     "FE",       "FELICIDAD", "FLORA",
    "FLORDELIZA", "GLORIA",       "GRACE",      "HERMINIA",   "IMELDA",   "INÉS",      "IRENE",
    "ISABEL",     "JOSEFINA",     "JULIETA",    "LETICIA",    "LIGAYA",   "LILIA",     "LOURDES",
    "LUCÍA",      "LUNINGNING",   "LUZ",        "LUZVIMINDA", "MARCELA",  "MARGARITA", "MARÍA",
    "MARICEL",    "MARILOU",      "MARISSA",    "MARLYN",     "MERCEDES", "MILAGROS",  "MYRNA",
    "NATIVIDAD",  "NENITA",       "NORMA",      "OFELIA",     "PACITA",   "PATRICIA",  "PERLA",
    "PILAR",      "PURIFICACION", "REBECCA",    "REMEDIOS",   "ROSA",     "ROSALINDA", "ROSARIO",
    "RUTH",       "SALUD",        "SOFÍA",      "SOLEDAD",    "SUSANA",   "TERESITA",  "TRINIDAD",
    "VERONICA",   "VICTORIA",     "VIRGINIA",   "WILMA",      "YOLANDA",  "ZENAIDA"};

constexpr const char* prefixList[] = {"DE ", "DE LA ", "DELA ", "DE LOS ", "SAN ", "D'"};

constexpr const char* streetList[] = {
    "ACACIA ST",      "AGUINALDO ST", "BANABA ST",    "BONIFACIO AVE", "BURGOS ST",   "CALACHUCHI ST",
    "CAMIA ST",       "DAHLIA ST",    "DEL PILAR ST", "EL RIO DRIVE",  "GLADIOLA ST", "GUMAMELA ST",
    "ILANG-ILANG ST", "JACINTO ST",   "KAMAGONG ST",  "LAKEVIEW RD",   "LUNA ST",     "MABINI ST",
    "MAHOGANY ST",    "MALVAR AVE",   "MOLAVE ST",    "NARRA ST",      "ORCHID ST",   "P. GOMEZ ST",
    "QUEZON AVE",     "RIZAL AVE",    "ROSAL ST",     "SAMPAGUITA ST", "SANTAN ST",   "TINDALO ST",
    "YAKAL ST",       "ZAMORA ST"};

constexpr const char* barangayList[] = {
    "BAGONG SILANG", "BALITE",     "BANGKAL",    "BUHAY NA TUBIG", "CENTRO",  "HALANG",    "KAPITAN PEPE",
    "LIGAYA",        "MAHARLIKA",  "MALIGAYA",   "MAYSAN",         "PAG-ASA", "POBLACION", "SAN ISIDRO",
    "SAN ROQUE",     "SANTA CRUZ", "SANTO NIÑO", "TABING ILOG",    "TALABA",  "UGONG"};

constexpr Town townList[] = {{"1000", "MANILA", "METRO MANILA"},
                             {"1100", "QUEZON CITY", "METRO MANILA"},
                             {"1200", "MAKATI", "METRO MANILA"},
                             {"1300", "PASAY", "METRO MANILA"},
                             {"1400", "CALOOCAN", "METRO MANILA"},
                             {"1440", "VALENZUELA", "METRO MANILA"},
                             {"1550", "MANDALUYONG", "METRO MANILA"},
                             {"1600", "PASIG", "METRO MANILA"},
                             {"1630", "TAGUIG", "METRO MANILA"},
                             {"1700", "PARAÑAQUE", "METRO MANILA"},
                             {"1740", "LAS PIÑAS", "METRO MANILA"},
                             {"1770", "MUNTINLUPA", "METRO MANILA"},
                             {"1800", "MARIKINA", "METRO MANILA"},
                             {"1870", "ANTIPOLO", "RIZAL"},
                             {"1900", "CAINTA", "RIZAL"},
                             {"2000", "SAN FERNANDO", "PAMPANGA"},
                             {"2009", "ANGELES", "PAMPANGA"},
                             {"2100", "BALANGA", "BATAAN"},
                             {"2300", "TARLAC", "TARLAC"},
                             {"2600", "BAGUIO", "BENGUET"},
                             {"3000", "MALOLOS", "BULACAN"},
                             {"3100", "CABANATUAN", "NUEVA ECIJA"},
                             {"4000", "SAN PABLO", "LAGUNA"},
                             {"4026", "SANTA ROSA", "LAGUNA"},
                             {"4100", "CAVITE CITY", "CAVITE"},
                             {"4102", "BACOOR", "CAVITE"},
                             {"4114", "DASMARIÑAS", "CAVITE"},
                             {"4200", "BATANGAS CITY", "BATANGAS"},
                             {"4217", "LIPA", "BATANGAS"},
                             {"4301", "LUCENA", "QUEZON"}};

} // namespace

std::span<const char* const> lastNames() {
    return lastList;
}
std::span<const char* const> maleNames() {
    return maleList;
}
std::span<const char* const> femaleNames() {
    return femaleList;
}
std::span<const char* const> streets() {
    return streetList;
}
std::span<const char* const> barangays() {
    return barangayList;
}
std::span<const Town> towns() {
    return townList;
}

PersonName drawName(Chance& chance) {
    PersonName name;
    name.female = chance.inHundred(52);
    const auto given = name.female ? femaleNames() : maleNames();
    name.first = QString::fromUtf8(chance.of(given));
    if (chance.inHundred(20))
        name.first += u' ' + QString::fromUtf8(chance.of(given));
    name.last = QString::fromUtf8(chance.of(lastNames()));
    if (chance.inHundred(11))
        name.last = QString::fromUtf8(chance.of(std::span<const char* const>(prefixList))) + name.last;
    name.middle = QString::fromUtf8(chance.of(lastNames()));
    return name;
}

PersonName oddName(int index) {
    switch (index) {
    case 3:
        return {QStringLiteral("O'BRIEN"), QStringLiteral("SEAN"), QStringLiteral("D'ARCY"), false};
    case 8:
        return {QStringLiteral("D'SOUZA"), QString::fromUtf8("MARÍA"), QString::fromUtf8("NÚÑEZ"), true};
    case 14:
        return {QString::fromUtf8("PEÑAFLORIDA"), QString::fromUtf8("JOSÉ"), QString::fromUtf8("IBAÑEZ"),
                false};
    case 21:
        return {QStringLiteral("SANTOS-REYES"), QStringLiteral("MA. LOURDES"), QStringLiteral("L."), true};
    default:
        return {};
    }
}

bool isMadeUp(const QString& lastName, const QString& firstName) {
    static const auto wordsOf = [](std::span<const char* const> list) {
        QSet<QString> words;
        for (const char* word : list)
            words.insert(QString::fromUtf8(word));
        return words;
    };
    static const QSet<QString> lasts = wordsOf(lastNames());
    static const QSet<QString> givens = wordsOf(maleNames()) | wordsOf(femaleNames());
    for (int index = 0; index < oddNameCount; ++index) {
        if (const PersonName odd = oddName(index); odd.last == lastName && odd.first == firstName)
            return true;
    }
    bool isLast = lasts.contains(lastName);
    for (const char* prefix : prefixList) {
        const QString begin = QString::fromUtf8(prefix);
        isLast = isLast || (lastName.startsWith(begin) && lasts.contains(lastName.mid(begin.size())));
    }
    bool isFirst = givens.contains(firstName);
    for (qsizetype at = firstName.indexOf(u' '); at >= 0; at = firstName.indexOf(u' ', at + 1))
        isFirst = isFirst || (givens.contains(firstName.left(at)) && givens.contains(firstName.mid(at + 1)));
    return isLast && isFirst;
}

} // namespace demo
