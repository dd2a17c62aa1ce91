#pragma once

#include "workbook/feuille.h"

#include <QString>
#include <QStringList>

namespace thermique {

class Classeur;
class Grid;

// Sheet 0, "Administratif": the cover of a study and the site, climate and building data
// that the other sheets need.
class FeuilleAdministrative : public Feuille
{
public:
    void construire(Classeur &classeur) override;
    void entrer(Classeur &classeur) override;
    bool clic(Classeur &classeur, int ligne, int colonne) override;
    bool clicDroit(Classeur &classeur, int ligne, int colonne) override;
    void choixListe(Classeur &classeur, int liste, int index) override;
    QString aide(const Classeur &classeur, int ligne, int colonne) const override;

private:
    // The row whose list is open, so that a second click on it closes the list.
    int m_ligneListe = -1;
};

// The lists of rows 12 (building use) and 13 (situation).
QStringList TypesConstruction();
QStringList Situations();

// The labels of the climate cell, one a line.
QStringList LibellesClimat();

// Builds the empty sheet in `grille` with the given locked and input colours.
void ConstruireGrilleAdministrative(Grid &grille, qint32 couleurVerrouillee, qint32 couleurSaisie,
                                    const QString &identite, const QString &uniteSurface,
                                    const QString &uniteVolume);

// A choice in the list of row 12 or 13, with the effects that follow on both sheets.
void ChoisirDansListeAdministrative(Classeur &classeur, int ligne, const QString &texte);

// The department number of the locality of row 9 (the two characters after " - ").
int DepartementLocalite(const Grid &grille);

// The menu entries of the sheet: identity, weather folder, weather data.
void MenuIdentite(Classeur &classeur);
void MenuMeteo(Classeur &classeur);
void MenuDonneesMeteo(Classeur &classeur);

} // namespace thermique
