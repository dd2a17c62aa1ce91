#include "envelope/coefu/calculsparois.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace thermique;

TEST(CalculsParois, TintFactorsAndSolarFactor)
{
    struct Cas
    {
        const char *teinte;
        std::optional<double> k;
    };
    const Cas cas[] = {
        {"Clair", 0.1}, {"Moyen", 0.5},  {"Sombre", 0.7},    {"Noir", 0.9},
        {"0.80", 0.8},  {" 1.00 ", 1.0}, {"", std::nullopt}, {"Vert", std::nullopt},
    };
    for (const Cas &c : cas)
        EXPECT_EQ(FacteurTeinte(QString::fromUtf8(c.teinte)), c.k) << c.teinte;
    // S = U·k/7.6923: a "Moyen" wall of U 0.28.
    EXPECT_NEAR(FacteurSolaire(0.28, 0.5), 0.018200, 1e-6);
    EXPECT_FALSE(CoefficientU(0));
    EXPECT_NEAR(*CoefficientU(0.17), 5.882353, 1e-6);
}

TEST(CalculsParois, DensityRangeCountsAsItsMean)
{
    EXPECT_DOUBLE_EQ(MasseVolumiqueComposant(QStringLiteral("1200 à 1400")), 1300);
    EXPECT_DOUBLE_EQ(MasseVolumiqueComposant(QStringLiteral("2300")), 2300);
    EXPECT_DOUBLE_EQ(MasseVolumiqueComposant(QStringLiteral("1 800")), 1800);
}

TEST(CalculsParois, PhaseShiftOfKnownLayers)
{
    // 20 cm of concrete: 1.38·0.2·√(2300·(1000/3600)/2)·60 = 295.98 minutes.
    const CoucheDephasage beton {QStringLiteral("2300£1000£130£"), 0.20, 2.0};
    EXPECT_NEAR(*DephasageMinutes({beton}), 295.977026, 1e-5);
    EXPECT_EQ(TexteDephasage(DephasageMinutes({beton})),
              QStringLiteral("Déphasage thermique de la paroi : 4 h 55 mn"));
    // A range counts as its mean: 1300 kg/m³.
    const CoucheDephasage brique {QStringLiteral("1200 à 1400£1000£10£"), 0.20, 0.5};
    EXPECT_NEAR(*DephasageMinutes({brique}), 1.38 * 0.2 * std::sqrt(1300.0 / 3.6 / 0.5) * 60, 1e-9);
    // A layer with no density or an empty text makes the whole result unknown.
    EXPECT_FALSE(DephasageMinutes({beton, {QStringLiteral(""), 0.1, 0.04}}));
    EXPECT_FALSE(DephasageMinutes({{QStringLiteral("£1000£1£"), 0.1, 0.04}}));
    EXPECT_FALSE(DephasageMinutes({{QStringLiteral("30£1450"), 0.1, 0.04}}));
    EXPECT_EQ(TexteDephasage(std::nullopt),
              QStringLiteral("Déphasage thermique de la paroi : Non déterminé."));
    // A layer with a zero figure adds nothing.
    EXPECT_DOUBLE_EQ(*DephasageMinutes({{QStringLiteral("30£1450£60£"), 0, 0.04}}), 0);
}

TEST(CalculsParois, PhaseShiftRendering)
{
    struct Cas
    {
        double minutes;
        const char *suite;
    };
    const Cas cas[] = {
        {1440, "24 h "}, // only what is above a day makes days
        {1440.5, "1 j "},       {1500, "1 j 60 mn"}, // 60 left is not above 60: minutes
        {1501, "1 j 1 h 1 mn"}, {60, "60 mn"},       {61.9, "1 h 1 mn"}, {0, ""},
        {3000, "2 j 2 h "},
    };
    for (const Cas &c : cas)
        EXPECT_EQ(TexteDephasage(c.minutes),
                  QStringLiteral("Déphasage thermique de la paroi : ") + QString::fromUtf8(c.suite))
            << c.minutes;
}

TEST(CalculsParois, WallAgainstTheGround)
{
    // z = 2, R = 0.5, dw = 1: (4/(3.1416·2))·(1 + 0.5/3)·ln 3.
    EXPECT_NEAR(*UParoiEnterree(2, 0.5), 0.815963, 1e-6);
    EXPECT_FALSE(UParoiEnterree(0, 0.5));
    EXPECT_FALSE(UParoiEnterree(-1, 0.5));
    EXPECT_FALSE(UParoiEnterree(2, 0));
}

TEST(CalculsParois, GroundFloorBothBranches)
{
    ASSERT_TRUE(DimensionCaracteristique(100, 40));
    EXPECT_DOUBLE_EQ(*DimensionCaracteristique(100, 40), 5);
    EXPECT_FALSE(DimensionCaracteristique(100, 0));
    EXPECT_DOUBLE_EQ(EpaisseurEquivalente(0.3, 2, 0.27), 0.84);

    struct Cas
    {
        double bPrime, dt, lambda, u;
    };
    const Cas cas[] = {
        {5, 0.84, 2, 0.7204783}, // dt below B': (2λ/(πB' + dt))·ln(πB'/dt + 1)
        {5, 5.412, 2, 0.2598415}, // dt above B': λ/(0.457B' + dt)
        {5, 5, 2, 0.2745367}, // dt equal to B' takes the second formula (0.2744992 else)
        {5, 1.34, 2, 0.5967535}, // heated basement: dt + z/2 with z = 1
    };
    for (const Cas &c : cas)
        EXPECT_NEAR(*UPlancherBase(c.bPrime, c.dt, c.lambda), c.u, 1e-7) << c.dt;
    EXPECT_FALSE(UPlancherBase(5, 0, 2));
    EXPECT_FALSE(UPlancherBase(0, 1, 2));
}

TEST(CalculsParois, EdgeInsulations)
{
    // dt 0.84, insulation Rn 1.429 over 0.05 m: d' = 2·1.429 − 0.05 = 2.808.
    const double dPrime = 2 * 1.429 - 0.05;
    const auto horizontale = PsiIsolationPeripherique(2, 0.84, dPrime, 1.0, false);
    const auto verticale = PsiIsolationPeripherique(2, 0.84, dPrime, 1.0, true);
    ASSERT_TRUE(horizontale && verticale);
    EXPECT_NEAR(*horizontale, -0.3449586, 1e-7);
    EXPECT_NEAR(*verticale, -0.4972212, 1e-7);
    // The floor's U with B' = 5.
    EXPECT_NEAR(0.7204783 + 2 * *horizontale / 5, 0.5824948, 1e-7);
    EXPECT_NEAR(0.7204783 + 2 * *verticale / 5, 0.5215898, 1e-7);
    EXPECT_DOUBLE_EQ(*PsiIsolationPeripherique(2, 0.84, dPrime, 0, false), 0);
    EXPECT_FALSE(PsiIsolationPeripherique(2, 0.84, -0.84, 1, false));
}

TEST(CalculsParois, SurfaceResistance)
{
    EXPECT_NEAR(CoefficientRayonnementNoir(20), 5.713638, 1e-6);
    EXPECT_NEAR(CoefficientRayonnementNoir(0), 4.622178, 1e-6);
    EXPECT_DOUBLE_EQ(CoefficientConvectionExterieur(4), 20);
    EXPECT_DOUBLE_EQ(CoefficientConvectionExterieur(0), 4);
    EXPECT_NEAR(*ResistanceSuperficielle(2.5, 5.14), 0.130890, 1e-6);
    EXPECT_FALSE(ResistanceSuperficielle(0, 0));
    EXPECT_FALSE(ResistanceSuperficielle(-5, 2));
}

TEST(CalculsParois, AirLayerFormulasAndBounds)
{
    using V = VentilationLame;
    using F = FluxLame;
    struct Cas
    {
        double x;
        V v;
        F f;
        std::optional<double> r;
    };
    const Cas cas[] = {
        {0.02, V::NonVentilee, F::Haut, 0.1597971},
        {0.02, V::NonVentilee, F::Horizontal, 0.1758635},
        {0.02, V::NonVentilee, F::Bas, 0.1815777},
        {0.02, V::FaiblementVentilee, F::Horizontal, 0.0879317},
        {0.3, V::NonVentilee, F::Bas, 0.2184351},
        {0, V::NonVentilee, F::Haut, std::nullopt},
        {0.301, V::NonVentilee, F::Horizontal, std::nullopt},
        {-0.01, V::NonVentilee, F::Bas, std::nullopt},
        {0.02, V::FortementVentilee, F::Horizontal, std::nullopt},
    };
    for (const Cas &c : cas) {
        const auto r = ResistanceLameAir(c.x, c.v, c.f);
        ASSERT_EQ(bool(r), bool(c.r)) << c.x;
        if (r) {
            EXPECT_NEAR(*r, *c.r, 1e-7) << c.x;
        }
    }
}
