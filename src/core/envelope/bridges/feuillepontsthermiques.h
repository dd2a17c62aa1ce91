#pragma once

#include "workbook/feuille.h"

#include <QString>
#include <QStringList>
#include <QVector>

// The "Coef - Pth" sheet (sheet 2): one linear thermal bridge a row, taken from the
// catalogue, and the state of the quick evaluation form in cells (0,0) and (1,0).
namespace thermique {

class Grid;
class DossierApplication;

namespace ColonnePont {
constexpr int Cle = 0;
constexpr int Nom = 1;
constexpr int CodeRT = 2;
constexpr int Code = 3;
constexpr int Psi = 13;
} // namespace ColonnePont

// The empty sheet: the Coef-U form with "U" "W/(m.K)" as last heading.
void ConstruireGrillePonts(Grid &grille);

// "Valider" of the catalogue: name, code and ψ on the row, and a key when it has none.
// The code also goes to column 3, the column the heat-loss lists take it from.
void AppliquerPont(Grid &grille, int ligne, const QString &nom, const QString &code,
                   const QString &psi, int &compteurParois, qint32 couleurVerrouillee);

// The drawing of a sheet row, as a path under the application folder; empty when the row
// names none.
QString ImagePontLigne(const Grid &grille, const DossierApplication &dossier, int ligne);

// The quick evaluation form: eight selections and eight blocks of five grades.
struct EvaluationPonts
{
    QVector<int> selections; // 8 grade indexes, 0 "Très bon" .. 4 "Très mauvais"
    QStringList valeurs; // 40 ψ texts, block by block
    bool operator==(const EvaluationPonts &) const = default;
};
// The default state strings.
QString SelectionsParDefaut();
QString ValeursParDefaut();
// The eight junction kinds and the five grades.
const QStringList &BlocsEvaluation();
const QStringList &GradesEvaluation();
// The text after a line's name for a grade.
QString SuffixeGrade(int grade);
// On opening: the two stored strings; a wrong count of items gives the defaults.
EvaluationPonts LireEvaluation(const QString &selections, const QString &valeurs);
// On closing: the strings stored in cells (0,0) and (1,0).
QString TexteSelections(const EvaluationPonts &e);
QString TexteValeurs(const EvaluationPonts &e);
EvaluationPonts EvaluationDeLaFeuille(const Grid &grille);
void EnregistrerEvaluation(Grid &grille, const EvaluationPonts &e);
// The grid of the form (heading rows 1, 7, ..., 43 and five grades under each) and back.
QVector<QStringList> GrilleEvaluation(const EvaluationPonts &e);
QStringList ValeursDeGrille(const QVector<QStringList> &grille);
// ψ of the selected grade of a kind.
QString PsiEvalue(const EvaluationPonts &e, int bloc);

class FeuillePontsThermiques : public Feuille
{
public:
    void construire(Classeur &classeur) override;
    bool clicDroit(Classeur &classeur, int ligne, int colonne) override;
    QString aide(const Classeur &classeur, int ligne, int colonne) const override;

    // The drawing under the pointer, for the image window; empty when none.
    const QString &imageSurvolee() const { return m_image; }
    QString image(const Classeur &classeur, int ligne, int colonne) const override;

private:
    mutable QString m_image;
};

} // namespace thermique
