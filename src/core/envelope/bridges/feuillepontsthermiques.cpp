#include "envelope/bridges/feuillepontsthermiques.h"

#include "envelope/bridges/cataloguepont.h"
#include "envelope/coefu/feuillecoefu.h"
#include "workbook/classeur.h"
#include "workbook/nombres.h"
#include "workbook/userinterface.h"

#include <QFileInfo>

namespace thermique {

namespace P = ColonnePont;

namespace {

constexpr int nombreBlocs = 8;
constexpr int nombreGrades = 5;

bool ligneLibre(const Grid &g, int ligne)
{
    if (ligne < g.fixedRows || ligne >= g.rows())
        return false;
    for (int c = 0; c < g.cols(); ++c)
        if (!g.text(ligne, c).trimmed().isEmpty())
            return false;
    return true;
}

} // namespace

void ConstruireGrillePonts(Grid &g)
{
    ConstruireGrilleParois(g);
    g.setText(1, P::Psi, QStringLiteral("U"));
    g.setText(2, P::Psi, QStringLiteral("W/(m.K)"));
    g.setColWidth(ColonneParoi::UJour, 10);
    g.setColWidth(ColonneParoi::UNuit, 10);
    g.setColWidth(P::Psi, 900);
}

void AppliquerPont(Grid &g, int ligne, const QString &nom, const QString &code, const QString &psi,
                   int &compteur, qint32 verrou)
{
    if (ligne < g.fixedRows)
        return;
    if (ligne >= g.rows())
        g.setRows(ligne + 1);
    g.setText(ligne, P::Nom, nom);
    g.setText(ligne, P::CodeRT, code);
    g.setText(ligne, P::Code, code);
    g.setText(ligne, P::Psi, psi);
    if (g.text(ligne, P::Cle).trimmed().isEmpty()) {
        ++compteur;
        g.setText(ligne, P::Cle, Format(compteur, QStringLiteral("0000")));
    }
    // The sheet takes no typing: a bridge row changes through the catalogue only.
    for (int c = 1; c <= P::Psi; ++c)
        g.cellPtr(ligne, c)->attributs.couleurFond = verrou;
}

QString ImagePontLigne(const Grid &g, const DossierApplication &dossier, int ligne)
{
    if (ligne < g.fixedRows)
        return {};
    const QString image = ImageDuNom(g.text(ligne, P::Nom));
    if (image.isEmpty())
        return {};
    return dossier.fichier(QStringLiteral("\\Dessins Ponts Thermiques\\") + image);
}

QString SelectionsParDefaut()
{
    return QStringLiteral("2;2;2;2;2;2;3;0;");
}

QString ValeursParDefaut()
{
    return QStringLiteral("0.12;0.25;0.40;0.65;1.00;0.08;0.18;0.35;0.60;0.90;0.04;0.08;0.15;0.30;"
                          "0.45;0.05;0.10;0.18;0.35;0.50;0.12;0.22;0.35;0.50;0.70;0.15;0.28;0.45;"
                          "0.65;0.90;0.06;0.12;0.18;0.28;0.40;0.03;0.07;0.12;0.20;0.30;");
}

const QStringList &BlocsEvaluation()
{
    static const QStringList l = {
        QStringLiteral("Mur extérieur / Plancher"),
        QStringLiteral("Mur extérieur / Plafond"),
        QStringLiteral("Menuiserie / Linteau"),
        QStringLiteral("Menuiserie / Appui"),
        QStringLiteral("Menuiserie / Tableau"),
        QStringLiteral("Menuiserie / Seuil"),
        QStringLiteral("Angle sortant"),
        QStringLiteral("Angle rentrant"),
    };
    return l;
}

const QStringList &GradesEvaluation()
{
    static const QStringList l
        = {QStringLiteral("Très bon"), QStringLiteral("Bon"), QStringLiteral("Moyen"),
           QStringLiteral("Mauvais"), QStringLiteral("Très mauvais")};
    return l;
}

QString SuffixeGrade(int grade)
{
    static const QStringList l
        = {QStringLiteral(" (Très bon)"), QStringLiteral("(bon)"), QStringLiteral("(moyen)"),
           QStringLiteral("(mauvais)"), QStringLiteral("(très mauvais)")};
    return l.value(grade);
}

EvaluationPonts LireEvaluation(const QString &selections, const QString &valeurs)
{
    QStringList s = selections.split(QLatin1Char(';'));
    QStringList v = valeurs.split(QLatin1Char(';'));
    if (s.size() != nombreBlocs + 1 || v.size() != nombreBlocs * nombreGrades + 1) {
        s = SelectionsParDefaut().split(QLatin1Char(';'));
        v = ValeursParDefaut().split(QLatin1Char(';'));
    }
    EvaluationPonts e;
    for (int i = 0; i < nombreBlocs; ++i)
        e.selections << std::clamp(int(Val(s.at(i))), 0, nombreGrades - 1);
    for (int i = 0; i < nombreBlocs * nombreGrades; ++i)
        e.valeurs << v.at(i).trimmed();
    return e;
}

QString TexteSelections(const EvaluationPonts &e)
{
    QString t;
    for (int s : e.selections)
        t += QString::number(s) + QLatin1Char(';');
    return t;
}

QString TexteValeurs(const EvaluationPonts &e)
{
    QString t;
    for (const QString &v : e.valeurs) {
        // A ";" typed in a value would shift every later grade.
        QString propre = v;
        propre.remove(QLatin1Char(';'));
        t += propre + QLatin1Char(';');
    }
    return t;
}

EvaluationPonts EvaluationDeLaFeuille(const Grid &g)
{
    return LireEvaluation(g.text(0, 0), g.text(1, 0));
}

void EnregistrerEvaluation(Grid &g, const EvaluationPonts &e)
{
    g.setText(0, 0, TexteSelections(e));
    g.setText(1, 0, TexteValeurs(e));
}

QVector<QStringList> GrilleEvaluation(const EvaluationPonts &e)
{
    QVector<QStringList> lignes;
    lignes << QStringList {QStringLiteral("Pont Thermique"), QStringLiteral("Coefficient")};
    for (int b = 0; b < nombreBlocs; ++b) {
        lignes << QStringList {BlocsEvaluation().at(b), QString()};
        for (int g = 0; g < nombreGrades; ++g)
            lignes << QStringList {BlocsEvaluation().at(b) + SuffixeGrade(g),
                                   e.valeurs.value(b * nombreGrades + g)};
    }
    return lignes;
}

QStringList ValeursDeGrille(const QVector<QStringList> &grille)
{
    QStringList v;
    for (int r = 1; r < grille.size(); ++r) {
        if ((r - 1) % (nombreGrades + 1) == 0)
            continue; // heading rows 1, 7, ..., 43
        v << grille.at(r).value(1);
    }
    return v;
}

QString PsiEvalue(const EvaluationPonts &e, int bloc)
{
    if (bloc < 0 || bloc >= e.selections.size())
        return {};
    return e.valeurs.value(bloc * nombreGrades + e.selections.at(bloc));
}

void FeuillePontsThermiques::construire(Classeur &classeur)
{
    ConstruireGrillePonts(classeur.etude().flexGrid[2]);
    classeur.definirActionMenu(QStringLiteral("Bouton5-2"), [&classeur] {
        classeur.ui().ouvrirFormulaire(QStringLiteral("frm_Ponts_Thermiques"));
        classeur.vue().grillesModifiees = true;
    });
}

bool FeuillePontsThermiques::clicDroit(Classeur &classeur, int ligne, int colonne)
{
    const Grid &g = classeur.etude().flexGrid[2];
    if (colonne != P::Nom || !ligneLibre(g, ligne))
        return false;
    if (classeur.ui().ouvrirFormulaire(QStringLiteral("Frm_PontsThermiques")))
        classeur.marquerModifiee();
    classeur.vue().grillesModifiees = true;
    return true;
}

QString FeuillePontsThermiques::image(const Classeur &classeur, int ligne, int) const
{
    const QString chemin = ImagePontLigne(classeur.etude().flexGrid[2], classeur.dossier(), ligne);
    return QFileInfo::exists(chemin) ? chemin : QString();
}

QString FeuillePontsThermiques::aide(const Classeur &classeur, int ligne, int colonne) const
{
    const Grid &g = classeur.etude().flexGrid[2];
    m_image = ImagePontLigne(g, classeur.dossier(), ligne);
    if (!m_image.isEmpty() && !QFileInfo::exists(m_image))
        m_image.clear();
    switch (colonne) {
    case P::Nom:
        return QStringLiteral(
            "Colonne 1 : clic droit dans une ligne vide pour choisir un pont thermique dans la "
            "bibliothèque ; le bouton « Sélection rapide des ponts thermiques » donne une "
            "évaluation simplifiée. Les lignes s'insèrent et se suppriment par la barre "
            "d'outils.");
    case P::CodeRT:
    case P::Code:
        return QStringLiteral("Code de la liaison selon les règles Th-U de la RT 2005.");
    case P::Psi:
        return QStringLiteral("Coefficient de transmission linéique ψ du pont thermique en "
                              "W/(m.K). La longueur se saisit pour chaque local sur la feuille "
                              "des pertes de chaleur.");
    default:
        return {};
    }
}

} // namespace thermique
