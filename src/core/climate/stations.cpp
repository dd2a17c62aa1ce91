#include "stations.h"

#include "fichiersclimat.h"

#include "workbook/dossierapplication.h"
#include "workbook/grid.h"
#include "workbook/nombres.h"

#include <cmath>

namespace thermique {

namespace {
constexpr std::array<int, 12> joursMois = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

double champ(const QString &ligne, int debut, int longueur)
{
    return Val(ligne.mid(debut - 1, longueur));
}

bool moisValide(int mois)
{
    return mois >= 1 && mois <= 12;
}
} // namespace

TablesStations LireTablesStations(const DossierApplication &dossier)
{
    auto lire = [&](const char *nom) {
        return LignesTexte(LireFichierDonnees(
            dossier.fichier(QStringLiteral("Météo1\\") + QString::fromUtf8(nom))));
    };
    return {lire("SS.txt"), lire("Températures.txt"), lire("EcartDiurne.txt")};
}

double LongitudeStation(const QString &ligne)
{
    return champ(ligne, 1, 5);
}

double LatitudeStation(const QString &ligne)
{
    return champ(ligne, 6, 4);
}

int StationProche(double longitude, double latitude, const QStringList &lignes)
{
    if (!(longitude >= -4.49))
        longitude = -4.49;
    if (!(latitude >= 40))
        latitude = 40;
    double meilleure = 1000;
    int trouvee = -1;
    for (int i = 0; i < lignes.size(); ++i) {
        const double dx = LongitudeStation(lignes.at(i)) - longitude;
        const double dy = LatitudeStation(lignes.at(i)) - latitude;
        const double d = std::sqrt(dx * dx + dy * dy);
        if (d < meilleure) {
            meilleure = d;
            trouvee = i;
        }
    }
    return trouvee;
}

QString InsolationMois(const QString &ligneSS, int mois)
{
    return moisValide(mois) ? ligneSS.mid(9 + 2 * (mois - 1), 2) : QString();
}

QString NomStation(const QString &ligneSS)
{
    return ligneSS.mid(33).trimmed();
}

double AltitudeStation(const QString &ligneTemperatures)
{
    return champ(ligneTemperatures, 10, 4);
}

double TemperatureStationMois(const QString &ligneTemperatures, int mois)
{
    return moisValide(mois) ? champ(ligneTemperatures, 14 + 4 * (mois - 1), 4) : 0;
}

double TemperatureSiteMois(const QString &ligneTemperatures, int mois, double altitudeSite)
{
    return TemperatureStationMois(ligneTemperatures, mois)
        + 0.0065 * AltitudeStation(ligneTemperatures) - 0.0065 * altitudeSite;
}

double EcartDiurneMois(const QString &ligneEcarts, int mois)
{
    return moisValide(mois) ? champ(ligneEcarts, 10 + 4 * (mois - 1), 4) : 0;
}

double DegresJours(const std::array<double, 12> &temperatures, double base)
{
    double somme = 0;
    for (int m = 0; m < 12; ++m)
        if (temperatures[m] < base)
            somme += (base - temperatures[m]) * joursMois[m];
    return somme;
}

ClimatStation ClimatDeStation(const QString &ligneSS, const QString &ligneTemperatures,
                              const QString &ligneEcarts)
{
    ClimatStation c;
    c.nom = NomStation(ligneSS);
    for (int m = 1; m <= 12; ++m) {
        const int i = m - 1;
        c.insolation[i] = InsolationMois(ligneSS, m);
        c.moyenne[i] = TemperatureStationMois(ligneTemperatures, m);
        c.ecart[i] = EcartDiurneMois(ligneEcarts, m);
        c.maxi[i] = c.moyenne[i] + c.ecart[i] / 2;
        c.mini[i] = c.moyenne[i] - c.ecart[i] / 2;
    }
    return c;
}

std::optional<PositionSite> PositionDuSite(const Grid &administratif)
{
    const QString texte = administratif.text(10, 10);
    if (texte.trimmed().isEmpty())
        return std::nullopt;
    QString t = texte;
    t.remove(QLatin1Char('\n'));
    const QStringList lignes = t.split(QLatin1Char('\r'));
    PositionSite p;
    p.latitude = ValNombre(lignes.value(0));
    p.longitude = ValNombre(lignes.value(1));
    p.altitude = ValNombre(lignes.value(2));
    return p;
}

} // namespace thermique
