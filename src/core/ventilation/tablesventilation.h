#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

#include <array>

namespace thermique {

class DossierApplication;

// The regulated flow tables shown by the form "Calcul des débits de ventilation": the
// "Ventilation" folder holds one "<onglet>.dir" file per tab and, in the folder
// "<onglet>", one "<table>.txt" per sub-tab, six tab-separated fields a line.

constexpr int ColonnesTableVentilation = 6;
constexpr std::array<int, ColonnesTableVentilation> LargeursTableVentilation
    = {2930, 1000, 3500, 500, 500, 1200};

// The tabs: the "*.dir" files without extension, in name order.
QStringList OngletsVentilation(const DossierApplication &dossier);
// The sub-tabs of a tab: the "*.txt" files of its folder without extension, in name order.
QStringList TablesVentilation(const DossierApplication &dossier, const QString &onglet);

// The rows of a table file (Windows-1252): six fields each, missing fields blank, extra
// fields dropped, blank lines skipped.
QVector<QStringList> LireTableVentilation(const QByteArray &octets);
QVector<QStringList> LireTableVentilation(const DossierApplication &dossier, const QString &onglet,
                                          const QString &table);

// The heading rows of a tab, six cells each: two rows for "Logements" (the minimal flows
// of the dwelling and of its kitchen share one heading), one for the others.
QVector<QStringList> EntetesVentilation(const QString &onglet);

// The tab and sub-tab last shown, kept in "Ventilation.ini".
struct PositionsVentilation
{
    int onglet = 0;
    int table = 0;
};
PositionsVentilation LirePositionsVentilation(const DossierApplication &dossier);
bool EcrirePositionsVentilation(const DossierApplication &dossier,
                                const PositionsVentilation &positions);

} // namespace thermique
