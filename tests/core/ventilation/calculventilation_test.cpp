#include "ventilation/calculventilation.h"

#include "workbook/grid.h"

#include <gtest/gtest.h>

using namespace thermique;

TEST(CalculVentilation, ExposureClassFollowsTheTable)
{
    struct Cas
    {
        const char *hauteur, *region;
        bool abrite;
        char site;
        int classe;
    };
    const Cas cas[] = {
        {"< 6 m", "V", false, 'a', 1},
        {"< 6 m", "V", false, 'd', 2},
        {"6 à 18 m", "V", false, 'c', 2},
        {"6 à 18 m", "V", false, 'd', 3},
        {"18 à 28 m", "V", false, 'd', 4},
        {"28 à 50 m", "V", false, 'c', 3},
        {"50 à 100 m", "V", false, 'a', 3},
        {"18 à 28 m", "V", true, 'b', 1},
        {"6 à 18 m", "W", false, 'c', 3},
        {"< 6 m", "W", false, 'a', 2},
        {"50 à 100 m", "W", false, 'b', 4},
        // Combinations the table leaves undefined.
        {"28 à 50 m", "V", true, 'a', 0},
        {"50 à 100 m", "V", true, 'b', 0},
        {"< 6 m", "V", true, 'c', 0},
        {"< 6 m", "W", true, 'a', 0},
        {"< 6 m", "X", false, 'a', 0},
        {"7 m", "V", false, 'a', 0},
        {"< 6 m", "V", false, 'e', 0},
        {"< 6 m", "V", false, ' ', 0},
    };
    for (const Cas &c : cas)
        EXPECT_EQ(ClasseExposition(QString::fromUtf8(c.hauteur), QString::fromLatin1(c.region),
                                   c.abrite, QChar(c.site)),
                  c.classe)
            << c.hauteur << " " << c.region << " " << c.abrite << " " << c.site;
}

TEST(CalculVentilation, WindCoefficientsByClassAndFacades)
{
    struct Cas
    {
        int classe;
        bool uneFacade;
        const char *a, *e, *d;
    };
    const Cas cas[] = {
        {1, true, "1", "0.15", "1.55"}, {1, false, "2", "0.50", "1.15"},
        {2, true, "1", "0.25", "1.55"}, {2, false, "2", "0.85", "1.15"},
        {3, true, "1", "0.35", "1.55"}, {3, false, "2", "1.10", "1.15"},
        {4, true, "1", "0.40", "1.55"}, {4, false, "2", "1.35", "1.15"},
        {0, false, "", "", ""},         {5, true, "", "", ""},
    };
    for (const Cas &c : cas) {
        const CoefficientsVent v = CoefficientsExposition(c.classe, c.uneFacade);
        EXPECT_EQ(v.a, QString::fromLatin1(c.a)) << c.classe;
        EXPECT_EQ(v.e, QString::fromLatin1(c.e)) << c.classe;
        EXPECT_EQ(v.d, QString::fromLatin1(c.d)) << c.classe;
    }
}

TEST(CalculVentilation, ExtraFlowFormulaAndGuards)
{
    // 1.10 / (1 + (1.15/1.10) (7.9167/50)^2) x 50, worked by hand.
    EXPECT_NEAR(DebitSupplementaire(1.10, 1.15, 7.916667, 50), 53.5953, 1e-3);
    // No mechanical excess: the whole e P.
    EXPECT_NEAR(DebitSupplementaire(0.50, 1.15, 0, 20), 10.0, 1e-12);
    EXPECT_EQ(DebitSupplementaire(1.10, 1.15, 10, 0), 0);
    EXPECT_EQ(DebitSupplementaire(1.10, 1.15, 10, -3), 0);
    EXPECT_EQ(DebitSupplementaire(0, 1.15, 10, 50), 0);
}

TEST(CalculVentilation, LeakageReadFromTheHeatLossRows)
{
    Grid pertes(12, 38);
    auto ligne
        = [&](int r, const char *code, std::initializer_list<std::pair<int, const char *>> v) {
              pertes.setText(r, 0, QString::fromUtf8(code));
              for (const auto &[c, t] : v)
                  pertes.setText(r, c, QString::fromUtf8(t));
          };
    ligne(1, "TableauLigne1", {{10, "9"}, {15, "9"}});
    ligne(3, "TableauLigneCalculParoi", {{9, "A1"}, {10, "0.50"}, {15, "1\u00a0000.00"}});
    // A window: m x opening surface x number, its area ignored.
    ligne(4, "TableauLigneCalculParoi",
          {{9, "A6"}, {10, "2.00"}, {15, "40.00"}, {21, "2"}, {37, "1.50"}});
    ligne(5, "TableauLigneCalculParoi", {{9, "A7"}, {10, "3"}, {37, "2"}});
    ligne(6, "TableauLigneCalculPontThermique", {{9, "L1"}, {10, "5"}, {15, "8"}});
    ligne(7, "TableauLigneRenouvellementAir", {{10, "5"}, {15, "120"}});
    ligne(8, "TableauLigneRésultats", {{2, "60.00"}, {11, "4"}, {13, "30"}});
    ligne(10, "TableauLigneRésultats", {{2, "1,200.50"}, {11, "abc"}, {13, " 15"}});
    const PermeabiliteLocaux p = LirePermeabilite(pertes);
    // 500 + 6 + 0 (no number) + 4.
    EXPECT_DOUBLE_EQ(p.permeabilite, 510.0);
    EXPECT_DOUBLE_EQ(p.surface, 1260.5);
    EXPECT_DOUBLE_EQ(p.qi, 45.0);

    const PermeabiliteLocaux vide = LirePermeabilite(Grid(80, 38));
    EXPECT_EQ(vide.permeabilite, 0);
    EXPECT_EQ(vide.surface, 0);
}

TEST(CalculVentilation, DwellingFlowsCheckedByHand)
{
    struct Cas
    {
        const char *nom, *systeme, *commande;
        double q3, q4, q5, q6, p;
        const char *commandeFinale;
        double cd, qv, qs, q;
    };
    // e 1.10, d 1.15 (class Ex3, several facades), Qi 30.
    const Cas cas[] = {
        {"automatic", "Simple flux autoréglable.", "Automatique.", 105, 35, 0, 0, 50,
         "Automatique.", 1.0 / 24, 37.916667, 53.595322, 134.388246},
        {"manual", "Simple flux autoréglable.", "Manuelle.", 105, 35, 0, 0, 50, "Manuelle.",
         1.0 / 12, 40.833333, 52.426974, 135.201887},
        {"nothing becomes manual", "Simple flux hygroréglable A.", "Néant.", 105, 35, 0, 0, 50,
         "Manuelle.", 1.0 / 12, 40.833333, 52.426974, 135.201887},
        {"equal flows", "Simple flux autoréglable.", "Automatique.", 90, 90, 0, 0, 50, "Néant.", 1,
         90, 21.952104, 129.513788},
        {"no leakage", "Simple flux autoréglable.", "Automatique.", 105, 35, 0, 0, 0,
         "Automatique.", 1.0 / 24, 37.916667, 0, 37.916667},
        {"no flow", "Simple flux autoréglable.", "Automatique.", 0, 0, 0, 0, 50, "Néant.", 1, 0, 0,
         0},
        {"supply above extract", "Double flux, sans régulation du taux de transfert.",
         "Automatique.", 100, 50, 120, 40, 0, "Automatique.", 1.0 / 24, 52.916667, 0, 52.916667},
        {"natural", "Naturel.", "Automatique.", 90, 90, 0, 0, 0, "Néant.", 1, 90, 0, 198},
    };
    for (const Cas &c : cas) {
        EntreesDebits x;
        x.systeme = QString::fromUtf8(c.systeme);
        x.commande = QString::fromUtf8(c.commande);
        x.extraitMaxi = c.q3;
        x.extraitMini = c.q4;
        x.soufleMaxi = c.q5;
        x.soufleMini = c.q6;
        x.e = 1.10;
        x.d = 1.15;
        x.permeabilite = c.p;
        x.qi = 30;
        const ResultatsDebits r = CalculerDebits(x);
        EXPECT_EQ(r.commande, QString::fromUtf8(c.commandeFinale)) << c.nom;
        EXPECT_NEAR(r.cd, c.cd, 1e-12) << c.nom;
        EXPECT_NEAR(r.qvMaxi, c.qv, 1e-5) << c.nom;
        EXPECT_NEAR(r.qsMaxi, c.qs, 1e-5) << c.nom;
        EXPECT_NEAR(r.debitMaxi, c.q, 1e-5) << c.nom;
    }
}

TEST(CalculVentilation, OfficeFlowsCheckedByHand)
{
    EntreesDebits x;
    x.logement = false;
    x.systeme = QStringLiteral("Double flux, régulation automatique du taux de transfert.");
    x.commande = QStringLiteral("Manuelle.");
    x.extraitMaxi = 900;
    x.extraitMini = 300;
    x.soufleMaxi = 800;
    x.soufleMini = 250;
    x.e = 0.15;
    x.d = 1.55;
    x.permeabilite = 74;
    ResultatsDebits r = CalculerDebits(x);
    EXPECT_EQ(r.commande, QStringLiteral("Automatique."));
    EXPECT_DOUBLE_EQ(r.qvMaxi, 900);
    EXPECT_DOUBLE_EQ(r.qvMini, 300);
    // 0.15 / (1 + (1.55/0.15)(100/74)^2) x 74 and the same with 50.
    EXPECT_NEAR(r.qsMaxi, 0.558625, 1e-6);
    EXPECT_NEAR(r.qsMini, 1.941389, 1e-6);
    EXPECT_NEAR(r.debitMaxi, 901.005525, 1e-6);
    EXPECT_NEAR(r.debitMini, 303.494500, 1e-6);

    // Too little leakage: nothing counts, the flows included.
    x.permeabilite = 0.5;
    r = CalculerDebits(x);
    EXPECT_EQ(r.qvMaxi, 0);
    EXPECT_EQ(r.qvMini, 0);
    EXPECT_EQ(r.debitMaxi, 0);
    EXPECT_EQ(r.debitMini, 0);

    // Equal flows: no command; a zero minimum keeps the maximum.
    x.permeabilite = 74;
    x.extraitMini = 900;
    x.soufleMini = 0;
    x.extraitMaxi = 900;
    x.soufleMaxi = 0;
    r = CalculerDebits(x);
    EXPECT_EQ(r.commande, QStringLiteral("Néant."));
    x.extraitMini = 0;
    r = CalculerDebits(x);
    EXPECT_EQ(r.commande, QStringLiteral("Automatique."));
    EXPECT_DOUBLE_EQ(r.qvMaxi, 900);
    EXPECT_EQ(r.qvMini, 0);
    EXPECT_EQ(r.debitMini, 0);
}

TEST(CalculVentilation, MultipliersByTheFirstWordsOfTheSystem)
{
    struct Cas
    {
        const char *systeme;
        double a, b;
    };
    const Cas cas[] = {
        {"Simple flux hygroréglable B.", 1.8, 1},
        {"Double flux, sans régulation du taux de transfert.", 1.8, 1},
        {"Naturel.", 1.8, 2.2},
        {"Sélection du système de ventilation.", 0, 0},
        {"", 0, 0},
    };
    for (const Cas &c : cas) {
        double a = -1, b = -1;
        CoefficientsMajorateurs(QString::fromUtf8(c.systeme), a, b);
        EXPECT_EQ(a, c.a) << c.systeme;
        EXPECT_EQ(b, c.b) << c.systeme;
    }
}
