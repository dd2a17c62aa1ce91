#include "envelope/windows/calculfenetre.h"
#include "envelope/windows/cataloguesfenetres.h"
#include "workbook/grid.h"
#include "workbook/nombres.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

using namespace thermique;

TEST(FenetreDimensions, SurfacesAndJointLengths)
{
    struct Cas
    {
        const char *nom;
        DimensionsFenetre d;
        double hv, lv, si, sv, sa, sc, sf, lg, li, la;
    };
    // One leaf 1.00 x 1.25, frame 0.10: lv = L − 2w.
    DimensionsFenetre un;
    un.largeur = 1.00;
    un.hauteur = 1.25;
    un.profil = 0.10;
    // Two leaves 1.40 x 2.35 with a roller box, a transom, a lower panel split per leaf
    // and a sill: k = 3, mullion 0.08·1.5.
    DimensionsFenetre deux;
    deux.vantaux = 2;
    deux.largeur = 1.40;
    deux.hauteur = 2.35;
    deux.coffre = 0.20;
    deux.allege = 0.40;
    deux.imposte = 0.30;
    deux.profil = 0.08;
    deux.seuil = 0.02;
    deux.allegeDivisee = true;
    DimensionsFenetre entiere = deux;
    entiere.allegeDivisee = false;
    const Cas cas[] = {
        {"un vantail", un, 1.15, 0.80, 0, 0.92, 0, 0, 0.33, 3.90, 0, 0},
        {"deux vantaux", deux, 1.19, 1.12, 0.372, 1.3328, 0.448, 0.28, 0.8572, 7.00, 3.08, 4.64},
        {"allège d'un seul tenant", entiere, 1.19, 1.12, 0.372, 1.3328, 0.448, 0.28, 0.8572, 7.00,
         3.08, 3.04},
    };
    for (const Cas &c : cas) {
        SCOPED_TRACE(c.nom);
        const SurfacesFenetre s = SurfacesDepuisDimensions(c.d);
        EXPECT_NEAR(s.hv, c.hv, 1e-9);
        EXPECT_NEAR(s.lv, c.lv, 1e-9);
        EXPECT_NEAR(s.si, c.si, 1e-9);
        EXPECT_NEAR(s.sv, c.sv, 1e-9);
        EXPECT_NEAR(s.sa, c.sa, 1e-9);
        EXPECT_NEAR(s.sc, c.sc, 1e-9);
        EXPECT_NEAR(s.sf, c.sf, 1e-9);
        EXPECT_NEAR(s.longueurVitrage, c.lg, 1e-9);
        EXPECT_NEAR(s.longueurImposte, c.li, 1e-9);
        EXPECT_NEAR(s.longueurAllege, c.la, 1e-9);
    }
    // The opening surface proposes the leaves, plus the panels marked as opening.
    deux.imposteOuvrante = true;
    EXPECT_NEAR(SurfacesDepuisDimensions(deux).surfaceOuvrant, 1.3328 + 0.372, 1e-9);
    EXPECT_EQ(NomFenetre(deux, true), QStringLiteral("PF. 1.40 x 2.15 Volet et coffre VR"));
    EXPECT_EQ(NomFenetre(un, false), QStringLiteral("FE. 1.00 x 1.25 Volet"));
    // Colours: the four groups of α.
    const char *attendus[] = {"0.40", "0.40", "0.40", "0.40", "0.60", "0.60", "0.60",
                              "0.80", "0.80", "0.80", "1.00", "1.00", "1.00"};
    ASSERT_EQ(CouleursMenuiserie().size(), 13);
    for (int i = 0; i < 13; ++i)
        EXPECT_EQ(AbsorptionCouleur(i), QString::fromUtf8(attendus[i])) << i;
    EXPECT_EQ(AbsorptionCouleur(13), QString());
}

namespace {

// The one-leaf window above with PVC frame and low-e double glazing.
ValeursFenetre fenetre()
{
    ValeursFenetre v;
    v.uf = 1.8;
    v.af = 0.33;
    v.ug = 1.1;
    v.sv = 0.92;
    v.psiG = 0.06;
    v.lg = 3.90;
    v.facteurSolaire = 0.62;
    v.alpha = 0.40;
    v.tl = 0.78;
    return v;
}

} // namespace

TEST(CalculFenetre, CoefficientsByHand)
{
    // σ = 0.92/1.25; Uw = (1.8·0.33 + 1.1·0.92 + 0.06·3.9)/1.25 = 1.84/1.25.
    const ResultatFenetre nu = CalculerFenetre(fenetre());
    ASSERT_FALSE(nu.faux);
    EXPECT_NEAR(nu.sigma, 0.736, 1e-12);
    EXPECT_NEAR(nu.uw, 1.472, 1e-12);
    EXPECT_NEAR(nu.uwf, nu.uw, 1e-12); // no shutter, no box
    EXPECT_NEAR(nu.ujn, 1.47, 1e-12);
    // Sw1 = 0.62·0.736 + (1.8·0.40/25)·0.264.
    EXPECT_NEAR(nu.sw1, 0.4639232, 1e-9);
    ASSERT_TRUE(nu.tl);
    EXPECT_NEAR(*nu.tl, 0.57408, 1e-12);

    // A shutter: Uwf = 1/(1/1.472 + 0.15); Ujn from the two cells (1.47 + 1.21)/2.
    ValeursFenetre v = fenetre();
    v.r = 0.15;
    const ResultatFenetre volet = CalculerFenetre(v);
    EXPECT_NEAR(volet.uw, 1.472, 1e-12);
    EXPECT_NEAR(volet.uwf, 1 / (1 / 1.472 + 0.15), 1e-12);
    EXPECT_NEAR(volet.ujn, 1.34, 1e-12);

    // A roller box of 0.28 m² at Uc 0.8 weighs on both, and σ counts it.
    v.uc = 0.8;
    v.ac = 0.28;
    const ResultatFenetre coffre = CalculerFenetre(v);
    EXPECT_NEAR(coffre.sigma, 0.92 / 1.53, 1e-12);
    EXPECT_NEAR(coffre.uw, (1.25 * 1.472 + 0.224) / 1.53, 1e-12);
    EXPECT_NEAR(coffre.uwf, (1.25 / (1 / 1.472 + 0.15) + 0.224) / 1.53, 1e-12);
    // A box with no coefficient changes nothing but σ.
    v.uc = 0;
    EXPECT_NEAR(CalculerFenetre(v).uw, 1.472, 1e-12);

    // No glass TL: no TL.
    v = fenetre();
    v.tl = 0;
    EXPECT_FALSE(CalculerFenetre(v).tl);
}

TEST(CalculFenetre, GlazedPanelsCountTwiceAndZeroCoefficients)
{
    ValeursFenetre v;
    v.ug = 1.1;
    v.sv = 1.0;
    v.upImposte = 2.0;
    v.si = 0.2;
    // Glazed transom: Ag = 1.2 and Si again: (1.1·1.2 + 2·0.2)/(1.2 + 0.2).
    EXPECT_NEAR(CalculerFenetre(v).uw, (1.32 + 0.4) / 1.4, 1e-12);
    v.imposteVitree = false;
    EXPECT_NEAR(CalculerFenetre(v).uw, (1.1 + 0.4) / 1.2, 1e-12);

    struct Cas
    {
        const char *nom;
        void (*modifier)(ValeursFenetre &);
        bool faux;
    };
    const Cas cas[] = {
        {"frame without Uf", [](ValeursFenetre &x) { x.uf = 0; }, true},
        {"glass without Ug", [](ValeursFenetre &x) { x.ug = 0; }, true},
        {"edge without psi", [](ValeursFenetre &x) { x.psiG = 0; }, true},
        {"transom without Up", [](ValeursFenetre &x) { x.si = 0.2; }, true},
        {"transom edge without psi", [](ValeursFenetre &x) { x.li = 1.0; }, true},
        {"lower panel without Up", [](ValeursFenetre &x) { x.sa = 0.3; }, true},
        {"lower panel edge without psi", [](ValeursFenetre &x) { x.la = 2.0; }, true},
        {"blank coefficient on a zero surface", [](ValeursFenetre &x) { x.upAllege = 0; }, false},
        {"glazed transom needs Ug too",
         [](ValeursFenetre &x) {
             x.ug = 0;
             x.sv = 0;
             x.si = 0.2;
             x.upImposte = 1.5;
         },
         true},
    };
    for (const Cas &c : cas) {
        ValeursFenetre x = fenetre();
        c.modifier(x);
        EXPECT_EQ(CalculerFenetre(x).faux, c.faux) << c.nom;
    }
    EXPECT_TRUE(CalculerFenetre(ValeursFenetre {}).vide);
}

TEST(CataloguesFenetres, FilesLabelsAndBadInput)
{
    struct Cas
    {
        const char *libelle;
        std::optional<GenreCatalogue> genre;
    };
    const Cas cas[] = {
        {"Coefficient surfacique du vitrage (Ug) :", GenreCatalogue::Vitrages},
        {"Coefficient des profils de menuiserie (Uf) :", GenreCatalogue::Menuiseries},
        {"Coefficient linéique du vitrage (psi-g) :", GenreCatalogue::WarmEdge},
        {"Résistance additionnelle volets (R) :", GenreCatalogue::Volets},
        {"Coefficient surfacique du coffre (Uc) :", GenreCatalogue::CoffreVolets},
        {"Coefficient surfacique de l'imposte (Up) :", std::nullopt},
        {"Surface de vitrage (m²) : ", std::nullopt},
    };
    for (const Cas &c : cas)
        EXPECT_EQ(CatalogueDuLibelle(QString::fromUtf8(c.libelle)), c.genre) << c.libelle;

    QTemporaryDir dossier;
    ASSERT_TRUE(dossier.isValid());
    const QString chemin = dossier.filePath(QStringLiteral("Vitrages.txt"));
    CatalogueMenuiserie cat;
    cat.lignes
        = {{"Double vitrage 4/16/4 argon, faible émissivité", "0.024", "0.63", "1.1", "0.80"},
           {"Simple vitrage 4 mm", "0.004", "0.87", "5.8", "0.90"}};
    ASSERT_TRUE(EcrireCatalogue(chemin, cat));
    EXPECT_EQ(LireCatalogue(chemin, GenreCatalogue::Vitrages), cat);

    // A hand-edited file: a short line, a stray blank line, an unclosed quote.
    QFile f(chemin);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("\"Triple\",\"0.036\",\"0.5\",\"0.6\",\"0.7\"\r\n\r\n\"Court\",\"0.01\"\r\n\"Ouvert,"
            "\"1\r\n");
    f.close();
    const CatalogueMenuiserie lu = LireCatalogue(chemin, GenreCatalogue::Vitrages);
    ASSERT_EQ(lu.lignes.size(), 3);
    EXPECT_EQ(lu.lignes[1], (QStringList {"Court", "0.01", "", "", ""}));
    EXPECT_EQ(lu.lignes[2].size(), 5);
    EXPECT_TRUE(
        LireCatalogue(dossier.filePath(QStringLiteral("absent.txt")), GenreCatalogue::Volets)
            .lignes.isEmpty());

    // The last values of the dimensions form.
    SaisieFenetre s;
    s.textes = {"2", "1.40", "2.35", "0.20", "0.40", "0.30", "0.08", "0.02"};
    s.avecSeuil = true;
    s.couleur = 8;
    const QString fs = dossier.filePath(QStringLiteral("FenêtreSaisieValeurs.txt"));
    ASSERT_TRUE(EcrireSaisieFenetre(fs, s));
    EXPECT_EQ(LireSaisieFenetre(fs), s);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write("\"1\"\r\n\"x\"\r\n");
    f.close();
    const auto court = LireSaisieFenetre(chemin);
    ASSERT_TRUE(court);
    EXPECT_EQ(court->textes[1], QStringLiteral("x"));
    EXPECT_EQ(court->couleur, 0);
}

TEST(DonneesFenetre, HeatLossLineColumns)
{
    Grid pertes(10, 38);
    pertes.setOperation(5, 15, QStringLiteral("1.25*0.80*1"));
    pertes.setText(5, 15, QStringLiteral("1.00"));
    DonneesFenetre d = DonneesDepuisLigne(pertes, 5);
    EXPECT_EQ(d.hauteur, QStringLiteral("1.25"));
    EXPECT_EQ(d.largeur, QStringLiteral("0.80"));
    EXPECT_EQ(d.nombre, QStringLiteral("1"));
    EXPECT_EQ(d.albedo, QStringLiteral("0.20"));
    d.typeMasque = TypesMasques().at(1);
    d.nombre = QStringLiteral("3");
    d.albedo = OptionsAlbedo().at(4);
    d.masque = {"0.10", "0.60", "0", "0", "0", "0", "0", "0", "0"};
    d.volets = true;
    d.surfaceOuvrant = QStringLiteral("2.10");
    EcrireDonneesFenetre(pertes, 5, d);
    EXPECT_EQ(pertes.text(5, 19), QStringLiteral("Avan"));
    EXPECT_EQ(pertes.text(5, 21), QStringLiteral("3"));
    EXPECT_EQ(pertes.text(5, 22), QStringLiteral("0.80"));
    EXPECT_EQ(pertes.text(5, 23), QStringLiteral("1.25"));
    EXPECT_EQ(pertes.text(5, 24), QStringLiteral("0.32"));
    EXPECT_EQ(pertes.text(5, 25), QStringLiteral("0.10"));
    EXPECT_EQ(pertes.text(5, 26), QStringLiteral("0.60"));
    EXPECT_EQ(pertes.text(5, 34), QStringLiteral("1"));
    EXPECT_EQ(pertes.text(5, 37), QStringLiteral("2.10"));
    EXPECT_EQ(pertes.operation(5, 15), QStringLiteral("1.25*0.80*3"));
    EXPECT_EQ(pertes.text(5, 15), QStringLiteral("3.00"));
    // Read back, the form shows what it wrote.
    const DonneesFenetre relu = DonneesDepuisLigne(pertes, 5);
    EXPECT_EQ(relu.typeMasque, TypesMasques().at(1));
    EXPECT_EQ(relu.nombre, QStringLiteral("3"));
    EXPECT_TRUE(relu.volets);
    // A line whose surface is a plain figure keeps it and gets the number.
    pertes.setOperation(6, 15, QString());
    pertes.setText(6, 15, QStringLiteral("1.5"));
    DonneesFenetre e = DonneesDepuisLigne(pertes, 6);
    e.nombre = QStringLiteral("2");
    EcrireDonneesFenetre(pertes, 6, e);
    EXPECT_EQ(pertes.operation(6, 15), QStringLiteral("1.5*1*2"));
    EXPECT_EQ(pertes.text(6, 15), QStringLiteral("3.00"));
}

// The delivered catalogues: every row has a name and a positive value (the edge of single
// glazing alone is 0), glazing rows a solar factor and a light transmission below 1.
TEST(CataloguesFenetres, DeliveredCatalogues)
{
    const QDir donnees(QFileInfo(QStringLiteral(__FILE__))
                           .absoluteDir()
                           .filePath(QStringLiteral("../../../data")));
    const GenreCatalogue genres[]
        = {GenreCatalogue::Vitrages, GenreCatalogue::Menuiseries, GenreCatalogue::WarmEdge,
           GenreCatalogue::Volets, GenreCatalogue::CoffreVolets};
    for (GenreCatalogue g : genres) {
        const CatalogueMenuiserie cat = LireCatalogue(donnees.filePath(FichierCatalogue(g)), g);
        SCOPED_TRACE(FichierCatalogue(g).toStdString());
        EXPECT_GE(cat.lignes.size(), 5);
        const int colonneValeur = g == GenreCatalogue::Vitrages ? 3 : 1;
        for (const QStringList &l : cat.lignes) {
            EXPECT_FALSE(l.value(0).trimmed().isEmpty());
            const double v = Val(l.value(colonneValeur));
            EXPECT_TRUE(v > 0 || l.value(0).startsWith(QStringLiteral("Simple vitrage")))
                << l.value(0).toStdString();
            EXPECT_LT(v, 7);
            if (g == GenreCatalogue::Vitrages) {
                EXPECT_GT(Val(l.value(2)), 0.2);
                EXPECT_LT(Val(l.value(4)), 1);
            }
        }
    }
    const auto saisie
        = LireSaisieFenetre(donnees.filePath(QStringLiteral("FenêtreSaisieValeurs.txt")));
    ASSERT_TRUE(saisie);
    EXPECT_EQ(saisie->textes[1], QStringLiteral("1.20"));
    EXPECT_TRUE(saisie->sansSeuil);
}
