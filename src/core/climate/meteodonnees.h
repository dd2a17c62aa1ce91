#pragma once

#include "stations.h"

#include <QString>
#include <QStringList>

#include <array>
#include <optional>

// The read-only view of the site's weather: the nearest stations, their monthly normals
// and the degree-days on a base the user moves.
namespace thermique {

class Classeur;

class MeteoDonnees
{
public:
    MeteoDonnees(const PositionSite &site, TablesStations tables);
    // Nothing when no town is chosen on the administrative sheet.
    static std::optional<MeteoDonnees> Ouvrir(const Classeur &classeur);

    // The station names of the sunshine table, for the station list.
    QStringList nomsStations() const;
    // The line of the sunshine table shown, -1 when the table is empty.
    int stationAffichee() const { return m_ligneInsolation; }
    // Another station, by its line in the sunshine table: the three tables are read at
    // that same line.
    void choisirStation(int ligne);

    QString latitude() const;
    QString longitude() const;
    QString altitude() const;
    const ClimatStation &climat() const { return m_climat; }
    // Monthly values formatted as the form shows them ("#0.00"), month 1 to 12.
    QString texteMoyenne(int mois) const;
    QString texteMaxi(int mois) const;
    QString texteMini(int mois) const;

    // The degree-days: the base starts at 18 and moves by one degree per click.
    int baseDJU() const { return m_base; }
    void changerBase(int ecart);
    QString libelleDJU() const;
    QString texteDJU() const;

private:
    void charger();
    TablesStations m_tables;
    int m_ligneInsolation = -1;
    int m_ligneTemperatures = -1;
    int m_ligneEcarts = -1;
    ClimatStation m_climat;
    int m_base = 18;
};

} // namespace thermique
