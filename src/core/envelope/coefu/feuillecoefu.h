#pragma once

#include "envelope/coefu/editeurparois.h"
#include "workbook/feuille.h"

namespace thermique {

class Classeur;

// The rules of the "Coef - U" sheet (sheet 1): headings, the type list of column 1, block
// writing, tint lists, the tools of columns 6 and 9, and the recalculation of a block after
// each commit.
class FeuilleCoefU : public Feuille
{
public:
    void construire(Classeur &classeur) override;
    bool clic(Classeur &classeur, int ligne, int colonne) override;
    bool clicDroit(Classeur &classeur, int ligne, int colonne) override;
    void choixListe(Classeur &classeur, int liste, int index) override;
    QString aide(const Classeur &classeur, int ligne, int colonne) const override;
    void apresValidation(Classeur &classeur, int ligne, int colonne) override;
    void recalculerFeuille(Classeur &classeur) override;
    void recalculerLigne(Classeur &classeur, int ligne) override;

    // The joinery blocks, installed by the windows code.
    ExtensionFenetres fenetres;

    // The block editor's view of the study's sheet.
    ContexteParois contexte(Classeur &classeur);

private:
    enum class Liste { Aucune, Types, Teintes };
    bool ouvrirListe(Classeur &classeur, int ligne, int colonne);
    Liste m_liste = Liste::Aucune;
};

// Builds the empty Coef-U form in a grid: 40 rows, 14 columns, 3 fixed rows, the headings
// and the widths. The wall library uses the same form.
void ConstruireGrilleParois(Grid &grille);

// The sheet's help text for a cell (without the common lines on the keys).
QString AideParois(const Grid &grille, int ligne, int colonne);

// What a right click on a cell of a Coef-U grid opens: a list (Liste), a form by its name,
// or nothing.
struct OutilCellule
{
    enum Genre { Rien, ListeTypes, ListeTeintes, Formulaire } genre = Rien;
    QString formulaire;
};
OutilCellule OutilParois(const Grid &grille, qint32 couleurVerrouillee, int ligne, int colonne);

// Formats the special dimension rows after a commit (their value shows grouped with three
// decimals) and recomputes the block. The cell text and operation are already written.
void ApresValidationParois(ContexteParois &ctx, int ligne, int colonne);

} // namespace thermique
