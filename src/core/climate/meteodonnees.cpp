#include "meteodonnees.h"

#include "workbook/classeur.h"
#include "workbook/nombres.h"

namespace thermique {

MeteoDonnees::MeteoDonnees(const PositionSite &site, TablesStations tables)
    : m_tables(std::move(tables))
{
    // Each table is searched by itself: they need not list the same stations.
    m_ligneInsolation = StationProche(site.longitude, site.latitude, m_tables.insolation);
    m_ligneTemperatures = StationProche(site.longitude, site.latitude, m_tables.temperatures);
    m_ligneEcarts = StationProche(site.longitude, site.latitude, m_tables.ecarts);
    charger();
}

std::optional<MeteoDonnees> MeteoDonnees::Ouvrir(const Classeur &classeur)
{
    const auto site = PositionDuSite(classeur.etude().flexGrid[0]);
    if (!site)
        return std::nullopt;
    return MeteoDonnees(*site, LireTablesStations(classeur.dossier()));
}

QStringList MeteoDonnees::nomsStations() const
{
    QStringList noms;
    for (const QString &l : m_tables.insolation)
        noms << NomStation(l);
    return noms;
}

void MeteoDonnees::choisirStation(int ligne)
{
    if (ligne < 0 || ligne >= m_tables.insolation.size())
        return;
    m_ligneInsolation = ligne;
    m_ligneTemperatures = ligne;
    m_ligneEcarts = ligne;
    charger();
}

void MeteoDonnees::charger()
{
    m_climat = ClimatDeStation(m_tables.insolation.value(m_ligneInsolation),
                               m_tables.temperatures.value(m_ligneTemperatures),
                               m_tables.ecarts.value(m_ligneEcarts));
}

QString MeteoDonnees::latitude() const
{
    const QString l = m_tables.insolation.value(m_ligneInsolation);
    return l.isEmpty() ? QString() : TexteNombre(LatitudeStation(l));
}

QString MeteoDonnees::longitude() const
{
    const QString l = m_tables.insolation.value(m_ligneInsolation);
    return l.isEmpty() ? QString() : TexteNombre(LongitudeStation(l));
}

QString MeteoDonnees::altitude() const
{
    const QString l = m_tables.temperatures.value(m_ligneTemperatures);
    return l.isEmpty() ? QString() : TexteNombre(AltitudeStation(l));
}

QString MeteoDonnees::texteMoyenne(int mois) const
{
    return mois >= 1 && mois <= 12 ? Format(m_climat.moyenne[mois - 1], QStringLiteral("#0.00"))
                                   : QString();
}

QString MeteoDonnees::texteMaxi(int mois) const
{
    return mois >= 1 && mois <= 12 ? Format(m_climat.maxi[mois - 1], QStringLiteral("#0.00"))
                                   : QString();
}

QString MeteoDonnees::texteMini(int mois) const
{
    return mois >= 1 && mois <= 12 ? Format(m_climat.mini[mois - 1], QStringLiteral("#0.00"))
                                   : QString();
}

void MeteoDonnees::changerBase(int ecart)
{
    // A base far outside any climate would only make the sum meaningless.
    m_base = std::clamp(m_base + ecart, -50, 50);
}

QString MeteoDonnees::libelleDJU() const
{
    return QStringLiteral("DJU (") + QString::number(m_base) + QStringLiteral("°) :");
}

QString MeteoDonnees::texteDJU() const
{
    return Format(DegresJours(m_climat.moyenne, m_base), QStringLiteral("##,###"));
}

} // namespace thermique
