#include "ventilation/rendementechangeur.h"
#include "ventilation/tablesventilation.h"

#include "workbook/dossierapplication.h"
#include "workbook/grid.h"
#include "workbook/records.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace thermique;

namespace {

void ecrire(const QString &chemin, const QByteArray &octets)
{
    QDir().mkpath(QFileInfo(chemin).absolutePath());
    QFile f(chemin);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(octets);
}

} // namespace

TEST(TablesVentilation, TabsAndTablesComeFromTheFolder)
{
    QTemporaryDir d;
    ASSERT_TRUE(d.isValid());
    const DossierApplication dossier(d.path());
    EXPECT_TRUE(OngletsVentilation(dossier).isEmpty());
    ecrire(d.filePath("Ventilation/Logements.dir"), "");
    ecrire(d.filePath(QStringLiteral("Ventilation/Locaux tertiaires.dir")), "");
    ecrire(d.filePath("Ventilation/Autres.dir/x.txt"), "");
    ecrire(d.filePath("Ventilation/notes.ini"), "");
    ecrire(d.filePath(QStringLiteral("Ventilation/Logements/Débits réglementaires.txt")),
           EncoderWindows1252(QStringLiteral("T1\t35\tCuisine 75\t35\t20\t\r\n")));
    ecrire(d.filePath("Ventilation/Logements/A.txt"), "");
    ecrire(d.filePath("Ventilation/Logements/B.csv"), "");
    EXPECT_EQ(OngletsVentilation(dossier),
              QStringList({QStringLiteral("Locaux tertiaires"), QStringLiteral("Logements")}));
    EXPECT_EQ(TablesVentilation(dossier, QStringLiteral("Logements")),
              QStringList({QStringLiteral("A"), QStringLiteral("Débits réglementaires")}));
    EXPECT_TRUE(TablesVentilation(dossier, QStringLiteral("Locaux tertiaires")).isEmpty());
    EXPECT_TRUE(TablesVentilation(dossier, QString()).isEmpty());

    const auto lignes = LireTableVentilation(dossier, QStringLiteral("Logements"),
                                             QStringLiteral("Débits réglementaires"));
    ASSERT_EQ(lignes.size(), 1);
    EXPECT_EQ(lignes[0], QStringList({"T1", "35", "Cuisine 75", "35", "20", ""}));
    EXPECT_TRUE(
        LireTableVentilation(dossier, QStringLiteral("Logements"), QStringLiteral("Z")).isEmpty());
}

TEST(TablesVentilation, EveryLineMakesSixCells)
{
    const QByteArray octets
        = EncoderWindows1252(QStringLiteral("Bureaux\t25\t\t\t\tCode du travail\r\n"
                                            "\r\n"
                                            "Salle d'eau\t\t\t45\r\n"
                                            "Trop\t1\t2\t3\t4\t5\t6\t7\n"
                                            "Dernière ligne sans fin\t30"));
    const auto lignes = LireTableVentilation(octets);
    ASSERT_EQ(lignes.size(), 4);
    for (const QStringList &l : lignes)
        EXPECT_EQ(l.size(), ColonnesTableVentilation);
    EXPECT_EQ(lignes[0][5], QStringLiteral("Code du travail"));
    EXPECT_EQ(lignes[1][3], QStringLiteral("45"));
    EXPECT_EQ(lignes[1][5], QString());
    EXPECT_EQ(lignes[2][5], QStringLiteral("5"));
    EXPECT_EQ(lignes[3][0], QStringLiteral("Dernière ligne sans fin"));
    EXPECT_TRUE(LireTableVentilation(QByteArray("\0\0\r\n", 4)).size() <= 1);

    EXPECT_EQ(EntetesVentilation(QStringLiteral("Logements")).size(), 2);
    EXPECT_EQ(EntetesVentilation(QStringLiteral("Logements"))[1][3],
              QStringLiteral("Tot. logt / Cuis."));
    EXPECT_EQ(EntetesVentilation(QStringLiteral("Bureaux"))[0][2], QStringLiteral("/m²"));
}

TEST(TablesVentilation, TabPositionsRoundTrip)
{
    QTemporaryDir d;
    ASSERT_TRUE(d.isValid());
    const DossierApplication dossier(d.path());
    PositionsVentilation p = LirePositionsVentilation(dossier);
    EXPECT_EQ(p.onglet, 0);
    EXPECT_EQ(p.table, 0);
    ASSERT_TRUE(EcrirePositionsVentilation(dossier, {1, 3}));
    p = LirePositionsVentilation(dossier);
    EXPECT_EQ(p.onglet, 1);
    EXPECT_EQ(p.table, 3);
    // A damaged file gives the first tabs.
    ecrire(d.filePath("Ventilation.ini"), "\"x\"\r\n-5\r\n");
    p = LirePositionsVentilation(dossier);
    EXPECT_EQ(p.onglet, 0);
    EXPECT_EQ(p.table, 0);
}

TEST(RendementEchangeur, ReadsAndWritesThePercentage)
{
    struct Lecture
    {
        const char *texte, *valeur;
    };
    for (const Lecture &l :
         {Lecture {"R(%) = 82", "82"}, Lecture {"R(%) = 67.5 ", "67.5"}, Lecture {"  ", "75"},
          Lecture {"R(%) = ", "75"}, Lecture {"", "75"}, Lecture {"R(%) = abc", "75"}})
        EXPECT_EQ(RendementEchangeurInitial(QString::fromUtf8(l.texte)),
                  QString::fromUtf8(l.valeur))
            << l.texte;

    Grid pertes(10, 38);
    struct Ecriture
    {
        const char *saisie, *cellule;
        bool ecrit;
    };
    for (const Ecriture &e :
         {Ecriture {"80", "R(%) = 80", true}, Ecriture {" 72.5 ", "R(%) = 72.5", true},
          Ecriture {"", "  ", false}, Ecriture {"abc", "  ", false}, Ecriture {"120", "  ", false},
          Ecriture {"-5", "  ", false}}) {
        EXPECT_EQ(AppliquerRendementEchangeur(pertes, 4, QString::fromUtf8(e.saisie)), e.ecrit)
            << e.saisie;
        EXPECT_EQ(pertes.text(4, 14), QString::fromUtf8(e.cellule)) << e.saisie;
        EXPECT_EQ(pertes.text(4, 15), QString::fromUtf8(e.cellule)) << e.saisie;
    }
    EXPECT_FALSE(AppliquerRendementEchangeur(pertes, 40, QStringLiteral("80")));
    // What the form writes it reads back.
    AppliquerRendementEchangeur(pertes, 2, QStringLiteral("91"));
    EXPECT_EQ(RendementEchangeurInitial(pertes.text(2, 14)), QStringLiteral("91"));
}
