#pragma once

#include "workbook/grid.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

// The wall block editor: writing a block of a given type, finding a block from one of its
// rows, and computing it. It works on any grid of the Coef-U form, so that the study's sheet
// and the wall library share the same rules.
namespace thermique {

class UserInterface;
struct ContexteParois;

// Joinery blocks are built and computed by the windows code, which plugs in here.
struct ExtensionFenetres
{
    // Rows a joinery block takes.
    int lignes = 18;
    // Writes a joinery block whose head is `ligne`.
    std::function<void(ContexteParois &, int ligne)> ecrireBloc;
    // Computes the joinery block whose head is `tete`.
    std::function<void(ContexteParois &, int tete)> calculer;
};

// A grid of the Coef-U form and what its rules need around it.
struct ContexteParois
{
    Grid &grille;
    UserInterface &ui;
    // The key counter of the walls ("0000" keys in column 0 of the heads).
    int &compteurParois;
    qint32 couleurVerrouillee = 0;
    qint32 couleurSaisie = CouleurSystemeFenetre;
    // Building type of the administrative sheet: joinery code A7 for "Bâtiment collectif.".
    QString typeConstruction;
    const ExtensionFenetres *fenetres = nullptr;
};

namespace ColonneParoi {
constexpr int Cle = 0;
constexpr int Nom = 1;
constexpr int Teinte = 2;
constexpr int Code = 3;
constexpr int Permeabilite = 4;
constexpr int FacteurSolaire = 5;
constexpr int Libelle = 6;
constexpr int Epaisseur = 7;
constexpr int Conductivite = 8;
constexpr int ResistanceSuperficielle = 9;
constexpr int Resistance = 10;
constexpr int UJour = 11;
constexpr int UNuit = 12;
constexpr int Cache = 13;
constexpr int Nombre = 14;
} // namespace ColonneParoi

// The 16 types of the drop-down of column 1, in list order.
const QStringList &TypesParois();
// The joinery type ("Fen. Porte et Porte-fen.").
QString TypeFenetre();
bool EstPlancherSurSol(const QString &type);

// Rows a block of this type takes.
int NombreLignesBloc(const QString &type, const ExtensionFenetres *fenetres = nullptr);
// Writes a new block from row `ligne` (the rows must be free), gives the head its key and
// computes it. Returns false for a type it does not know or a joinery block with no windows
// code installed.
bool EcrireBloc(ContexteParois &ctx, int ligne, const QString &type);

// The head row of the block holding `ligne`, walking up; nullopt when the row belongs to no
// block (a free row, or a row below a block's results).
std::optional<int> ChercherEntêteParoi(const Grid &grille, int ligne);

// Recomputes the block holding `ligne`. An invalid row shows the three-line message (title
// "Termique.") when `messages` is set, and returns false.
bool CalculU(ContexteParois &ctx, int ligne, bool messages = true);
// Recomputes every block of the grid.
void CalculFeuilleU(ContexteParois &ctx);

// The type of the block whose head is `tete` (hidden column 13, else the start of column 1).
QString TypeBloc(const Grid &grille, int tete);
// The block's entry row ("Résistance d'entrée"), nullopt when missing.
std::optional<int> LigneEntree(const Grid &grille, int tete);

// The block's last row (its results), or the head when the block is broken.
int FinBloc(const Grid &grille, int tete);
// Gives the rows of the block whose head is `tete` their colours from their labels.
void PeindreBloc(ContexteParois &ctx, int tete);

// The list of column 2: the tints, or the colours when the cell holds an absorption value.
QStringList ListeTeintes(const QString &valeur);
// What a choice in that list writes in column 2.
QString ChoixTeinte(const QString &valeur, int index);

// A block row paints its columns 1 to 12 locked except the given input columns.
void PeindreLigneParoi(ContexteParois &ctx, int ligne, std::initializer_list<int> saisies);

// True when `libelle` (column 6) starts with one of these texts.
bool EstLigneEntree(const QString &libelle);
bool EstLigneSortie(const QString &libelle);

} // namespace thermique
