#pragma once

#include "calcullocal.h"

#include "workbook/feuille.h"

#include <QString>
#include <QStringList>
#include <QVector>

namespace thermique {

class Classeur;

// The rules of the "Pertes de chaleur" sheet (sheet 4): room tables, the lists of its
// cells, the recalculation of a line or a room after each commit, and the building total.
class FeuillePertes : public Feuille
{
public:
    void construire(Classeur &classeur) override;
    void apresValidation(Classeur &classeur, int ligne, int colonne) override;
    bool clic(Classeur &classeur, int ligne, int colonne) override;
    bool clicDroit(Classeur &classeur, int ligne, int colonne) override;
    void choixListe(Classeur &classeur, int liste, int index) override;
    QString aide(const Classeur &classeur, int ligne, int colonne) const override;
    void recalculerResultats(Classeur &classeur) override;
    void miseEnForme(Classeur &classeur) override;
    void recalculerFeuille(Classeur &classeur) override;
    void remplirLigneInseree(Classeur &classeur, int ligne) override;
    void recalculerLigne(Classeur &classeur, int ligne) override;
    void nouveauTableau(Classeur &classeur, int ligne) override;

private:
    enum class Liste { Aucune, Parois, Ponts, Emetteurs, Pieces };
    Liste m_liste = Liste::Aucune;
    int m_ligneListe = 0;
};

// The calculation context of the study held by a controller.
ContexteCalculPertes ContextePertes(Classeur &classeur);

// Building total: the help panel shows it, and a change of it blanks the results of the
// Administrative sheet that were derived from the old one.
void MettreAJourTotal(Classeur &classeur, double totalAvant);

// ---- What the small forms of the sheet do ---------------------------------------------------

// The options of the b form, by group, as shown.
struct GroupeOptionsB
{
    QString groupe;
    QStringList options;
};
const QVector<GroupeOptionsB> &OptionsCoefficientB();
// The chosen option's value (its four characters from the second) goes to column 17 of the
// current line, and the line is recalculated.
void AppliquerCoefficientB(Classeur &classeur, const QString &option);

// Orientation codes of the azimuth column, with their angle from south (east negative).
struct Orientation
{
    QString code;
    double azimut;
};
const QVector<Orientation> &Orientations();
// The azimuth (a code or a number) chosen on the wind rose goes to column 8 of the current
// line; `masques` are the horizon heights of rows 1 to 72 of the study's wind-rose table.
void AppliquerRoseDesVents(Classeur &classeur, const QString &azimut, const QStringList &masques);

// The kind of line the insertion command adds: a bridge line when true.
void ChoisirLigneInseree(Classeur &classeur, bool pont);

} // namespace thermique
