#include "envelope/bridges/cataloguepont.h"
#include "envelope/bridges/feuillepontsthermiques.h"
#include "workbook/grid.h"
#include "workbook/nombres.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>

#include <QFile>
#include <QTemporaryDir>
#include <functional>

using namespace thermique;

namespace {

// A detail of three bands of insulation thickness (the last a one-point band) by three
// wall thicknesses.
FichierPont detail(const QStringList &bandes, const QStringList &valeurs, const QStringList &psi)
{
    FichierPont p;
    p.texte1 = {QStringLiteral("Isolation intérieure"), QStringLiteral("Mur - Plancher"),
                QStringLiteral("Béton"), QStringLiteral("Sans rupteur")};
    p.texte3[0] = QStringLiteral("Plancher intermédiaire");
    p.texte3[1] = QStringLiteral("L9");
    p.texte4 = {QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("4")};
    p.appliquerForme();
    p.tables[0].cellules[11] = QStringLiteral("Epaisseur d'isolant (cm)");
    for (int i = 0; i < 9; ++i) {
        p.tables[1].cellules[3 + i] = bandes.value(i);
        p.tables[3].cellules[i] = psi.value(i);
    }
    for (int i = 0; i < 3; ++i)
        p.tables[2].cellules[i] = valeurs.value(i);
    p.tables[2].cellules[11] = QStringLiteral("Epaisseur du mur (cm)");
    p.image = QStringLiteral("PT-II-01.bmp");
    return p;
}

const QStringList bandes = {"4", "à", "8", "8", "à", "12", "15", "à", "15"};
const QStringList murs = {"10", "20", "30"};
const QStringList psi = {"0.80", "0.70", "0.60", "0.60", "0.50", "0.40", "0.30", "0.20", "0.10"};

} // namespace

TEST(CataloguePont, BandAbscissaAndInterpolation)
{
    const FichierPont p = detail(bandes, murs, psi);
    struct Cas
    {
        const char *x1, *x2, *attendu;
    };
    const Cas cas[] = {
        {"6", "20", "0.70"}, // inside the first band, on a value
        {"4", "10", "0.80"}, // the bound that opens the first band
        {"8", "20", "0.70"}, // a shared bound belongs to the band closing with it
        {"9", "20", "0.50"},     {"12", "30", "0.40"}, // closing bound of the second band
        {"15", "10", "0.30"}, // a = b: the one-point band
        {"13", "20", ""}, // in no band
        {"16", "20", ""},        {"6", "15", "0.75"}, // halfway between 10 and 20
        {"6", "12", "0.78"},     {"9", "25", "0.45"},
        {"6", "5", "0.80"}, // below the list: its first value stands for both
        {"6", "40", "0.60"}, // beyond it: the last one
        {"6,5", "20,0", "0.70"}, // a decimal comma reads as a point
        {"", "20", ""},          {"6", "", ""},
    };
    for (const Cas &c : cas)
        EXPECT_EQ(ChoisirValeur(p, QString::fromUtf8(c.x1), QString::fromUtf8(c.x2)),
                  QString::fromUtf8(c.attendu))
            << c.x1 << " " << c.x2;
}

TEST(CataloguePont, ZeroBoundsGiveFaux)
{
    // A band from 0 and an axis starting at 0: the product of the bounds is 0.
    const FichierPont p = detail({"0", "à", "5", "5", "à", "10"}, {"0", "10", "20"},
                                 {"0.9", "0.8", "0.7", "0.6", "0.5", "0.4"});
    EXPECT_EQ(ChoisirValeur(p, QStringLiteral("2"), QStringLiteral("10")), QStringLiteral("Faux"));
    EXPECT_EQ(ChoisirValeur(p, QStringLiteral("7"), QStringLiteral("5")), QStringLiteral("Faux"));
    EXPECT_EQ(ChoisirValeur(p, QStringLiteral("7"), QStringLiteral("-3")), QStringLiteral("Faux"));
    // On a non-zero value of the same axis the cell is read.
    EXPECT_EQ(ChoisirValeur(p, QStringLiteral("7"), QStringLiteral("10")), QStringLiteral("0.50"));
    EXPECT_EQ(ChoisirValeur(p, QStringLiteral("7"), QStringLiteral("15")), QStringLiteral("0.45"));
}

TEST(CataloguePont, SingleCellAndHiddenAxes)
{
    FichierPont p;
    p.texte4 = {QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("1")};
    p.appliquerForme();
    p.tables[3].cellules[0] = QStringLiteral("0.345");
    EXPECT_TRUE(ValeurUnique(p));
    EXPECT_EQ(ChoisirValeur(p, {}, {}), QStringLiteral("0.35"));
    EXPECT_EQ(ChoisirValeur(p, QStringLiteral("99"), QStringLiteral("-1")), QStringLiteral("0.35"));

    // One axis only: the second axis's label is blank, its values are not asked.
    FichierPont q = detail(bandes, murs, psi);
    q.tables[2].cellules[11].clear();
    EXPECT_FALSE(ValeurUnique(q));
    EXPECT_EQ(ChoisirValeur(q, QStringLiteral("9"), {}), QStringLiteral("0.60"));
}

TEST(CataloguePont, FileRoundTripTruncationAndTree)
{
    QTemporaryDir dossier;
    ASSERT_TRUE(dossier.isValid());
    const FichierPont p = detail(bandes, murs, psi);
    const QString chemin = dossier.filePath(
        QStringLiteral("Ponts Thermiques/Isolation intérieure/Mur - Plancher/Béton/Sans "
                       "rupteur/Plancher intermédiaire.txt"));
    ASSERT_TRUE(EcrireFichierPont(chemin, p));
    const auto relu = LireFichierPont(chemin);
    ASSERT_TRUE(relu);
    EXPECT_EQ(*relu, p);
    EXPECT_EQ(ChoisirValeur(*relu, QStringLiteral("6"), QStringLiteral("15")),
              QStringLiteral("0.75"));

    // Cut in the middle of the ψ table: the read keeps the shape, the rest is blank.
    QFile f(chemin);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray tout = f.readAll();
    f.close();
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(tout.left(tout.size() * 3 / 4));
    f.close();
    const auto coupe = LireFichierPont(chemin);
    ASSERT_TRUE(coupe);
    EXPECT_EQ(coupe->tables[3].cellules.size(), 12);
    EXPECT_TRUE(coupe->image.isEmpty());
    // A shape beyond reason is refused, a missing file too.
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write("\"a\"\r\n\"b\"\r\n\"c\"\r\n\"d\"\r\n" + QByteArray(13, ' ').replace(' ', "\"\"\r\n")
            + "\"2\"\r\n\"90000\"\r\n\"90000\"\r\n");
    f.close();
    EXPECT_FALSE(LireFichierPont(chemin));
    EXPECT_FALSE(LireFichierPont(dossier.filePath(QStringLiteral("absent.txt"))));

    // The tree: folders and details; a file without ".txt" shows as an empty folder.
    QFile autre(dossier.filePath(QStringLiteral("Ponts Thermiques/Lisez-moi")));
    ASSERT_TRUE(autre.open(QIODevice::WriteOnly));
    autre.close();
    const DossierPonts arbre = ScannerPonts(dossier.filePath(QStringLiteral("Ponts Thermiques")));
    ASSERT_EQ(arbre.dossiers.size(), 2);
    EXPECT_EQ(arbre.dossiers[0].nom, QStringLiteral("Isolation intérieure"));
    EXPECT_EQ(arbre.dossiers[1].nom, QStringLiteral("Lisez-moi"));
    EXPECT_TRUE(arbre.dossiers[1].dossiers.isEmpty() && arbre.dossiers[1].fichiers.isEmpty());
    const DossierPonts &feuille = arbre.dossiers[0].dossiers[0].dossiers[0].dossiers[0];
    EXPECT_EQ(feuille.fichiers, QStringList {QStringLiteral("Plancher intermédiaire")});
}

TEST(CataloguePont, NamesAndDrawings)
{
    const FichierPont p = detail(bandes, murs, psi);
    const QString nom = NomPont(p, QStringLiteral("Plancher intermédiaire"));
    EXPECT_EQ(nom, QStringLiteral("PT-II-01 : Plancher intermédiaire"));
    EXPECT_EQ(ImageDuNom(nom), QStringLiteral("PT-II-01.bmp"));
    EXPECT_EQ(ImageDuNom(QStringLiteral("Pont sans dessin")), QString());
    EXPECT_EQ(ImageDuNom(QStringLiteral(" : rien devant")), QString());
}

TEST(EvaluationPonts, DefaultsFallbackAndRoundTrip)
{
    const EvaluationPonts defaut = LireEvaluation({}, {});
    EXPECT_EQ(defaut.selections, (QVector<int> {2, 2, 2, 2, 2, 2, 3, 0}));
    ASSERT_EQ(defaut.valeurs.size(), 40);
    EXPECT_EQ(defaut.valeurs.first(), QStringLiteral("0.12"));
    EXPECT_EQ(defaut.valeurs.last(), QStringLiteral("0.30"));
    EXPECT_EQ(TexteSelections(defaut), SelectionsParDefaut());
    EXPECT_EQ(TexteValeurs(defaut), ValeursParDefaut());
    // Angle sortant at "Mauvais", angle rentrant at "Très bon".
    EXPECT_EQ(PsiEvalue(defaut, 6), QStringLiteral("0.28"));
    EXPECT_EQ(PsiEvalue(defaut, 7), QStringLiteral("0.03"));

    // A wrong count in either string gives the defaults for the whole table.
    struct Cas
    {
        const char *selections, *valeurs;
    };
    const QByteArray valeurs = ValeursParDefaut().toUtf8();
    const Cas fautifs[] = {
        {"1;1;1;1;1;1;1;1", valeurs.constData()}, // 8 items
        {"1;1;1;1;1;1;1;1;1;", valeurs.constData()}, // 10 items
        {"1;1;1;1;1;1;1;1;", "0.1;0.2;"},
    };
    for (const Cas &c : fautifs)
        EXPECT_EQ(LireEvaluation(QString::fromUtf8(c.selections), QString::fromUtf8(c.valeurs)),
                  defaut)
            << c.selections;

    EvaluationPonts e = LireEvaluation(QStringLiteral("0;1;2;3;4;9;-2;x;"), ValeursParDefaut());
    EXPECT_EQ(e.selections, (QVector<int> {0, 1, 2, 3, 4, 4, 0, 0}));
    e.valeurs[0] = QStringLiteral("0.1;5");
    Grid g(40, 14);
    EnregistrerEvaluation(g, e);
    const EvaluationPonts relue = EvaluationDeLaFeuille(g);
    EXPECT_EQ(relue.selections, e.selections);
    EXPECT_EQ(relue.valeurs[0], QStringLiteral("0.15"));
    EXPECT_EQ(relue.valeurs.mid(1), e.valeurs.mid(1));
}

TEST(EvaluationPonts, FormGridSkipsHeadingRows)
{
    const EvaluationPonts e = LireEvaluation({}, {});
    const QVector<QStringList> grille = GrilleEvaluation(e);
    ASSERT_EQ(grille.size(), 49);
    EXPECT_EQ(grille[0], (QStringList {"Pont Thermique", "Coefficient"}));
    for (int b = 0; b < 8; ++b)
        EXPECT_EQ(grille[1 + 6 * b][0], BlocsEvaluation()[b]) << b;
    EXPECT_EQ(grille[2][0], QStringLiteral("Mur extérieur / Plancher (Très bon)"));
    EXPECT_EQ(grille[48][0], QStringLiteral("Angle rentrant(très mauvais)"));
    EXPECT_EQ(grille[48][1], QStringLiteral("0.30"));
    EXPECT_EQ(ValeursDeGrille(grille), e.valeurs);
}

// The delivered catalogue: every detail reads, gives a value inside its tables, and names a
// drawing that is delivered too.
TEST(CataloguePont, DeliveredCatalogueIsComplete)
{
    const QDir donnees(QFileInfo(QStringLiteral(__FILE__))
                           .absoluteDir()
                           .filePath(QStringLiteral("../../../data")));
    const QString racine = donnees.filePath(QStringLiteral("Ponts Thermiques"));
    int details = 0;
    std::function<void(const DossierPonts &, const QString &)> parcourir
        = [&](const DossierPonts &d, const QString &chemin) {
              for (const DossierPonts &s : d.dossiers)
                  parcourir(s, chemin + QLatin1Char('/') + s.nom);
              for (const QString &f : d.fichiers) {
                  SCOPED_TRACE(f.toStdString());
                  const auto p
                      = LireFichierPont(chemin + QLatin1Char('/') + f + QStringLiteral(".txt"));
                  ASSERT_TRUE(p);
                  ++details;
                  EXPECT_TRUE(QFileInfo::exists(
                      donnees.filePath(QStringLiteral("Dessins Ponts Thermiques/") + p->image)));
                  EXPECT_FALSE(p->texte3[1].isEmpty());
                  // Middle of the first band, first value of the second axis.
                  const TablePont &b = p->tables[1];
                  const double x1
                      = ValeurUnique(*p) ? 0 : (Val(b.cellule(1, 0)) + Val(b.cellule(1, 2))) / 2;
                  const QString v
                      = ChoisirValeur(*p, QString::number(x1), p->tables[2].cellule(0, 0));
                  EXPECT_NE(v, QStringLiteral("Faux"));
                  EXPECT_FALSE(v.isEmpty());
                  EXPECT_GE(Val(v), 0);
                  EXPECT_LT(Val(v), 1.5);
              }
          };
    parcourir(ScannerPonts(racine), racine);
    EXPECT_GE(details, 100);
}
