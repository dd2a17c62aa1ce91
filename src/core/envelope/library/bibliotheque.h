#pragma once

#include "envelope/coefu/editeurparois.h"
#include "workbook/etatvue.h"
#include "workbook/grid.h"

#include <QString>

#include <optional>

// The general wall library, "Bibliothèque Parois.txt": a grid of the Coef-U form edited
// with the same block rules as the sheet, from which chosen walls go into the study.
namespace thermique {

class Classeur;
class UserInterface;

// The library file: the grid dump (size, one tab-joined text record per row with "$$$" for
// a double quote, widths, heights, display mode, current cell). No attributes are kept;
// PeindreBlocs gives the rows their colours back.
bool EcrireBibliotheque(const QString &chemin, const Grid &grille);
// Reads a library file; nullopt when it cannot be opened or holds no grid. A damaged file
// gives the rows read so far.
std::optional<Grid> LireBibliotheque(const QString &chemin);

// Paints every block of a grid from its labels: input cells white, the rest locked.
void PeindreBlocs(ContexteParois &ctx);

// Back colour of a selected wall's name: RGB red.
constexpr qint32 CouleurSelection = 255;

// The library window's grid and its commands, without any widget.
class BibliothequeParois
{
public:
    BibliothequeParois(UserInterface &ui, qint32 couleurVerrouillee, qint32 couleurSaisie);

    Grid &grille() { return m_grille; }
    const Grid &grille() const { return m_grille; }
    ContexteParois contexte();
    ExtensionFenetres fenetres;
    QString typeConstruction;

    // Loads the file, or starts an empty library when there is none.
    void charger(const QString &chemin);
    bool enregistrer(const QString &chemin) const;

    // The drop-down open over the grid, as the sheet's.
    ListeDeroulante liste;
    // Left click; opens the type list on a free row of column 1.
    void clic(int ligne, int colonne);
    // Right click: with Shift on a wall's name, toggles its selection; otherwise the list or
    // the form name of the cell (empty when none).
    QString clicDroit(int ligne, int colonne, bool majuscule);
    void choixListe(int index);
    // Commit of the input box on a cell.
    void valider(int ligne, int colonne, const QString &texte);
    // F2..F6 on the current cell.
    void touche(int code);
    // Empties the library after the question; false when the user said no.
    bool effacer();

    // "Valider les sélections": the red walls go into the study's sheet, with new keys.
    // Returns the number of walls copied.
    int transferer(Classeur &classeur);

    bool selectionnee(int ligne) const;

private:
    void insererLigne(int ligne);
    void supprimerLigne(int ligne, int colonne);
    bool verifierPlace(int debut, int fin);

    UserInterface &m_ui;
    Grid m_grille;
    int m_compteur = 0;
    qint32 m_verrou;
    qint32 m_saisie;
    enum class Liste { Aucune, Types, Teintes } m_liste = Liste::Aucune;
};

} // namespace thermique
