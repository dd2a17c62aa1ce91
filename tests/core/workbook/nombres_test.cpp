#include "workbook/nombres.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace thermique;

namespace {

// Expected texts write the no-break space as '_' to stay readable.
QString nb(const char *texte)
{
    return QString::fromUtf8(texte).replace(u'_', SeparateurMilliers);
}

struct CasFormat
{
    double valeur;
    const char *motif;
    const char *attendu;
};

void verifier(const std::initializer_list<CasFormat> &cas)
{
    for (const CasFormat &c : cas)
        EXPECT_EQ(Format(c.valeur, QString::fromUtf8(c.motif)), nb(c.attendu))
            << c.valeur << " with \"" << c.motif << '"';
}

constexpr double infini = std::numeric_limits<double>::infinity();

} // namespace

TEST(Format, PlainPlaceholders)
{
    verifier({{0, "0", "0"},
              {7, "00", "07"},
              {123, "00", "123"},
              {42, "0000", "0042"},
              {12345, "0000", "12345"},
              {0.04, "#0.0", "0.0"},
              {3.14159, "#0.0", "3.1"},
              {22.5, "#0.00", "22.50"},
              {0.5, "#0.000", "0.500"},
              {1.23456, "#0.0000", "1.2346"},
              {0, "##0", "0"},
              {12345.6, "###0", "12346"},
              {0.05, "###0.0", "0.1"},
              {0.00005, "##0.0000", "0.0001"},
              {0.5, "#", "1"},
              {0.4, "#", ""},
              {0.5, "#.00", ".50"},
              {12.5, ".00", "12.50"},
              // Trailing "#" decimals drop their zeros, a "0" decimal keeps its own; the point
              // stays even when no decimal is left.
              {2.5, "0.##", "2.5"},
              {2.125, "0.0#", "2.13"},
              {2, "0.0#", "2.0"},
              {2.001, "0.##", "2."},
              {2, "#.##", "2."}});
}

TEST(Format, RoundsHalfAwayFromZeroOnFifteenDigits)
{
    verifier({// Halves that banker's rounding would send down.
              {2.5, "0", "3"},
              {-2.5, "0", "-3"},
              {0.25, "##0.0", "0.3"},
              {1.0625, "##0.000", "1.063"},
              // Binary values just under the half: the decimal form decides.
              {0.125, "0.00", "0.13"},
              {1.005, "0.00", "1.01"},
              {2.675, "0.00", "2.68"},
              {0.35, "##0.0", "0.4"},
              {12.345, "##0.00", "12.35"},
              {1.0005, "0.000", "1.001"},
              {1.00005, "#0.0000", "1.0001"},
              {1234567.005, "###,###,##0.00", "1_234_567.01"},
              // Carries through every digit.
              {9.995, "0.00", "10.00"},
              {999.5, "##0", "1000"},
              {99999.995, "#,##0.00", "100_000.00"},
              {999999.5, "###,###", "1_000_000"},
              // Under the half.
              {0.0049, "0.00", "0.00"},
              {0.4999999, "0", "0"},
              // Beyond 15 significant digits the value is already rounded.
              {123456789012345678.0, "0", "123456789012346000"}});
}

TEST(Format, Negatives)
{
    verifier({{-0.05, "0.0", "-0.1"},
              {-1234.5, "#,##0", "-1_235"},
              {-5, "###,###,###", "-5"},
              // A negative that rounds to zero keeps its sign.
              {-0.001, "0.00", "-0.00"},
              {-0.004, "#,##0.00", "-0.00"},
              {-1e-300, "0.00", "-0.00"},
              // The sign goes before a leading literal.
              {-12.5, "### ##0.00", "- 12.50"},
              {-3, "x0", "-x3"},
              // Negative zero is zero.
              {-0.0, "0.00", "0.00"}});
}

TEST(Format, ThousandsGrouping)
{
    verifier({{0, "#,##0", "0"},
              {999, "#,##0", "999"},
              {1000, "#,##0", "1_000"},
              {1234567, "#,##0", "1_234_567"},
              {1234567.891, "#,##0.00", "1_234_567.89"},
              {0, "#,##0.00", "0.00"},
              {1234.5678, "#,##0.000", "1_234.568"},
              {12345, "##,##0", "12_345"},
              {123456, "##,##0", "123_456"},
              {12345.678, "##,##0.00", "12_345.68"},
              {0, "##,###", ""},
              {0.4, "##,###", ""},
              {0.6, "##,###", "1"},
              {12345, "##,###", "12_345"},
              {1000, "#,###", "1_000"},
              {1234567, "#,###,###", "1_234_567"},
              {1234567890, "#,###,###", "1_234_567_890"},
              {0.2, "###,##0", "0"},
              {1000000, "###,##0.00", "1_000_000.00"},
              {0, "###,###,###", ""},
              {123456789, "###,###,###", "123_456_789"},
              {0, "###,###,##0", "0"},
              {1234, "###,###,##0", "1_234"},
              {1234567890123.0, "###,###,###,##0", "1_234_567_890_123"},
              // Commas only switch grouping on: the groups follow the digits.
              {1234.5678, "###,#0.000", "1_234.568"},
              {12.3456, "###,#0.000", "12.346"},
              {0.5, "###,#0.000", "0.500"},
              {5, "0,000", "0_005"},
              {1e20, "#,##0", "100_000_000_000_000_000_000"}});
}

TEST(Format, LiteralsStayWhereTheyStand)
{
    verifier({// The blank is an ordinary space, shown even when the digits before it are not.
              {1234.5, "### ##0.00", "1 234.50"},
              {12.5, "### ##0.00", " 12.50"},
              {0, "### ##0.00", " 0.00"},
              {1234567.5, "### ##0.00", "1234 567.50"},
              {1234567, "### ### ##0", "1 234 567"},
              {12345, "### ### ##0", " 12 345"},
              {123, "### ### ##0", "  123"},
              {1234567890, "### ### ##0", "1234 567 890"},
              {12.34, "0.0 W", "12.3 W"},
              {0.5, "0%", "1%"},
              {7, "n° 00", "n° 07"},
              // A trailing comma is not between placeholders.
              {5, "0,", "5,"}});
}

TEST(Format, Sections)
{
    verifier({{-5, "0;(0)", "(5)"},
              {5, "0;(0);zéro", "5"},
              {0, "0;(0);zéro", "zéro"},
              {0, "0.0;(0.0)", "0.0"},
              {-5, "0;;z", "-5"},
              {-0.001, "0.00;(0.00)", "(0.00)"}});
}

TEST(Format, FallsBackToTheNumberTextAndNeverBlowsUp)
{
    EXPECT_EQ(Format(22.5, QString()), QStringLiteral("22.5"));
    EXPECT_EQ(Format(infini, QStringLiteral("#,##0")), TexteNombre(infini));
    EXPECT_EQ(Format(-infini, QStringLiteral("0.00")), TexteNombre(-infini));
    EXPECT_EQ(Format(std::nan(""), QStringLiteral("0")), TexteNombre(std::nan("")));

    const QString grand = Format(1e300, QStringLiteral("#,##0"));
    EXPECT_EQ(grand.size(), 301 + 100);
    EXPECT_TRUE(grand.startsWith(nb("1_000_000")));
    EXPECT_EQ(grand.count(u'0'), 300);
    EXPECT_TRUE(Format(1e300, QStringLiteral("0.00")).endsWith(QStringLiteral("000.00")));
    EXPECT_EQ(Format(5e-324, QStringLiteral("0.000")), QStringLiteral("0.000"));
    EXPECT_EQ(Format(std::numeric_limits<double>::max(), QStringLiteral("0")).size(), 309);
}

TEST(Format, GroupedTextReadsBack)
{
    for (double v : {0.0, 0.01, 12.34, 999.99, 1000.0, 65432.1, 1234567.89, -98765.43}) {
        EXPECT_DOUBLE_EQ(ValNombre(Format(v, QStringLiteral("#,##0.00"))), v);
        EXPECT_DOUBLE_EQ(ValNombre(Format(v, QStringLiteral("###,###,##0.00"))), v);
    }
}

TEST(TexteNombre, ClassicNumberText)
{
    const struct
    {
        double valeur;
        const char *attendu;
    } cas[] = {{0, "0"},
               {-0.0, "0"},
               {22.5, "22.5"},
               {-22.5, "-22.5"},
               {100, "100"},
               {0.1 + 0.2, "0.3"},
               {1.0 / 3, "0.333333333333333"},
               {2.0 / 3, "0.666666666666667"},
               {1e14, "100000000000000"},
               {123456789012345, "123456789012345"},
               {999999999999999, "999999999999999"},
               {999999999999999.9, "1E+15"},
               {1e15, "1E+15"},
               {1234567890123456, "1.23456789012346E+15"},
               {1e300, "1E+300"},
               {0.0001, "0.0001"},
               {0.000123, "0.000123"},
               {0.00001, "1E-05"},
               {1.5e-7, "1.5E-07"},
               {-2.5e-10, "-2.5E-10"},
               {5e-324, "4.94065645841247E-324"},
               {infini, "inf"},
               {-infini, "-inf"}};
    for (const auto &c : cas)
        EXPECT_EQ(TexteNombre(c.valeur), QString::fromUtf8(c.attendu)) << c.valeur;
    EXPECT_EQ(TexteNombre(std::nan("")), QStringLiteral("nan"));
}

TEST(TexteNombre, ReadsBackThroughVal)
{
    for (double v : {0.3, -1.25, 1e-5, 6.02214076e23, 123456.789, -4.5e-12, 9.87654321e14})
        EXPECT_DOUBLE_EQ(Val(TexteNombre(v)), v) << v;
}

TEST(Val, LeadingNumberParse)
{
    const struct
    {
        const char *texte;
        double attendu;
    } cas[] = {
        {"", 0},           {"abc", 0},     {"12abc", 12},    {" 1 2 3", 123}, {"\t-\r\n4 2", -42},
        {"12.5 m²", 12.5}, {"+7", 7},      {"-.5", -0.5},    {".5e1", 5},     {"5.", 5},
        {"1.2.3", 1.2},    {".", 0},       {"-", 0},         {"--5", 0},      {"e5", 0},
        {"1e3", 1000},     {"1E+3", 1000}, {"2.5D-1", 0.25}, {"1d2", 100},    {"1 e 2", 100},
        {"1e", 1},         {"1e+", 1},     {"1e+x", 1},      {"3,5", 3},      {"1\u00A0234", 1},
        {"&H1F", 31},      {"&h1f", 31},   {"&H1G", 1},      {"&O17", 15},    {"&o19", 1},
        {"&H", 0},         {"&X1", 0},     {"1e-400", 0}};
    for (const auto &c : cas)
        EXPECT_DOUBLE_EQ(Val(QString::fromUtf8(c.texte)), c.attendu) << c.texte;
}

TEST(Val, ExtremeTexts)
{
    EXPECT_EQ(Val(QStringLiteral("1e400")), infini);
    EXPECT_EQ(Val(QStringLiteral("-1e400")), -infini);
    // Longer than any stack buffer.
    EXPECT_DOUBLE_EQ(Val(QStringLiteral("1") + QString(99, u'0') + QStringLiteral("x")), 1e99);
    EXPECT_DOUBLE_EQ(Val(QStringLiteral("0.") + QString(300, u'0') + QStringLiteral("1")), 1e-301);
    EXPECT_EQ(Val(QStringLiteral("1") + QString(400, u'0')), infini);
    EXPECT_DOUBLE_EQ(Val(QStringLiteral("2e") + QString(30, u'0') + QStringLiteral("3")), 2000);
}

TEST(Val, ValNombreDropsTheGroupMarks)
{
    EXPECT_DOUBLE_EQ(ValNombre(nb("1_234.50")), 1234.5);
    EXPECT_DOUBLE_EQ(ValNombre(nb("-12_345_678.9")), -12345678.9);
    EXPECT_DOUBLE_EQ(ValNombre(QStringLiteral("1,234,567.5")), 1234567.5);
    // A comma is a group mark here, never a decimal mark.
    EXPECT_DOUBLE_EQ(ValNombre(QStringLiteral("3,5")), 35);
    EXPECT_DOUBLE_EQ(ValNombre(QString()), 0);
}

TEST(Int, Floors)
{
    EXPECT_EQ(Int(2.5), 2);
    EXPECT_EQ(Int(-2.5), -3);
    EXPECT_EQ(Int(-3), -3);
    EXPECT_EQ(Int(0.999999), 0);
}

TEST(FormatDate, Patterns)
{
    const QDate date(2026, 11, 21);
    const QDate fevrier(2026, 2, 3);
    EXPECT_EQ(FormatDate(date, QStringLiteral("yyyy mmm d")), QStringLiteral("2026 nov. 21"));
    EXPECT_EQ(FormatDate(date, QStringLiteral("dd/mm/yyyy")), QStringLiteral("21/11/2026"));
    EXPECT_EQ(FormatDate(fevrier, QStringLiteral("dd/mm/yy")), QStringLiteral("03/02/26"));
    EXPECT_EQ(FormatDate(fevrier, QStringLiteral("d mmmm yyyy")), QStringLiteral("3 février 2026"));
    EXPECT_EQ(FormatDate(fevrier, QStringLiteral("m-d")), QStringLiteral("2-3"));
    EXPECT_EQ(FormatDate(fevrier, QStringLiteral("DD/MM/YYYY")), QStringLiteral("03/02/2026"));
    EXPECT_EQ(FormatDate(QDate(2005, 1, 1), QStringLiteral("yy")), QStringLiteral("05"));
    // "mm" after an hour is the minutes, elsewhere the month.
    EXPECT_EQ(FormatDate(date, QStringLiteral("mm hh:mm dd/mm")), QStringLiteral("11 00:00 21/11"));
    EXPECT_EQ(FormatDate(QDate(), QStringLiteral("yyyy")), QString());
}

TEST(FormatDate, FrenchMonthNames)
{
    const char *longs[] = {"janvier", "février", "mars",      "avril",   "mai",      "juin",
                           "juillet", "août",    "septembre", "octobre", "novembre", "décembre"};
    const char *courts[] = {"janv.", "févr.", "mars",  "avr.", "mai",  "juin",
                            "juil.", "août",  "sept.", "oct.", "nov.", "déc."};
    for (int mois = 1; mois <= 12; ++mois) {
        const QDate date(2024, mois, 15);
        EXPECT_EQ(FormatDate(date, QStringLiteral("mmmm")), QString::fromUtf8(longs[mois - 1]));
        EXPECT_EQ(FormatDate(date, QStringLiteral("mmm")), QString::fromUtf8(courts[mois - 1]));
    }
}

TEST(FormatHeure, Patterns)
{
    const QTime heure(7, 5, 9);
    EXPECT_EQ(FormatHeure(heure, QStringLiteral("hh:mm")), QStringLiteral("07:05"));
    EXPECT_EQ(FormatHeure(heure, QStringLiteral("hh:00")), QStringLiteral("07:00"));
    EXPECT_EQ(FormatHeure(heure, QStringLiteral("h:nn:ss")), QStringLiteral("7:05:09"));
    EXPECT_EQ(FormatHeure(heure, QStringLiteral("h:m")), QStringLiteral("7:5"));
    EXPECT_EQ(FormatHeure(QTime(23, 59), QStringLiteral("hh h nn")), QStringLiteral("23 23 59"));
    EXPECT_EQ(FormatHeure(QTime(), QStringLiteral("hh:mm")), QString());
}
