#include "envelope/coefu/calculsparois.h"
#include "envelope/coefu/feuillecoefu.h"
#include "envelope/library/bibliotheque.h"
#include "envelope/library/calculateurs.h"
#include "envelope/library/composants.h"
#include "scripteduserinterface.h"
#include "workbook/classeur.h"
#include "workbook/nombres.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QTemporaryDir>

using namespace thermique;
namespace C = ColonneParoi;

namespace {

constexpr qint32 gris = 12632256;

void ecrire(const QString &chemin, const QByteArray &octets)
{
    QDir().mkpath(QFileInfo(chemin).absolutePath());
    QFile f(chemin);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(octets);
}

struct Editeur
{
    ScriptedUserInterface ui;
    Grid grille;
    int compteur = 0;
    ContexteParois ctx {grille, ui, compteur, gris, CouleurSystemeFenetre, {}, nullptr};
    Editeur() { ConstruireGrilleParois(grille); }
};

} // namespace

TEST(Composants, FileRoundTripAndDamagedFiles)
{
    QTemporaryDir d;
    const QString chemin = CheminComposant(d.path(), QStringLiteral("Isolants"),
                                           QStringLiteral("Laines"), QStringLiteral("Laine 035"));
    const Composant c {
        QStringLiteral("NF EN 13162"),   QStringLiteral("12 à 20"), QStringLiteral("0.035"),
        QStringLiteral("1030"),          QStringLiteral("1"),       QStringLiteral("1"),
        QStringLiteral("Rouleau \"nu\"")};
    ASSERT_TRUE(EcrireComposant(chemin, c)); // the folders are made
    QFile f(chemin);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray octets = f.readAll();
    EXPECT_TRUE(octets.startsWith("\"R\xE9"
                                  "f\xE9rences : NF EN 13162\"\r\n"));
    EXPECT_TRUE(octets.contains("\"Masse volumique s\xE8"
                                "che (kg/m\xB3) : 12 \xE0 20\"\r\n"));
    Composant relu = c;
    relu.commentaire = QStringLiteral("Rouleau 'nu'");
    EXPECT_EQ(LireComposant(chemin), relu);

    EXPECT_FALSE(LireComposant(d.filePath(QStringLiteral("absent.txt"))));
    // A truncated file gives what it holds; lines without their label are taken whole.
    ecrire(d.filePath("court.txt"), "\"x\"\r\n\"2300\"\r\n\"Conductibilit");
    const auto court = LireComposant(d.filePath("court.txt"));
    ASSERT_TRUE(court);
    EXPECT_EQ(court->references, QStringLiteral("x"));
    EXPECT_EQ(court->masseVolumique, QStringLiteral("2300"));
    EXPECT_TRUE(court->capacite.isEmpty());
    ecrire(d.filePath("binaire.txt"), QByteArray(5000, '\0') + "\"\"\"");
    EXPECT_TRUE(LireComposant(d.filePath("binaire.txt")));
}

TEST(Composants, TreeScanSkipsHiddenNamesAndOtherFiles)
{
    QTemporaryDir d;
    for (const char *p : {"Béton/Armé/B1.txt", "Béton/Armé/.cache.txt", "Béton/Armé/note.doc",
                          "Béton/.svn/x.txt", ".git/a/b.txt", "Bois/Massif/Chêne.TXT"})
        ecrire(d.filePath(QString::fromUtf8(p)), "\"\"\r\n");
    const auto arbre = ScannerComposants(d.path());
    ASSERT_EQ(arbre.size(), 2);
    QMap<QString, QStringList> composants;
    for (const auto &categorie : arbre) {
        ASSERT_EQ(categorie.varietes.size(), 1) << categorie.nom.toStdString();
        composants[categorie.nom + QLatin1Char('/') + categorie.varietes[0].nom]
            = categorie.varietes[0].composants;
    }
    EXPECT_EQ(composants.value(QStringLiteral("Béton/Armé")), QStringList {QStringLiteral("B1")});
    EXPECT_EQ(composants.value(QStringLiteral("Bois/Massif")),
              QStringList {QStringLiteral("Chêne")});
    EXPECT_TRUE(ScannerComposants(d.filePath("absent")).isEmpty());
}

TEST(Composants, DeliveredLibraryHoldsEnoughReadableMaterials)
{
    const QString dossier = QFileInfo(QStringLiteral(__FILE__))
                                .absoluteDir()
                                .filePath(QStringLiteral("../../../data/Composants"));
    int nombre = 0;
    for (const auto &categorie : ScannerComposants(dossier))
        for (const auto &variete : categorie.varietes)
            for (const QString &nom : variete.composants) {
                const auto c
                    = LireComposant(CheminComposant(dossier, categorie.nom, variete.nom, nom));
                ASSERT_TRUE(c) << nom.toStdString();
                if (EstLameAir(nom))
                    continue;
                ++nombre;
                EXPECT_GT(ValNombre(c->conductivite), 0) << nom.toStdString();
                EXPECT_GT(MasseVolumiqueComposant(c->masseVolumique), 0) << nom.toStdString();
                EXPECT_GT(ValNombre(c->capacite), 0) << nom.toStdString();
                EXPECT_FALSE(c->references.isEmpty()) << nom.toStdString();
            }
    EXPECT_GE(nombre, 80);
}

TEST(Calculateurs, SurfaceResistanceStartValuesByLabel)
{
    struct Cas
    {
        const char *libelle;
        bool exterieure;
        const char *tm, *hc, *r;
    };
    const Cas cas[] = {
        {"Résistance d'entrée mur extérieur", false, "20", "2.5", "0.131"},
        {"Résistance d'entrée plancher sur sous-sol", false, "20", "0.7", "0.170"},
        {"Résistance d'entrée plafond sous comble", false, "20", "5.0", "0.100"},
        {"Résistance de sortie mur intérieur", false, "20", "2.5", "0.130"},
        {"Résistance de sortie plancher sur sous-sol", false, "10", "0.7", "0.170"},
        {"Résistance de sortie plancher sur extérieur", true, "0", "0.7", "0.040"},
        {"Résistance de sortie mur extérieur", true, "0", "20.0", "0.040"},
    };
    for (const Cas &c : cas) {
        const auto f = ValeursDepartResistance(QString::fromUtf8(c.libelle));
        EXPECT_EQ(f.exterieure, c.exterieure) << c.libelle;
        EXPECT_EQ(f.titre.endsWith(QStringLiteral("extérieure :")), c.exterieure) << c.libelle;
        EXPECT_EQ(f.temperatureMoyenne, QString::fromUtf8(c.tm)) << c.libelle;
        EXPECT_EQ(f.hc, QString::fromUtf8(c.hc)) << c.libelle;
        EXPECT_EQ(f.resistance, QString::fromUtf8(c.r)) << c.libelle;
    }
}

TEST(Calculateurs, SurfaceResistanceCalculationAndValidation)
{
    auto interieure = ValeursDepartResistance(QStringLiteral("Résistance d'entrée mur extérieur"));
    interieure.hc = QStringLiteral("3");
    CalculerResistanceSuperficielle(interieure);
    EXPECT_EQ(interieure.hr0, QStringLiteral("5.71"));
    EXPECT_EQ(interieure.hr, QStringLiteral("5.14"));
    EXPECT_EQ(interieure.hc, QStringLiteral("3")); // typed hc kept
    EXPECT_EQ(interieure.resistance, QStringLiteral("0.123"));

    auto exterieure = ValeursDepartResistance(QStringLiteral("Résistance de sortie mur extérieur"));
    exterieure.hc = QStringLiteral("99");
    CalculerResistanceSuperficielle(exterieure);
    EXPECT_EQ(exterieure.hr0, QStringLiteral("4.62"));
    EXPECT_EQ(exterieure.hc, QStringLiteral("20.0")); // rewritten from v = 4
    EXPECT_EQ(exterieure.resistance, QStringLiteral("0.041"));

    auto vide = interieure;
    vide.emissivite.clear();
    vide.hc.clear();
    CalculerResistanceSuperficielle(vide);
    EXPECT_TRUE(vide.resistance.isEmpty());

    Editeur e;
    ASSERT_TRUE(EcrireBloc(e.ctx, 3, QStringLiteral("Mur Ext.")));
    ValiderResistanceSuperficielle(e.ctx, 3, exterieure);
    EXPECT_EQ(e.grille.text(3, C::ResistanceSuperficielle), QStringLiteral("0.041"));
    EXPECT_EQ(e.grille.text(3, C::Resistance), QStringLiteral("0.041"));
    EXPECT_EQ(e.grille.text(8, C::Resistance), QStringLiteral("0.171"));
}

TEST(Calculateurs, AirLayerFieldsAndRows)
{
    FormulaireLameAir f;
    f.resistances = {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
    for (const char *x : {"0", "0.301", ""}) {
        f.epaisseur = QString::fromUtf8(x);
        CalculerLameAir(f);
        EXPECT_EQ(f.resistances[0], QStringLiteral("a")) << x; // out of range: kept
    }
    f.epaisseur = QStringLiteral("0.02");
    CalculerLameAir(f);
    EXPECT_EQ(f.resistances, (std::array<QString, 3> {"0.16", "0.18", "0.18"}));
    f.option = 1;
    CalculerLameAir(f);
    EXPECT_EQ(f.resistances, (std::array<QString, 3> {"0.08", "0.09", "0.09"}));

    struct Cas
    {
        const char *type;
        int option;
        const char *libelle, *lambda, *r;
    };
    const Cas cas[] = {
        {"Mur Ext.", 0, "Lame d'air verticale non ventilée, flux horizontal", "0.111", "0.180"},
        {"Plan. sur VS.", 1, "Lame d'air horizontale faiblement ventilée, flux vers le bas",
         "0.222", "0.090"},
        {"Plaf. sous Comble.", 0, "Lame d'air horizontale non ventilée, flux vers le haut", "0.125",
         "0.160"},
        {"Plaf. sous  Terr.", 2, "Lame d'air horizontale fortement ventilée, flux vers le haut", "",
         ""},
    };
    for (const Cas &c : cas) {
        Editeur e;
        ASSERT_TRUE(EcrireBloc(e.ctx, 3, QString::fromUtf8(c.type)));
        FormulaireLameAir l;
        l.option = c.option;
        l.epaisseur = QStringLiteral("0.02");
        CalculerLameAir(l);
        ValiderLameAir(e.ctx, 4, l);
        EXPECT_EQ(e.grille.text(4, C::Libelle), QString::fromUtf8(c.libelle));
        EXPECT_EQ(e.grille.text(4, C::Epaisseur), QStringLiteral("0.020"));
        EXPECT_EQ(e.grille.text(4, C::Conductivite), QString::fromUtf8(c.lambda)) << c.type;
        EXPECT_EQ(e.grille.text(4, C::Resistance), QString::fromUtf8(c.r)) << c.type;
        EXPECT_TRUE(e.ui.messages.isEmpty());
    }
}

TEST(Bibliotheque, GridDumpRoundTrip)
{
    Editeur e;
    EcrireBloc(e.ctx, 3, QStringLiteral("Mur Ext."));
    e.grille.setText(3, C::Nom, QStringLiteral("Mur Ext. \"nord\" $$$ 1\r\n2"));
    e.grille.setText(4, C::Libelle, QStringLiteral("tab\there"));
    e.grille.setRowHeight(5, 480);
    QTemporaryDir d;
    const QString chemin = d.filePath(QStringLiteral("Bibliothèque Parois.txt"));
    ASSERT_TRUE(EcrireBibliotheque(chemin, e.grille));
    const auto lue = LireBibliotheque(chemin);
    ASSERT_TRUE(lue);
    EXPECT_EQ(lue->rows(), e.grille.rows());
    EXPECT_EQ(lue->fixedRows, 3);
    EXPECT_EQ(lue->colWidth(6), 6500);
    EXPECT_EQ(lue->rowHeight(5), 480);
    // A literal "$$$" comes back as a double quote, as any "$$$" does.
    EXPECT_EQ(lue->text(3, C::Nom), QStringLiteral("Mur Ext. \"nord\" \" 1\r\n2"));
    EXPECT_EQ(lue->text(4, C::Libelle), QStringLiteral("tab here"));
    EXPECT_EQ(lue->text(8, C::UJour), QStringLiteral("5.88"));

    // A damaged file keeps the rows read; a file with no grid gives nothing.
    QFile f(chemin);
    ASSERT_TRUE(f.open(QIODevice::ReadWrite));
    const QByteArray tout = f.readAll();
    f.resize(tout.size() / 3);
    f.close();
    const auto partielle = LireBibliotheque(chemin);
    ASSERT_TRUE(partielle);
    EXPECT_EQ(partielle->text(3, C::Cle), QStringLiteral("0001"));
    ecrire(chemin, "\"pas une grille\"\r\n");
    EXPECT_FALSE(LireBibliotheque(chemin));
    ecrire(chemin, "999999999,14,3,0\r\n");
    EXPECT_FALSE(LireBibliotheque(chemin));
}

TEST(Bibliotheque, SelectionAndTransferToTheStudy)
{
    QTemporaryDir d;
    Study etude;
    ScriptedUserInterface ui;
    Classeur classeur(etude, ui, DossierApplication(d.path()));
    classeur.installerFeuille(1, std::make_unique<FeuilleCoefU>());
    classeur.ChargementInitial();

    BibliothequeParois b(ui, gris, CouleurSystemeFenetre);
    for (auto [ligne, type] : {std::pair {3, 0}, {10, 1}, {17, 11}}) {
        b.clic(ligne, C::Nom);
        b.choixListe(type);
    }
    ASSERT_EQ(b.grille().text(17, C::Nom), QStringLiteral("Plaf. sous Comble."));
    // Shift + right click on a name selects it; again clears it; elsewhere does nothing.
    for (int ligne : {3, 17, 10, 10, 4})
        EXPECT_TRUE(b.clicDroit(ligne, C::Nom, true).isEmpty());
    EXPECT_TRUE(b.selectionnee(3));
    EXPECT_FALSE(b.selectionnee(10));
    EXPECT_TRUE(b.selectionnee(17));
    EXPECT_FALSE(b.selectionnee(4));
    // Right click without Shift opens the tools of the cell.
    EXPECT_EQ(b.clicDroit(4, C::Libelle, false), QStringLiteral("frm_Composants"));
    EXPECT_EQ(b.clicDroit(7, C::ResistanceSuperficielle, false),
              QStringLiteral("Frm_RésistanceSuperficielle"));

    etude.compteurParois = 7;
    EXPECT_EQ(b.transferer(classeur), 2);
    Grid &f = etude.flexGrid[1];
    EXPECT_EQ(f.text(3, C::Cle), QStringLiteral("0001")); // an empty sheet starts again
    EXPECT_EQ(f.text(3, C::Nom), QStringLiteral("Mur Ext."));
    EXPECT_EQ(f.text(9, C::Cle), QStringLiteral("0002"));
    EXPECT_EQ(f.text(9, C::Nom), QStringLiteral("Plaf. sous Comble."));
    EXPECT_EQ(f.text(14, C::UJour), QStringLiteral("5.00"));
    EXPECT_EQ(f.attributs(3, C::Nom).couleurFond, classeur.etat().CouleurSaisie);
    EXPECT_EQ(etude.compteurParois, 2);

    // Walls already in the sheet keep their keys; the new ones follow below.
    EXPECT_EQ(b.transferer(classeur), 2);
    EXPECT_EQ(f.text(16, C::Cle), QStringLiteral("0003"));
    EXPECT_EQ(f.text(3, C::Cle), QStringLiteral("0001"));

    ui.reponses.enqueue(ReponseNon);
    EXPECT_FALSE(b.effacer());
    EXPECT_EQ(ui.dernierMessage(),
              QStringLiteral("Attention ! Effacement total de la bibliothèque de parois."));
    ui.reponses.enqueue(ReponseOui);
    EXPECT_TRUE(b.effacer());
    EXPECT_TRUE(b.grille().text(3, C::Nom).isEmpty());
}
