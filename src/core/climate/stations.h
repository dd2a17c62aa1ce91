#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <optional>

// The monthly climate tables of the stations ("\Météo1\"): fixed columns, one station a
// line, each file searched by itself.
namespace thermique {

class DossierApplication;
class Grid;

struct TablesStations
{
    QStringList insolation; // "SS.txt"
    QStringList temperatures; // "Températures.txt"
    QStringList ecarts; // "EcartDiurne.txt"
};
TablesStations LireTablesStations(const DossierApplication &dossier);

// Columns 1-5 and 6-9 of a station line.
double LongitudeStation(const QString &ligne);
double LatitudeStation(const QString &ligne);

// The line nearest to a site by plain distance in degrees. The site's longitude is taken
// as -4.49 when further west and its latitude as 40 when further south; on equal
// distances the first line stays. -1 when no line is closer than 1000 degrees.
int StationProche(double longitude, double latitude, const QStringList &lignes);

// Month m from 1 to 12.
QString InsolationMois(const QString &ligneSS, int mois);
QString NomStation(const QString &ligneSS);
double AltitudeStation(const QString &ligneTemperatures);
double TemperatureStationMois(const QString &ligneTemperatures, int mois);
// The station's monthly mean brought to the site's altitude (6.5 K per km).
double TemperatureSiteMois(const QString &ligneTemperatures, int mois, double altitudeSite);
double EcartDiurneMois(const QString &ligneEcarts, int mois);

// Degree-days over the months whose mean is below the base.
double DegresJours(const std::array<double, 12> &temperatures, double base);

// What the weather-data form shows for one station.
struct ClimatStation
{
    QString nom;
    std::array<QString, 12> insolation;
    std::array<double, 12> moyenne {};
    std::array<double, 12> ecart {};
    std::array<double, 12> maxi {};
    std::array<double, 12> mini {};
};
ClimatStation ClimatDeStation(const QString &ligneSS, const QString &ligneTemperatures,
                              const QString &ligneEcarts);

// The site written in the climate cell of the administrative sheet: latitude, longitude
// and altitude are its first three lines. Nothing when no town was chosen.
struct PositionSite
{
    double latitude = 0;
    double longitude = 0;
    double altitude = 0;
};
std::optional<PositionSite> PositionDuSite(const Grid &administratif);

} // namespace thermique
