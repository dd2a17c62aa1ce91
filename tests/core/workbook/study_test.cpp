#include "workbook/dossierapplication.h"
#include "workbook/study.h"

#include <gtest/gtest.h>

#include <QDir>

#include <functional>
#include <vector>

using namespace thermique;

TEST(Study, NewStudyHasTheFixedShapes)
{
    const Study s;
    struct Taille
    {
        int rows, cols;
    };
    const Taille attendues[] = {{19, 23}, {40, 14}, {40, 14}, {26, 23}, {80, 38}, {60, 30}};
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(s.flexGrid[i].rows(), attendues[i].rows) << i;
        EXPECT_EQ(s.flexGrid[i].cols(), attendues[i].cols) << i;
    }
    // The seven grids without a sheet are kept so that the file holds 13 blocks.
    for (int i = 6; i < Study::NombreFeuilles; ++i)
        EXPECT_EQ(s.flexGrid[i].rows(), 60);
    EXPECT_EQ(s.flexGrid3[0].cols(), 10);
    for (int i = 1; i < Study::NombreFeuillesConsommations; ++i) {
        EXPECT_EQ(s.flexGrid3[i].cols(), 3);
        EXPECT_EQ(s.flexGrid3[i].rows(), 60);
    }
    EXPECT_EQ(s.roseDesVents.rows(), 73);
    EXPECT_TRUE(s.roseDesVents.text(0, 1).isEmpty());
    for (int r = 1; r < 73; ++r)
        ASSERT_EQ(s.roseDesVents.text(r, 1), QStringLiteral("0"));
    EXPECT_EQ(s.temperatureNuit.check1Valeur.size(), 144);
}

TEST(Study, ComparisonSeesEveryPart)
{
    const Study original;
    std::vector<std::function<void(Study &)>> changements = {
        [](Study &s) { s.flexGrid[12].setText(3, 1, QStringLiteral("x")); },
        [](Study &s) {
            CellAttributes a;
            a.taillePolice = 9;
            s.flexGrid[4].setAttributs(7, 7, a);
        },
        [](Study &s) { s.flexGrid[1].setOperation(5, 9, QStringLiteral("2*3")); },
        [](Study &s) { s.flexGrid3[7].setText(59, 2, QStringLiteral("y")); },
        [](Study &s) { s.roseDesVents.setText(72, 1, QStringLiteral("5")); },
        [](Study &s) { s.temperatureNuit.check1Actif[143] = false; },
        [](Study &s) { s.temperatureBaseEte = QStringLiteral("32"); },
        [](Study &s) { s.fenetre.width = 15000; },
        [](Study &s) { s.flexGrid[0].setColWidth(22, 0); },
    };
    for (size_t i = 0; i < changements.size(); ++i) {
        Study copie = original;
        EXPECT_EQ(copie, original);
        changements[i](copie);
        EXPECT_NE(copie, original) << "change " << i;
    }
}

TEST(DossierApplication, OptionThenEnvironmentThenBesideTheExecutable)
{
    qputenv("THERMIQUE_DOSSIER", "/tmp/env-dossier");
    QStringList args {QStringLiteral("a.dep"), QStringLiteral("--dossier"),
                      QStringLiteral("/tmp/opt")};
    EXPECT_EQ(DossierApplication::resoudre(args, QStringLiteral("/bin")).chemin(),
              QStringLiteral("/tmp/opt"));
    EXPECT_EQ(args, QStringList {QStringLiteral("a.dep")});

    QStringList sansOption {QStringLiteral("a.dep")};
    EXPECT_EQ(DossierApplication::resoudre(sansOption, QStringLiteral("/bin")).chemin(),
              QStringLiteral("/tmp/env-dossier"));
    qunsetenv("THERMIQUE_DOSSIER");
    EXPECT_EQ(DossierApplication::resoudre(sansOption, QStringLiteral("/opt/thermique")).chemin(),
              QStringLiteral("/opt/thermique/data"));

    const DossierApplication d(QStringLiteral("/opt/thermique/data"));
    EXPECT_EQ(d.fichier(QStringLiteral("\\Météo\\Paris.met")),
              QStringLiteral("/opt/thermique/data/Météo/Paris.met"));
    EXPECT_EQ(d.fichier(QStringLiteral("Couleur.txt")),
              QStringLiteral("/opt/thermique/data/Couleur.txt"));
}
