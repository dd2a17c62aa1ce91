#pragma once

#include "workbook/feuille.h"
#include "workbook/grid.h"

#include <QString>
#include <QStringList>

namespace thermique {

class Classeur;

// Sheet 3, "Ventilation": the ventilation system of the zone, the exposure of the building
// to wind and the air renewal flows that the heat-loss and Ubat sheets read in column 12.
class FeuilleVentilation : public Feuille
{
public:
    void construire(Classeur &classeur) override;
    void entrer(Classeur &classeur) override;
    void apresValidation(Classeur &classeur, int ligne, int colonne) override;
    bool clic(Classeur &classeur, int ligne, int colonne) override;
    bool clicDroit(Classeur &classeur, int ligne, int colonne) override;
    void choixListe(Classeur &classeur, int liste, int index) override;
    void recalculerFeuille(Classeur &classeur) override;

private:
    bool ouvrirListe(Classeur &classeur, int ligne, int colonne);

    // The row whose list is open, so that a second click on it closes the list.
    int m_ligneListe = -1;
};

// The choices of the list of a row; empty for a row without a list.
QStringList ChoixVentilation(int ligne);

// Builds the sheet in its initial state.
void ConstruireGrilleVentilation(Grid &grille, qint32 couleurVerrouillee, qint32 couleurSaisie);

// A value of the sheet: written to columns 12 to 22, read from column 12.
void EcrireValeurVentilation(Grid &grille, int ligne, const QString &texte);
inline QString ValeurVentilation(const Grid &grille, int ligne)
{
    return grille.text(ligne, 12);
}

// Index of the system of row 2 in its list, -1 when none is chosen.
int IndexSysteme(const Grid &grille);

// Colours and locks of rows 3 to 8 for the system of index `systeme`; -1 writes the prompt
// in row 2 and locks the flow rows.
void AppliquerSysteme(Grid &grille, int systeme, qint32 couleurVerrouillee, qint32 couleurSaisie);

// A choice from the system list: the system, its colours, then the flows again.
void ChoisirSysteme(Classeur &classeur, int index);

} // namespace thermique
