#include "climate/fichiersclimat.h"
#include "climate/meteodonnees.h"
#include "climate/stations.h"

#include "workbook/grid.h"
#include "workbook/records.h"

#include <gtest/gtest.h>

using namespace thermique;

namespace {

// A station line in the fixed columns: longitude (5), latitude (4), then the rest.
QString ligne(const char *longitude, const char *latitude, const QString &suite)
{
    return QString::fromLatin1(longitude).rightJustified(5)
        + QString::fromLatin1(latitude).rightJustified(4) + suite;
}

QString mois4(const std::array<double, 12> &valeurs)
{
    QString t;
    for (double v : valeurs)
        t += QString::number(v, 'f', 1).rightJustified(4);
    return t;
}

const std::array<double, 12> parisMoyennes
    = {4.9, 5.6, 8.8, 11.1, 15.0, 18.2, 20.6, 20.4, 16.8, 13.0, 8.3, 5.5};

} // namespace

TEST(StationProche, NearestClampedAndFirstOnTies)
{
    const QStringList lignes = {
        ligne("-4.49", "48.0", "Ouest"),  ligne("-5.10", "48.0", "Tout a l'ouest"),
        ligne(" 2.00", "40.0", "Sud"),    ligne(" 3.00", "44.0", "Egal A"),
        ligne(" 5.00", "44.0", "Egal B"),
    };
    // West of -4.49 the site counts as at -4.49, even over an exact match.
    EXPECT_EQ(StationProche(-5.1, 48.0, lignes), 0);
    // South of 40 the site counts as at 40.
    EXPECT_EQ(StationProche(2.0, 35.0, lignes), 2);
    // Halfway between two stations the earlier line stays.
    EXPECT_EQ(StationProche(4.0, 44.0, lignes), 3);
    EXPECT_EQ(StationProche(4.01, 44.0, lignes), 4);
    EXPECT_EQ(StationProche(0, 45, {}), -1);
    // A line that is not a station reads as (0, 0): it takes part like any other.
    EXPECT_EQ(StationProche(0.1, 40.1, {QStringLiteral("n'importe quoi"), lignes.at(2)}), 1);
    EXPECT_EQ(StationProche(0.1, 40.1, {QStringLiteral("n'importe quoi")}), 0);
}

TEST(Stations, MonthlyFieldsAndAltitudeCorrection)
{
    const QString ss
        = ligne(" 2.34", "48.8", QStringLiteral("213040455055586160453025Paris-Montsouris"));
    EXPECT_EQ(InsolationMois(ss, 1), QStringLiteral("21"));
    EXPECT_EQ(InsolationMois(ss, 7), QStringLiteral("58"));
    EXPECT_EQ(InsolationMois(ss, 12), QStringLiteral("25"));
    EXPECT_TRUE(InsolationMois(ss, 13).isEmpty());
    EXPECT_EQ(NomStation(ss), QStringLiteral("Paris-Montsouris"));

    const QString t = ligne(" 2.34", "48.8", QStringLiteral("  75") + mois4(parisMoyennes));
    EXPECT_EQ(AltitudeStation(t), 75);
    EXPECT_DOUBLE_EQ(TemperatureStationMois(t, 1), 4.9);
    EXPECT_DOUBLE_EQ(TemperatureStationMois(t, 12), 5.5);
    // 6.5 K per km between the station and the site.
    EXPECT_NEAR(TemperatureSiteMois(t, 7, 1075), 20.6 - 6.5, 1e-9);
    EXPECT_NEAR(TemperatureSiteMois(t, 7, 75), 20.6, 1e-9);

    const QString e = ligne(
        " 2.34", "48.8", mois4({6.1, 7.3, 8.6, 9.8, 10.0, 10.3, 10.5, 10.1, 9.4, 7.8, 6.3, 5.6}));
    EXPECT_DOUBLE_EQ(EcartDiurneMois(e, 2), 7.3);
    const ClimatStation c = ClimatDeStation(ss, t, e);
    EXPECT_DOUBLE_EQ(c.maxi[6], 20.6 + 10.5 / 2);
    EXPECT_DOUBLE_EQ(c.mini[6], 20.6 - 10.5 / 2);
}

TEST(Stations, DegreeDaysOfAKnownStation)
{
    // By hand: the ten months under 18 °C of the Paris normals, (18 - T) x days.
    EXPECT_NEAR(DegresJours(parisMoyennes, 18), 2208, 1e-9);
    EXPECT_NEAR(DegresJours(parisMoyennes, 19), 2505, 1e-9);
    EXPECT_EQ(DegresJours(parisMoyennes, -5), 0);

    const QStringList ss
        = {ligne(" 2.34", "48.8", QStringLiteral("213040455055586160453025Paris")),
           ligne(" 5.08", "47.3", QStringLiteral("203040455055586160453025Dijon"))};
    const QStringList t = {
        ligne(" 2.34", "48.8", QStringLiteral("  75") + mois4(parisMoyennes)),
        ligne(" 5.08", "47.3",
              QStringLiteral(" 222") + mois4({1.8, 3, 7, 10, 14, 18, 20.4, 20, 16, 11.6, 6, 2.6}))};
    const QStringList e
        = {ligne(" 2.34", "48.8", mois4({6, 7, 8, 9, 10, 10, 10, 10, 9, 8, 6, 5})),
           ligne(" 5.08", "47.3", mois4({6, 7, 9, 10, 11, 11, 12, 12, 11, 9, 7, 5}))};
    MeteoDonnees m({48.85, 2.35, 40}, {ss, t, e});
    EXPECT_EQ(m.stationAffichee(), 0);
    EXPECT_EQ(m.nomsStations(), (QStringList {QStringLiteral("Paris"), QStringLiteral("Dijon")}));
    EXPECT_EQ(m.libelleDJU(), QStringLiteral("DJU (18°) :"));
    EXPECT_EQ(m.texteDJU(), QStringLiteral("2\u00a0208"));
    EXPECT_EQ(m.texteMoyenne(1), QStringLiteral("4.90"));
    EXPECT_EQ(m.texteMaxi(1), QStringLiteral("7.90"));
    EXPECT_EQ(m.texteMini(1), QStringLiteral("1.90"));
    EXPECT_EQ(m.altitude(), QStringLiteral("75"));
    m.changerBase(+1);
    EXPECT_EQ(m.libelleDJU(), QStringLiteral("DJU (19°) :"));
    EXPECT_EQ(m.texteDJU(), QStringLiteral("2\u00a0505"));
    // Another station by its line in the sunshine table.
    m.choisirStation(1);
    EXPECT_EQ(m.climat().nom, QStringLiteral("Dijon"));
    EXPECT_EQ(m.texteMoyenne(7), QStringLiteral("20.40"));
    m.choisirStation(7);
    EXPECT_EQ(m.climat().nom, QStringLiteral("Dijon"));
}

TEST(Stations, SiteFromTheClimateCell)
{
    Grid g(19, 23);
    EXPECT_FALSE(PositionDuSite(g).has_value());
    g.setText(10, 10, QStringLiteral(" "));
    EXPECT_FALSE(PositionDuSite(g).has_value());
    g.setText(10, 10, QStringLiteral("43.12\r\n5.93\r\n1\u00a0050\r\nH3 - Ed"));
    const auto site = PositionDuSite(g);
    ASSERT_TRUE(site.has_value());
    EXPECT_DOUBLE_EQ(site->latitude, 43.12);
    EXPECT_DOUBLE_EQ(site->longitude, 5.93);
    EXPECT_DOUBLE_EQ(site->altitude, 1050);
}

TEST(FichiersClimat, GeographyRegionsAndDepartments)
{
    RecordWriter w;
    w.stringRecord(QStringLiteral("Dép : Orphelin"));
    w.stringRecord(QStringLiteral("Rég : Bretagne"));
    w.stringRecord(QStringLiteral("Dép : Finistère"));
    w.stringRecord(QStringLiteral("Dép : Morbihan"));
    w.stringRecord(QStringLiteral("Rég : Corse"));
    w.stringRecord(QStringLiteral("Dép : Corse-du-Sud"));
    const auto regions = LireGeographie(w.bytes());
    ASSERT_EQ(regions.size(), 2);
    EXPECT_EQ(regions[0].nom, QStringLiteral("Bretagne"));
    EXPECT_EQ(regions[0].departements,
              (QStringList {QStringLiteral("Finistère"), QStringLiteral("Morbihan")}));
    EXPECT_EQ(regions[1].departements, QStringList {QStringLiteral("Corse-du-Sud")});
    // A truncated file keeps what was read.
    EXPECT_EQ(LireGeographie(w.bytes().left(40)).size(), 1);
    EXPECT_TRUE(LireGeographie("\"\r\n\"\"\r\n\x01\xff").isEmpty());
}

TEST(FichiersClimat, DepartmentLookup)
{
    const QByteArray fichier = EncoderWindows1252(QStringLiteral(
        "N°\tNom\tRégion\tPréfecture\tEté\tHiver\tAltitude\tTété\tThiver\tHR\tDurée\r\n"
        "83\tVar\tPACA\tToulon\tEd\tH3\t-\t33\t-5\t65\t4\u00a0500 h\r\n"
        "8\tArdennes\tGrand Est\tCharleville\tEa\tH1b\t-\t29\t-10\t70\t6000\r\n"
        "83\tVar corrigé\tPACA\tToulon\tEd\tH3\t-\t34\t-5\t66\t4600\r\n"
        "trop court\r\n"));
    const auto var = ChercherDepartement(fichier, 83);
    ASSERT_TRUE(var.has_value());
    // A later line with the same key wins.
    EXPECT_EQ(var->temperatureEte, QStringLiteral("34"));
    EXPECT_EQ(var->zoneHiver, QStringLiteral("H3"));
    EXPECT_EQ(var->zoneEte, QStringLiteral("Ed"));
    EXPECT_EQ(var->temperatureHiver, QStringLiteral("-5"));
    EXPECT_EQ(var->humidite, QStringLiteral("66"));
    EXPECT_EQ(var->dureeChauffage, QStringLiteral("4600"));
    ASSERT_TRUE(ChercherDepartement(fichier, 8).has_value());
    EXPECT_EQ(ChercherDepartement(fichier, 8)->zoneHiver, QStringLiteral("H1b"));
    // The heading is skipped; a line without a number reads as key 0 and gives no value.
    const auto zero = ChercherDepartement(fichier, 0);
    ASSERT_TRUE(zero.has_value());
    EXPECT_TRUE(zero->temperatureHiver.isEmpty());
    EXPECT_FALSE(ChercherDepartement(fichier, 75).has_value());
    EXPECT_FALSE(ChercherDepartement(QByteArray(), 83).has_value());
}
