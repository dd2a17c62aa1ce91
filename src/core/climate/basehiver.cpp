#include "basehiver.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>

namespace thermique {

namespace {

constexpr std::array<int, 23> departementsCotiers
    = {35, 44, 85, 17, 33, 40, 66, 11, 83, 6, 62, 80, 76, 14, 50, 22, 29, 56, 64, 34, 30, 13, 20};

bool dans(int departement, std::initializer_list<int> liste)
{
    return std::find(liste.begin(), liste.end(), departement) != liste.end();
}

// One row per hundred metres of altitude, from row 2 (up to 200 m) to row 31 (above
// 3000 m); twelve two-digit columns for T0 = -4 down to -15, read as negative degrees.
constexpr std::array<const char *, 30> tableAltitude = {
    "040506080809101212151515", "050607090910111113131315", "050607090910111113131315",
    "060708101011121414161616", "060709111111131515171717", "070810121212141616181818",
    "070811131315151717191919", "080912141416161818202020", "080913151517171919212121",
    "101014161618182020222222", "101017171719192121232323", "111118181820202222242424",
    "111119191921212323252525", "121220202022222424252525", "121221212123230000000000",
    "131322222224240000000000", "131323232325250000000000", "141424242426260000000000",
    "141425252527270000000000", "151526262628280000000000", "151527272729290000000000",
    "161628282830300000000000", "161628282830300000000000", "171729292930300000000000",
    "171729292930300000000000", "171729292930300000000000", "181830303030300000000000",
    "191930303030300000000000", "191930303030300000000000", "202030303030300000000000",
};

struct ListeVilles
{
    int departement;
    std::initializer_list<const char *> villes;
};

// Towns that take "W" in departments where every other town is "V", whatever the altitude.
const ListeVilles villesW[] = {
    {7,
     {"Annonay", "Bourg-Saint-Andéol", "Chomérac", "Lamastre", "Privas", "Roche-maure",
      "Saint-Félicien", "Saint-Péray", "Saint Pierreville", "Satillieu", "Serrières", "Tournon",
      "Vernoux-d'Ardèche", "Villeneuve-de-Berg", "Viviers-sur-Rhône", "La-Voulte-sur-Rhône"}},
    {11,
     {"Coursan", "Durban-Corbières", "Ginesta", "Lagrasse", "Lézignan", "Corbières", "Mouthoumet",
      "Narbonne", "Sigean", "Tuchan"}},
    {26,
     {"Bourdeaux", "Bourg-de-Péage", "Chabeuil", "Crest", "Die", "Dieulefit", "Le-Grand-Serre",
      "Grignan", "Loriol-sur-Drôme", "Marsanne", "Montélimar", "Nyons", "Pierrelatte",
      "Romans-sur-Isère", "Saint-Donat-sur-l'Herbasse", "Saint-Paul-Trois-Châteaux",
      "Saint-Vallier", "Tain-l'Hermitage", "Valence"}},
    {30,
     {"Aigues-Mortes", "Aramon", "Beaucaire", "Bagnols-sur-Cèze", "Marguerittes",
      "Pont-Saint-Esprit", "Remoulins", "Roquemaure", "Saint-Gilles-du-Gard", "Vauvert",
      "Villeneuve-les-Avignon"}},
    {66,
     {"Argelès-sur-Mer", "Latour-de-France", "Millas", "Perpignan", "Rivesaltes",
      "Saint-Laurent-de-la-Salanque", "Thuir"}},
    {83, {"Le-Beausset", "Ollioules", "La-Seyne-sur-Mers", "Toulon"}},
};

} // namespace

bool EstDepartementCotier(int departement)
{
    return std::find(departementsCotiers.begin(), departementsCotiers.end(), departement)
        != departementsCotiers.end();
}

double TemperatureBaseDistanceMer(int departement, double distanceKm, double t0)
{
    double t = t0;
    if (distanceKm < 25) {
        if (dans(departement, {35, 44, 85, 17, 33, 40, 66, 11}))
            t = -4;
        else if (dans(departement, {83, 6}))
            t = -2;
    }
    if (distanceKm < 3) {
        if (dans(departement, {62, 80}))
            t = -7;
        else if (dans(departement, {76, 14}))
            t = -5;
        else if (dans(departement, {64}))
            t = -3;
        else if (dans(departement, {50, 22, 29, 56, 44, 85, 17, 33, 40, 66}))
            t = -2;
        else if (dans(departement, {11, 34, 30, 13}))
            t = -3;
        else if (dans(departement, {83, 6, 20}))
            t = 0;
    }
    return t;
}

double TempératureBaseAltitude(double altitude, double t0)
{
    if (t0 == -2) {
        // Each step that holds overrides the one before: the lowest band wins.
        double t = altitude > 900 ? -8 : -6;
        if (altitude < 701)
            t = -5;
        if (altitude < 601)
            t = -4;
        if (altitude < 401)
            t = -3;
        if (altitude < 201)
            t = -2;
        return t;
    }
    if (t0 == 0)
        return 0;
    if (t0 < -3) {
        const double colonneReelle = -t0 - 4;
        const long colonne = std::lround(colonneReelle);
        // Colder than the table reaches: the sea-level value is the best figure left.
        if (colonne < 0 || colonne > 11 || !std::isfinite(colonneReelle))
            return t0;
        const double lignePleine = std::ceil(altitude / 100);
        const int ligne = std::isfinite(lignePleine) ? int(std::clamp(lignePleine, 2.0, 31.0)) : 2;
        const char *texte = tableAltitude[ligne - 2];
        const int valeur = (texte[2 * colonne] - '0') * 10 + (texte[2 * colonne + 1] - '0');
        return valeur == 0 ? 0.0 : -double(valeur);
    }
    return t0;
}

QString LettreReferenceThermique(int departement, double altitude, const QString &ville)
{
    QString lettre = altitude >= 1000 ? QStringLiteral("W") : QStringLiteral("V");
    if (departement == 13 || departement == 84)
        return QStringLiteral("W");
    const QString nom = ville.trimmed();
    for (const ListeVilles &l : villesW) {
        if (l.departement != departement)
            continue;
        for (const char *v : l.villes)
            if (nom == QString::fromUtf8(v))
                return QStringLiteral("W");
        return QStringLiteral("V");
    }
    return lettre;
}

} // namespace thermique
