#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

// The climate files of the application folder, as the town choice reads them.
namespace thermique {

class DossierApplication;

// The first line of an unscrambled town file, split on TAB. A line without TAB leaves
// every value but the name empty.
struct FicheVille
{
    QString nom;
    QString codePostal;
    QString latitude;
    QString longitude;
    QString altitude;
    // The text behind the last TAB: the natural-gas price level "GN0" to "GN6".
    QString niveauGaz;

    // The department number: the first two characters of the postal code, as a number.
    int departement() const;
};
FicheVille LireFicheVille(const QByteArray &octetsWindows1252);
// The plain line of a town file, as the generator writes it (CR LF ended).
QByteArray EcrireFicheVille(const QStringList &champs);

// A region of "Fichiers Géographique.txt" and its departments.
struct RegionGeographique
{
    QString nom;
    QStringList departements;
};
// One value a line: a line beginning "Rég" opens a region; any other line is a department
// of the last region. Names are the text from the seventh character. Departments before
// the first region are dropped.
QVector<RegionGeographique> LireGeographie(const QByteArray &octetsWindows1252);

// "Fichiers Météo.txt": the choice "<Région>\<Département>", also the folder of the towns.
QString LireChoixMeteo(const DossierApplication &dossier);
bool EcrireChoixMeteo(const DossierApplication &dossier, const QString &choix);
// The department part of a choice: everything behind the "\".
QString DepartementDuChoix(const QString &choix);
// The towns of the chosen folder, in name order, without their extension.
QStringList ListerVilles(const DossierApplication &dossier, const QString &choix);

// One line of "Base de données - Coordonnées des départements.txt".
struct ClimatDepartement
{
    QString zoneEte;
    QString zoneHiver;
    QString temperatureEte;
    QString temperatureHiver;
    QString humidite;
    QString dureeChauffage;
};
// The values of department `departement`; the heading line is skipped and a later line
// with the same key wins. Nothing when the department is not in the file.
std::optional<ClimatDepartement> ChercherDepartement(const QByteArray &octetsWindows1252,
                                                     int departement);

// Reads a data file of the folder in full, up to a bound that no real file reaches.
QByteArray LireFichierDonnees(const QString &chemin);
// The lines of a text file (Windows-1252, CR LF or LF).
QStringList LignesTexte(const QByteArray &octetsWindows1252);

} // namespace thermique
