#include "heatloss/ubat.h"
#include "scripteduserinterface.h"
#include "workbook/classeur.h"
#include "workbook/nombres.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

using namespace thermique;

TEST(Ubat, FlowCellsTakeBothForms)
{
    struct Cas
    {
        QString cellule;
        double maxi, mini;
    };
    const Cas cas[] = {
        {"Maxi : 120 ; Mini : 45", 120, 45},
        {"95", 95, 95},
        {"1\u00A0250", 1250, 1250},
        {"", 0, 0},
        {"Maxi : 80", 80, 80},
    };
    for (const Cas &c : cas) {
        const DebitsVentilation d = LireDebits(c.cellule);
        EXPECT_DOUBLE_EQ(d.maxi, c.maxi) << qPrintable(c.cellule);
        EXPECT_DOUBLE_EQ(d.mini, c.mini) << qPrintable(c.cellule);
    }
}

namespace {

struct Piece
{
    QString air;
    double surfaceMur;
    bool fenetreEtPont;
    QString surface, volume, pertes, qi, recuperation;
};

// A heat-loss sheet written as the room tables leave it.
void ecrirePieces(Grid &g, const QVector<Piece> &pieces)
{
    int r = 3;
    for (const Piece &p : pieces) {
        g.setText(r, 0, QStringLiteral("TableauLigne1"));
        g.setText(r, 17, p.air);
        g.setText(++r, 0, QStringLiteral("TableauLigne2"));
        auto ligne = [&](const QString &code, const QString &nom, const QStringList &valeurs) {
            g.setText(++r, 0, code);
            g.setText(r, 6, nom);
            for (int i = 0; i < valeurs.size(); ++i)
                g.setText(r, 7 + i, valeurs[i]);
        };
        // inclination, azimuth, code, m, F, U day, U night, Ul, surface, ΔT, b
        ligne(QStringLiteral("TableauLigneCalculParoi"), QStringLiteral("Mur nord"),
              {"90", "90", "A1", "", "0.05", "0.36", "0.36", "",
               Format(p.surfaceMur, QStringLiteral("#,##0.00")), "25", "1.00"});
        if (p.fenetreEtPont) {
            ligne(QStringLiteral("TableauLigneCalculParoi"), QStringLiteral("FE. 1"),
                  {"90", "90", "A6", "2", "0.45", "2.00", "1.60", "", "3.00", "25", "1.00"});
            ligne(QStringLiteral("TableauLigneCalculPontThermique"), QStringLiteral("Plancher"),
                  {"", "", "L9", "", "", "", "", "0.50", "10.00", "25", "1.00"});
        }
        g.setText(++r, 0, QStringLiteral("TableauLigneRésultats"));
        g.setText(r, 2, p.surface);
        g.setText(r, 8, p.volume);
        g.setText(r, 13, p.qi);
        g.setText(r, 14, p.recuperation);
        g.setText(r, 18, p.pertes);
        g.setText(++r, 0, QStringLiteral("TableauInterTableau"));
        ++r;
    }
}

class UbatTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        classeur = std::make_unique<Classeur>(etude, ui, DossierApplication(dossier.path()));
        Grid &v = etude.flexGrid[3];
        v.setText(22, 12, QStringLiteral("Maxi : 120 ; Mini : 60"));
        v.setText(20, 12, QStringLiteral("Maxi : 90 ; Mini : 40"));
        v.setText(4, 12, QStringLiteral("15"));
        v.setText(6, 12, QStringLiteral("25"));
        etude.flexGrid[4] = Grid(40, 38);
    }
    // Finds the row whose column 5 starts with `libelle`.
    int ligne(const QString &libelle) const
    {
        const Grid &g = etude.flexGrid[5];
        for (int r = 0; r < g.rows(); ++r)
            if (g.text(r, 5).startsWith(libelle))
                return r;
        return -1;
    }

    QTemporaryDir dossier;
    Study etude;
    ScriptedUserInterface ui;
    std::unique_ptr<Classeur> classeur;
};

} // namespace

TEST_F(UbatTest, TwoRoomsGiveTheHandCheckedFigures)
{
    etude.flexGrid[0].setText(12, 13, QStringLiteral("Maison individuelle."));
    // The second room sits at exactly 12 °C: not heated in the sums.
    ecrirePieces(etude.flexGrid[4],
                 {{"19", 20, true, "25", "62.50", "800", "30", "Récup. 0"},
                  {"12", 15, false, "10", "25.00", "300", "30", "Récup. 50"}});
    EXPECT_DOUBLE_EQ(FacteurRecuperation(etude.flexGrid[4]), 0.75);

    const BilanUbat b = FeuilleCalculUbat(*classeur);
    const Grid &g = etude.flexGrid[5];
    // The wall of both rooms is one line: 20 + 15 m².
    ASSERT_EQ(b.lignes, 3);
    EXPECT_EQ(g.text(3, 5), QStringLiteral("Calcul du coefficient Ubat : "));
    EXPECT_EQ(g.text(4, 8), QStringLiteral("A1"));
    EXPECT_EQ(g.text(4, 14), QStringLiteral("35.00"));
    EXPECT_EQ(g.text(4, 17), QStringLiteral("12.60"));
    EXPECT_EQ(g.text(4, 19), QStringLiteral("38.00")); // the window of the same façade
    EXPECT_EQ(g.text(5, 8), QStringLiteral("A6"));
    EXPECT_EQ(g.text(5, 18), QStringLiteral("4.80"));
    EXPECT_EQ(g.text(6, 8), QStringLiteral("L9"));
    EXPECT_TRUE(g.text(6, 14).isEmpty());
    EXPECT_EQ(g.text(6, 15), QStringLiteral("10.00"));
    EXPECT_EQ(g.text(6, 17), QStringLiteral("5.00"));
    // Totals, then Ubat = ((23.6 + 22.4) / 2) / 38.
    EXPECT_EQ(g.text(7, 14), QStringLiteral("38.00"));
    EXPECT_EQ(g.text(7, 17), QStringLiteral("23.60"));
    EXPECT_EQ(g.text(8, 5), QStringLiteral("Ubat = ((23.60 + 22.40) / 2) / 38.00"));
    EXPECT_EQ(g.text(9, 5), QStringLiteral("= 0.605 W/(m².K)"));
    EXPECT_NEAR(b.ubat, 23.0 / 38, 1e-12);

    EXPECT_DOUBLE_EQ(b.surfaceTotale, 35);
    EXPECT_DOUBLE_EQ(b.surfaceChauffee, 25);
    EXPECT_DOUBLE_EQ(b.volumeChauffe, 62.5);
    // G: (120 + 90 × 0.75) × 0.34 = 63.75 W/K of ventilation, (23.6 + 63.75) / 62.5.
    const int g0 = ligne(QStringLiteral("Calcul de G"));
    ASSERT_GT(g0, 0);
    EXPECT_EQ(g.text(g0, 13), QStringLiteral("Ventilation normale"));
    EXPECT_EQ(g.text(g0, 17), QStringLiteral("Ventilation réduite"));
    EXPECT_EQ(g.text(g0 + 4, 13), QStringLiteral("63.75"));
    // Reduced: (60 + 25 × 0.75) × 0.34.
    EXPECT_EQ(g.text(g0 + 4, 17), QStringLiteral("26.78"));
    EXPECT_EQ(g.text(g0 + 8, 13), QStringLiteral("1.398"));
    EXPECT_NEAR(b.g, 87.35 / 62.5, 1e-12);
    // The administrative summary, one figure a line.
    EXPECT_EQ(etude.flexGrid[0].text(14, 13),
              QStringLiteral("\r\n35.00\r\n25.00\r\n87.50\r\n62.50\r\n1\u00A0100\r\n800\r\n0.40"));
}

TEST_F(UbatTest, OtherBuildingsHaveOneColumnPairAndNoRoomNoFormula)
{
    etude.flexGrid[0].setText(12, 13, QStringLiteral("Bureaux."));
    ecrirePieces(etude.flexGrid[4], {{"20", 10, false, "10", "25.00", "100", "0", "Récup. 0"}});
    FeuilleCalculUbat(*classeur);
    const Grid &g = etude.flexGrid[5];
    const int g0 = ligne(QStringLiteral("Calcul de G"));
    ASSERT_GT(g0, 0);
    EXPECT_TRUE(g.text(g0, 13).isEmpty());
    EXPECT_TRUE(g.text(g0 + 4, 17).isEmpty());
    EXPECT_EQ(g.text(g0 + 1, 13), QStringLiteral("Jour"));
    // No extract flow: the recovery factor is 1.
    EXPECT_DOUBLE_EQ(FacteurRecuperation(etude.flexGrid[4]), 1.0);

    etude.flexGrid[4] = Grid(40, 38);
    const BilanUbat vide = FeuilleCalculUbat(*classeur);
    EXPECT_EQ(vide.lignes, 0);
    EXPECT_DOUBLE_EQ(vide.ubat, 0);
    EXPECT_EQ(ligne(QStringLiteral("Ubat = ")), -1);
    EXPECT_EQ(etude.flexGrid[5].text(4, 14), QStringLiteral("0.00"));
}
