#include "heatloss/calculspertes.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace thermique;

TEST(CalculsPertes, InclinationCorrection)
{
    struct Cas
    {
        double alpha, attendu;
    };
    // 0° counts as 1°: 0.17 − 0.0005 + 6.17284e-07.
    const Cas cas[]
        = {{0, 0.1695006173}, {1, 0.1695006173}, {90, 0.130000}, {180, 0.100000}, {45, 0.1487500}};
    for (const Cas &c : cas)
        EXPECT_NEAR(CorrectionInclinaison(c.alpha), c.attendu, 1e-6) << c.alpha;
    EXPECT_NEAR(CorrectionInclinaison(90), 0.13, 0.001);
}

TEST(CalculsPertes, CorrectedU)
{
    // A wall of U 0.40 with its inner resistance 0.13: the roof pitch of 180° lowers the
    // inner resistance to 0.10: 1/(2.5 − 0.13 + 0.10) = 1/2.47.
    EXPECT_NEAR(*UCorrige(0.40, 0.13, CorrectionInclinaison(180)), 0.404858, 1e-6);
    // A vertical wall keeps its U.
    EXPECT_NEAR(*UCorrige(0.40, 0.13, CorrectionInclinaison(90)), 0.40, 1e-6);
    // No U, or a window so good that 1/U is below the removed resistance: no value.
    EXPECT_FALSE(UCorrige(0, 0.13, 0.13));
    EXPECT_FALSE(UCorrige(-1, 0.13, 0.13));
    EXPECT_FALSE(UCorrige(20, 0.3, 0.1)); // 0.05 − 0.3 + 0.1 < 0
}

TEST(CalculsPertes, AirTemperatureOfARoom)
{
    // Room 4 x 5 x 2.5: A = 20, V = 50, D = 30.
    // D^0.61889482 = 8.2066; Y = (5.2281081·8.2066 + 19.4707)/(8.2066 + 191.95769)
    //   = (42.9050 + 19.4707)/200.1643 = 0.311627; H = 30/0.311627 = 96.269.
    // Lines: A1 U 0.40 S 20, A6 U 2.00 S 3, b 1, θrs 19, θe −5 (ΔT 24).
    //   θsi A1 = 19 − 24·0.40·0.13 = 17.752;  θsi A6 = 19 − 24·2·0.13 = 12.76
    //   ΣS = 23, Σθsi·S = 355.04 + 38.28 = 393.32
    //   θm = ((96.269 − 23)·19 + 393.32)/96.269 = (1392.11 + 393.32)/96.269 = 18.5462
    //   Int(θm) = 18 ≠ 19 so k = 0; radiators: θa = 38 − 18.5462 + 1 = 20.4538.
    const QVector<SurfaceLocal> surfaces = {{QStringLiteral("A1"), 20, 1, 0.40},
                                            {QStringLiteral("A6"), 3, 1, 2.00},
                                            {QStringLiteral("L1"), 12, 1, 0.5}};
    const auto ta = CalculTempératureAir(19, -5, 20, 50, QStringLiteral("Radi."), surfaces);
    ASSERT_TRUE(ta);
    EXPECT_NEAR(*ta, 20.4538, 2e-3);

    struct Cas
    {
        const char *emetteur;
        double trs, attendu;
    };
    // Convectors add 2: 21.4538. Floor heating: the 20 m² floor at θrs + 5:
    //   θm = ((96.269 − 23 − 20)·19 + 393.32 + 20·24)/96.269 = (1012.11 + 873.32)/96.269
    //      = 19.5850 → Int 19 = θrs, k = 1 → θa = 38 − 19.585 + 0 − 1 = 17.415 → bounded
    //      up to θrs = 19.
    // Warm air adds 3 below 5 vol/h (22.4538) and 4 above (23.4538, within 1.25·19 = 23.75).
    // θrs 10 with the same walls: θsi drop is 15·…; θa cannot exceed 12.5 with c = 4:
    //   θsi A1 = 10 − 15·0.052 = 9.22, A6 = 10 − 15·0.26 = 6.1; Σ = 184.4 + 18.3 = 202.7
    //   θm = (73.269·10 + 202.7)/96.269 = 9.7166; θa = 20 − 9.7166 + 4 = 14.28 → 12.5.
    const Cas cas[] = {{"Conv.", 19, 21.4538},   {"Pl. ch.", 19, 19},      {"Pr ch.", 19, 19},
                       {"Air>5VH", 19, 23.4538}, {"Air<5VH", 19, 22.4538}, {"Air>5VH", 10, 12.5}};
    for (const Cas &c : cas) {
        const auto t
            = CalculTempératureAir(c.trs, -5, 20, 50, QString::fromUtf8(c.emetteur), surfaces);
        ASSERT_TRUE(t) << c.emetteur;
        EXPECT_NEAR(*t, c.attendu, 2e-3) << c.emetteur << " " << c.trs;
    }
}

TEST(CalculsPertes, AirTemperatureKeptWithoutAreaOrVolume)
{
    const QVector<SurfaceLocal> surfaces = {{QStringLiteral("A1"), 20, 1, 0.40}};
    EXPECT_FALSE(CalculTempératureAir(19, -5, 0, 50, QStringLiteral("Radi."), surfaces));
    EXPECT_FALSE(CalculTempératureAir(19, -5, 20, 0, QStringLiteral("Radi."), surfaces));
    // A volume not above the area has no walls in the fitted law.
    EXPECT_FALSE(CalculTempératureAir(19, -5, 20, 20, QStringLiteral("Radi."), surfaces));
}

TEST(CalculsPertes, AirTemperatureBoundsWithPoorWalls)
{
    // Cold walls push θa up to 1.25·θrs; nothing takes it below θrs.
    const QVector<SurfaceLocal> froides = {{QStringLiteral("A1"), 60, 1, 3.0}};
    EXPECT_DOUBLE_EQ(*CalculTempératureAir(20, -10, 20, 50, QStringLiteral("Radi."), froides),
                     25.0);
    const QVector<SurfaceLocal> chaudes = {{QStringLiteral("A1"), 60, 1, -3.0}};
    EXPECT_DOUBLE_EQ(*CalculTempératureAir(20, -10, 20, 50, QStringLiteral("Pr ch."), chaudes),
                     20.0);
}

TEST(CalculsPertes, VentilationCellForms)
{
    struct Cas
    {
        const char *cellule;
        double maxi, mini;
    };
    const Cas cas[] = {
        {"125", 125, 125},
        {"1\u00a0250", 1250, 1250},
        {"Maxi : 1\u00a0200 ; Mini : 300", 1200, 300},
        {"Maxi : 90", 90, 90},
        {"Calcul automatique selon les paramètres précédents.", 0, 0},
        {"", 0, 0},
    };
    for (const Cas &c : cas) {
        const ValeursVentilation v = LireValeursVentilation(QString::fromUtf8(c.cellule));
        EXPECT_DOUBLE_EQ(v.maxi, c.maxi) << c.cellule;
        EXPECT_DOUBLE_EQ(v.mini, c.mini) << c.cellule;
    }
}

TEST(CalculsPertes, AirRenewalLine)
{
    // Zone flow 160, base flow 0, P = 40, leakage of the room L = 5, Qi = 30:
    //   Qv = (160 − 0)·2·5/40 + 30 = 40 + 30 = 70.
    DonneesVentilation v {160, 40, 0.5, 0};
    EXPECT_DOUBLE_EQ(DebitLocal(v, 5, 30), 70);
    // A supply above the zone flow gives no leakage flow, only Qi.
    EXPECT_DOUBLE_EQ(DebitLocal({100, 40, 0.5, 150}, 5, 30), 30);
    // No building permeability: the room's own flow.
    EXPECT_DOUBLE_EQ(DebitLocal({160, 0, 0.5, 0}, 5, 30), 30);

    // Loss at ΔT 25, b 1: without recovery 70·0.34·25 = 595;
    // with 75 % recovery: 40·0.34·25 + 30·0.34·0.25·25 = 340 + 63.75 = 403.75.
    EXPECT_DOUBLE_EQ(PerteRenouvellementAir(70, 30, 0.34, 1, 25, 0), 595);
    EXPECT_DOUBLE_EQ(PerteRenouvellementAir(70, 30, 0.34, 1, 25, 75), 403.75);
    // Qv below Qi: no excess flow.
    EXPECT_DOUBLE_EQ(PerteRenouvellementAir(20, 30, 0.34, 1, 25, 0), 255);
}

TEST(CalculsPertes, LineLoss)
{
    // 12.5 m² of U 0.36 at ΔT 25.45 with b 0.8: 91.62.
    EXPECT_NEAR(PerteLigne(12.5, 0.36, 25.45, 0.8), 91.62, 1e-9);
}

TEST(CalculsPertes, VolumeText)
{
    struct Cas
    {
        double volume;
        const char *texte;
    };
    const Cas cas[]
        = {{62.5, "62.50"}, {999.994, "999.99"}, {1000, "1 000"}, {12345.6, "12 346"}, {0, "0.00"}};
    for (const Cas &c : cas)
        EXPECT_EQ(TexteVolume(c.volume).trimmed(), QString::fromUtf8(c.texte)) << c.volume;
}

TEST(CalculsPertes, HeightSupplementFactor)
{
    struct Cas
    {
        const char *emetteur;
        double hauteur;
        std::optional<double> facteur;
    };
    const Cas cas[] = {
        {"Radi.", 5, std::nullopt}, {"Radi.", 5.01, 0.10}, {"Radi.", 10, 0.10},
        {"Radi.", 10.01, 0.20},     {"Conv.", 10, 0.15},   {"Conv.", 12, 0.20},
        {"Pr ch.", 12, 0.0},        {"Pl. ch.", 8, 0.15},  {"Pl. ch.", 11, 0.20},
        {"Air<5VH", 6, 0.60},       {"Air<5VH", 20, 0.60}, {"Air>5VH", 6, 0.15},
        {"Air>5VH", 20, 0.15},      {"Autre", 8, 0.0},     {"Air>5VH", 0, std::nullopt},
    };
    for (const Cas &c : cas)
        EXPECT_EQ(FacteurSupplement(QString::fromUtf8(c.emetteur), c.hauteur), c.facteur)
            << c.emetteur << " " << c.hauteur;
}
