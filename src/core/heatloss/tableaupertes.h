#pragma once

#include "workbook/grid.h"

#include <QString>
#include <QStringList>

// The room tables of the heat-loss sheet: row codes, the layout of each kind of row, and the
// walk from a row to the rows of its table.
namespace thermique {

namespace CodePertes {
inline const QString Tete = QStringLiteral("TableauLigne1");
inline const QString Titres = QStringLiteral("TableauLigne2");
inline const QString Paroi = QStringLiteral("TableauLigneCalculParoi");
inline const QString Pont = QStringLiteral("TableauLigneCalculPontThermique");
inline const QString Air = QStringLiteral("TableauLigneRenouvellementAir");
inline const QString Complement = QStringLiteral("TableauLigneComplément");
inline const QString Resultats = QStringLiteral("TableauLigneRésultats");
inline const QString Fin = QStringLiteral("TableauInterTableau");
// Both calculation codes start so.
inline const QString Calcul = QStringLiteral("TableauLigneCalcul");
} // namespace CodePertes

namespace ColonnePertes {
constexpr int Code = 0;
constexpr int Nom = 1; // 1 to 6
constexpr int Inclinaison = 7;
constexpr int Azimut = 8;
constexpr int CodeParoi = 9;
constexpr int Permeabilite = 10;
constexpr int FacteurSolaire = 11;
constexpr int UJour = 12;
constexpr int UNuit = 13;
constexpr int ULineique = 14;
constexpr int Quantite = 15;
constexpr int DeltaT = 16;
constexpr int B = 17;
constexpr int Pertes = 18;
constexpr int Cle = 20;
constexpr int NombreFenetres = 21;
constexpr int SurfaceOuvrant = 37;
// Room head.
constexpr int NomLocal = 2; // 2 to 6
constexpr int TemperatureResultante = 9;
constexpr int TemperatureExterieure = 11;
constexpr int TemperatureAir = 17;
constexpr int Emetteur = 18;
// Results row.
constexpr int Aire = 2; // and 3
constexpr int Hauteur = 5;
constexpr int Volume = 9; // and 8
constexpr int Pe = 11;
constexpr int Qi = 13;
constexpr int Recuperation = 14;
constexpr int Parametres = 20;
} // namespace ColonnePertes

constexpr int LignesPertes = 80;
constexpr int ColonnesPertes = 38;

// The emitters of column 18 of a room head, in list order.
const QStringList &Emetteurs();
// The parameter string of a new room's results row.
QString ParametresLocalDefaut();

// The colours a row builder paints with.
struct CouleursPertes
{
    qint32 verrouillee = 0;
    qint32 saisie = CouleurSystemeFenetre;
    // In the simplified mode the air line is typed by the user.
    bool simplifie = false;
};

// Sizes the grid to the sheet's columns: widths, the hidden working columns.
void FormerGrillePertes(Grid &g);

bool EstLigneCalcul(const QString &code);
bool EstLigneLibre(const Grid &g, int r);

// The rows of one room table around a row of it.
struct TableauLocal
{
    int tete = -1;
    int titres = -1;
    int air = -1;
    int complement = -1;
    int resultats = -1;
    int fin = -1;
    bool valide() const { return tete >= 0 && resultats > tete; }
};
// The table holding `ligne`: walks up to its head and down to its closing row.
TableauLocal TrouverTableau(const Grid &g, int ligne);
// The head rows of every table, top to bottom.
QVector<int> TetesTableaux(const Grid &g);

// Row writers. Each one writes the texts and the look of its kind of row at `r`.
void EcrireTete(Grid &g, int r, const CouleursPertes &c, double temperatureBase);
void EcrireTitres(Grid &g, int r, const CouleursPertes &c);
// `entree` is a ListeParois entry: name@code@m@F@U day@U night@key.
void EcrireLigneParoi(Grid &g, int r, const CouleursPertes &c, const QString &entree);
// `entree` is a ListePonts entry: name@code@coefficient@key.
void EcrireLignePont(Grid &g, int r, const CouleursPertes &c, const QString &entree);
void EcrireLigneAir(Grid &g, int r, const CouleursPertes &c);
void EcrireResultats(Grid &g, int r, const CouleursPertes &c);
void EcrireFinTableau(Grid &g, int r, const CouleursPertes &c);
// Blank, merged free row.
void ViderLigne(Grid &g, int r);

// Writes a whole room table from row `debut`, inserting rows where the place is taken.
// Returns the row after the table.
int EcrireTableau(Grid &g, int debut, const CouleursPertes &c, const QStringList &parois,
                  const QStringList &ponts, double temperatureBase);

// Gives a row the colours and alignments of its code (after a load, before a save, after a
// paste); the texts stay. The labels of the head and the ΔT heading are written again.
void FormaterLigne(Grid &g, int r, const CouleursPertes &c);
void RestaurerFormatPertes(Grid &g, const CouleursPertes &c);

} // namespace thermique
