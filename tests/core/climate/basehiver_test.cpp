#include "climate/basehiver.h"

#include <gtest/gtest.h>

using namespace thermique;

TEST(TemperatureBaseAltitude, TableByHundredsOfMetres)
{
    struct Cas
    {
        double altitude, t0, attendue;
    };
    const Cas cas[] = {
        // Both ends: up to 200 m is the first row, beyond 3000 m the last.
        {0, -4, -4},
        {150, -4, -4},
        {200, -4, -4},
        {201, -4, -5},
        {-300, -9, -9},
        {3000, -4, -19},
        {3001, -4, -20},
        {3100, -4, -20},
        {5000, -4, -20},
        // The columns from -4 to -15.
        {0, -15, -15},
        {0, -5, -5},
        {0, -10, -10},
        {1000, -7, -15},
        {550, -10, -13},
        {1400, -11, -23},
        {1401, -11, -24},
        {1400, -15, -25},
        // The rows of the high mountains hold zeros for the coldest sites.
        {1600, -12, 0},
        {3100, -15, 0},
        {3100, -9, -30},
        // Beyond the table the sea-level value stays.
        {500, -16, -16},
    };
    for (const Cas &c : cas)
        EXPECT_EQ(TempératureBaseAltitude(c.altitude, c.t0), c.attendue)
            << "altitude " << c.altitude << " T0 " << c.t0;
}

TEST(TemperatureBaseAltitude, MinusTwoHasItsOwnSteps)
{
    const std::pair<double, double> cas[]
        = {{0, -2},   {200, -2}, {201, -3}, {400, -3}, {401, -4}, {600, -4},
           {601, -5}, {700, -5}, {701, -6}, {900, -6}, {901, -8}, {2500, -8}};
    for (const auto &[altitude, attendue] : cas)
        EXPECT_EQ(TempératureBaseAltitude(altitude, -2), attendue) << altitude;
}

TEST(TemperatureBaseAltitude, OtherValuesPassThrough)
{
    for (double altitude : {0.0, 450.0, 1200.0, 3500.0}) {
        EXPECT_EQ(TempératureBaseAltitude(altitude, -3), -3);
        EXPECT_EQ(TempératureBaseAltitude(altitude, -1), -1);
        EXPECT_EQ(TempératureBaseAltitude(altitude, 0), 0);
        EXPECT_EQ(TempératureBaseAltitude(altitude, 2), 2);
    }
}

TEST(LettreReferenceThermique, DefaultListsAndAlwaysW)
{
    struct Cas
    {
        int departement;
        double altitude;
        const char *ville;
        const char *lettre;
    };
    const Cas cas[] = {
        {75, 35, "Paris", "V"},
        {73, 999, "Albertville", "V"},
        {73, 1000, "Val-d'Isère", "W"},
        // Listed departments ignore the altitude: only the named towns are "W".
        {26, 1200, "Saint-Agnan-en-Vercors", "V"},
        {26, 120, "Valence", "W"},
        {26, 400, "Die", "W"},
        {7, 300, "Privas", "W"},
        {7, 300, "privas", "V"},
        {7, 1400, "Le Béage", "V"},
        {11, 10, "Narbonne", "W"},
        {11, 10, "Carcassonne", "V"},
        {66, 30, "Perpignan", "W"},
        {83, 0, "Toulon", "W"},
        {83, 1100, "Bargème", "V"},
        {30, 40, "Aigues-Mortes", "W"},
        // Two departments are "W" throughout.
        {13, 0, "Marseille", "W"},
        {84, 30, "Avignon", "W"},
    };
    for (const Cas &c : cas)
        EXPECT_EQ(LettreReferenceThermique(c.departement, c.altitude, QString::fromUtf8(c.ville)),
                  QString::fromUtf8(c.lettre))
            << c.ville;
}

TEST(TemperatureBaseDistanceMer, TwentyFiveAndThreeKilometres)
{
    struct Cas
    {
        int departement;
        double distance, t0, attendue;
    };
    const Cas cas[] = {
        {35, 24.9, -7, -4}, {35, 25, -7, -7}, {35, 2, -7, -4}, // 35 keeps -4 near the sea
        {85, 24, -7, -4},   {85, 3, -7, -4},  {85, 2.9, -7, -2}, // 85 takes -2
        {83, 24, -5, -2},   {83, 3, -5, -2},  {83, 0, -5, 0},    {6, 25, -5, -5}, {62, 2, -9, -7},
        {62, 10, -9, -9},   {80, 0, -9, -7},  {76, 1, -7, -5},   {14, 2, -7, -5}, {64, 1, -5, -3},
        {50, 1, -4, -2},    {11, 10, -5, -4}, {11, 1, -5, -3},   {34, 2, -5, -3}, {20, 1, -2, 0},
        {20, 10, -2, -2},   {75, 0, -5, -5},
    };
    for (const Cas &c : cas)
        EXPECT_EQ(TemperatureBaseDistanceMer(c.departement, c.distance, c.t0), c.attendue)
            << c.departement << " at " << c.distance << " km";
}

TEST(EstDepartementCotier, TheTwentyThreeCoastalDepartments)
{
    int cotiers = 0;
    for (int d = 0; d <= 100; ++d)
        cotiers += EstDepartementCotier(d) ? 1 : 0;
    EXPECT_EQ(cotiers, 23);
    for (int d : {6, 13, 20, 29, 33, 62, 83, 85})
        EXPECT_TRUE(EstDepartementCotier(d)) << d;
    for (int d : {1, 26, 75, 84, 67})
        EXPECT_FALSE(EstDepartementCotier(d)) << d;
}
