#include "scripteduserinterface.h"
#include "workbook/classeur.h"
#include "workbook/feuille.h"
#include "workbook/records.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using namespace thermique;

namespace {

constexpr qint32 gris = 12632256;
constexpr qint32 turquoise = 0xFFFF00;

void ecrire(const QString &chemin, const QByteArray &octets)
{
    QFile f(chemin);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(octets);
}

// Counts the hooks a sheet receives, so that tests see the recalculations happen.
struct FeuilleEspion : Feuille
{
    int lignes = 0;
    int resultats = 0;
    int tableaux = 0;
    int validations = 0;
    int formes = 0;
    void miseEnForme(Classeur &) override { ++formes; }
    void recalculerLigne(Classeur &, int) override { ++lignes; }
    void recalculerResultats(Classeur &) override { ++resultats; }
    void apresValidation(Classeur &, int, int) override { ++validations; }
    void nouveauTableau(Classeur &c, int ligne) override
    {
        ++tableaux;
        Grid &g = c.etude().flexGrid[4];
        // An empty table fits the free rows that the insertion left (no wall, no bridge).
        g.setText(ligne, 0, QStringLiteral("TableauLigne1"));
        g.setText(ligne + 1, 0, QStringLiteral("TableauInterTableau"));
    }
};

class ClasseurTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dossier.isValid());
        ecrire(dossier.filePath("Couleur.txt"), "12632256\r\n");
        classeur = std::make_unique<Classeur>(etude, ui, DossierApplication(dossier.path()));
        auto espion = std::make_unique<FeuilleEspion>();
        pertes = espion.get();
        classeur->installerFeuille(4, std::move(espion));
        classeur->ChargementInitial();
    }

    void remplirAdministratif()
    {
        Grid &g = etude.flexGrid[0];
        g.setText(9, 13, QStringLiteral("Toulon"));
        g.setText(12, 13, QStringLiteral("Maison individuelle."));
        g.setText(13, 13, QStringLiteral("(b) Exposée."));
    }

    void verrouiller(Grid &g, int r, int c) { g.cellPtr(r, c)->attributs.couleurFond = gris; }

    // A heat-loss table with a wall row at 6, as the sheet would build it.
    void tablePertes()
    {
        Grid &g = etude.flexGrid[4];
        for (int c = 0; c < g.cols(); ++c)
            verrouiller(g, 6, c);
        g.setText(4, 0, QStringLiteral("TableauLigne1"));
        g.setText(5, 0, QStringLiteral("TableauLigne2"));
        g.setText(6, 0, QStringLiteral("TableauLigneCalculParoi"));
        g.setText(7, 0, QStringLiteral("TableauLigneRenouvellementAir"));
        g.setText(8, 0, QStringLiteral("TableauLigneRésultats"));
        g.setText(9, 0, QStringLiteral("TableauInterTableau"));
        for (int c : {7, 15, 17})
            g.cellPtr(6, c)->attributs.couleurFond = CouleurSystemeFenetre;
    }

    void taper(const QString &texte)
    {
        classeur->ToucheCaractere(texte.at(0).unicode());
        classeur->SaisieTexteChange(texte);
    }

    QTemporaryDir dossier;
    Study etude;
    ScriptedUserInterface ui;
    std::unique_ptr<Classeur> classeur;
    FeuilleEspion *pertes = nullptr;
};

} // namespace

TEST_F(ClasseurTest, StartReadsTheSettingsAndShowsTheFirstSheet)
{
    EXPECT_EQ(classeur->etat().CouleurVerrouillee, gris);
    EXPECT_EQ(classeur->etat().CouleurSaisie, CouleurSystemeFenetre);
    EXPECT_EQ(classeur->etat().IgnorerCombo, 0);
    EXPECT_EQ(classeur->vue().titre, QStringLiteral(" Thermique : Bilan énergétique. "));
    EXPECT_EQ(classeur->vue().etiquetteVersion, QStringLiteral("Version : 2026-07-10"));
    EXPECT_EQ(ui.attentes,
              QStringList {QStringLiteral("Chargement des données, veuillez patienter.")});
    EXPECT_FALSE(ui.attenteVisible);
    EXPECT_FALSE(classeur->menuActif(QStringLiteral("Mnu_Rotation")));
    EXPECT_FALSE(classeur->vue().menus[QStringLiteral("Ouvrir")].visible);
    EXPECT_EQ(etude.roseDesVents.text(72, 1), QStringLiteral("0"));
}

TEST_F(ClasseurTest, MissingSettingsLeaveTheDefaults)
{
    Study autre;
    ScriptedUserInterface autreUi;
    QTemporaryDir vide;
    ecrire(vide.filePath("Couleur.txt"), "pas un nombre");
    Classeur c(autre, autreUi, DossierApplication(vide.path()));
    c.ChargementInitial();
    EXPECT_EQ(c.etat().CouleurVerrouillee, 0);
    EXPECT_FALSE(c.etat().ModeTransfert);
    EXPECT_EQ(autre.centrageFeuilles, 0);
    EXPECT_TRUE(autreUi.messages.isEmpty());
}

TEST_F(ClasseurTest, AdministrativeGatesShowOnlyTheFirstMissingCell)
{
    struct Cas
    {
        QStringList cellules; // town, use, situation
        QString message;
    };
    const Cas cas[] = {
        {{"", "", ""}, "La ville n'est pas renseignée sur la feuille ADMINISTRATIVE."},
        {{"Toulon", " ", ""},
         "L'usage du bâtiment n'est pas renseigné sur la feuille ADMINISTRATIVE."},
        {{"Toulon", "Maison individuelle.", ""},
         "La situation du bâtiment n'est pas renseigné sur la feuille ADMINISTRATIVE."},
    };
    for (const Cas &c : cas) {
        ui.messages.clear();
        for (int i = 0; i < 3; ++i)
            etude.flexGrid[0].setText(QVector<int> {9, 12, 13}[i], 13, c.cellules[i]);
        classeur->ChangementFeuille(5);
        ASSERT_EQ(ui.messages.size(), 1);
        EXPECT_EQ(ui.messages[0].texte, c.message);
        EXPECT_EQ(ui.messages[0].style, 16);
        EXPECT_EQ(classeur->etat().FeuilleActive, 0);
        // The refusal runs the entry of sheet 0 again, which clears the flag.
        EXPECT_EQ(classeur->etat().IgnorerCombo, 0);
    }
    remplirAdministratif();
    ui.messages.clear();
    classeur->ChangementFeuille(2);
    EXPECT_TRUE(ui.messages.isEmpty());
    EXPECT_EQ(classeur->etat().FeuilleActive, 1);
    EXPECT_EQ(classeur->etat().FeuilleQuittee, 0);
    EXPECT_EQ(classeur->etat().DerniereColonneSaisie, 12);
    EXPECT_TRUE(classeur->vue().boutonInformations);
    EXPECT_TRUE(classeur->vue().boutons[0].visible);
}

TEST_F(ClasseurTest, IgnorerComboLetsASwitchPass)
{
    classeur->etat().IgnorerCombo = 1;
    classeur->ChangementFeuille(3);
    EXPECT_TRUE(ui.messages.isEmpty());
    EXPECT_EQ(classeur->etat().FeuilleActive, 2);
    EXPECT_EQ(classeur->etat().IgnorerCombo, 0);
}

TEST_F(ClasseurTest, VentilationAndHeatLossNeedTheGeography)
{
    classeur->etat().IgnorerCombo = 1;
    classeur->ChangementFeuille(4);
    ASSERT_EQ(ui.messages.size(), 1);
    EXPECT_EQ(ui.messages[0].texte,
              QStringLiteral("Compléter la partie géographique de la page "
                             "Administrative avant d'atteindre cette page."));
    EXPECT_EQ(ui.messages[0].style, 48);
    EXPECT_EQ(ui.messages[0].titre, QStringLiteral("Thermique"));
    EXPECT_EQ(classeur->etat().FeuilleActive, 0);

    remplirAdministratif();
    etude.flexGrid[0].setText(13, 13, QStringLiteral(" "));
    classeur->etat().IgnorerCombo = 1;
    classeur->ChangementFeuille(4);
    EXPECT_EQ(ui.dernierMessage(),
              QStringLiteral("Compléter la partie \" site \" de la page "
                             "Administrative avant d'atteindre cette page."));
}

TEST_F(ClasseurTest, SimplifiedModeClosesBridgesAndVentilation)
{
    remplirAdministratif();
    classeur->etat().ModeTransfert = true;
    classeur->ChangementFeuille(3);
    EXPECT_EQ(ui.dernierMessage(),
              QStringLiteral("Onglet inaccessible dans la version simplifiée "
                             "du calcul des pertes de chaleur."));
    EXPECT_EQ(classeur->etat().FeuilleActive, 0);
}

TEST_F(ClasseurTest, TypedOperationIsStoredEvaluatedAndReplayed)
{
    remplirAdministratif();
    tablePertes();
    classeur->ChangementFeuille(5);
    ASSERT_EQ(classeur->etat().FeuilleActive, 4);
    classeur->CliqueCellule(6, 15);
    taper(QStringLiteral("2.00*1.25-(0.88*1.08)*2"));
    EXPECT_TRUE(classeur->vue().saisie.visible);
    EXPECT_TRUE(classeur->SaisieTouche(Touche::Entree, 0, false, true));
    Grid &g = etude.flexGrid[4];
    EXPECT_EQ(g.text(6, 15), QStringLiteral("0.60"));
    EXPECT_EQ(g.operation(6, 15), QStringLiteral("2.00*1.25-(0.88*1.08)*2"));
    EXPECT_EQ(classeur->etat().EtudeModifiee, 1);
    EXPECT_EQ(pertes->validations, 1);
    // Enter goes on to the next input cell to the right.
    EXPECT_EQ(g.col, 17);

    // The box opens on the operation, turquoise; Escape keeps the computed value.
    classeur->DoubleCliqueCellule(6, 15);
    EXPECT_EQ(classeur->vue().saisie.texte, QStringLiteral("2.00*1.25-(0.88*1.08)*2"));
    EXPECT_EQ(classeur->vue().saisie.couleurFond, turquoise);
    classeur->SaisieTexteChange(QStringLiteral("999"));
    EXPECT_TRUE(classeur->SaisieTouche(Touche::Echap, 0, false, true));
    EXPECT_FALSE(classeur->vue().saisie.visible);
    EXPECT_EQ(g.text(6, 15), QStringLiteral("0.60"));
    EXPECT_EQ(g.operation(6, 15), QStringLiteral("2.00*1.25-(0.88*1.08)*2"));

    // Large values keep two decimals with the no-break space; the inclination prints plain.
    classeur->CliqueCellule(6, 15);
    taper(QStringLiteral("12000.5*2"));
    classeur->SaisiePerteFocus();
    EXPECT_EQ(g.text(6, 15), QStringLiteral("24\u00A0001.00"));
    classeur->CliqueCellule(6, 7);
    taper(QStringLiteral("45/2"));
    classeur->SaisiePerteFocus();
    EXPECT_EQ(g.text(6, 7), QStringLiteral("22.5"));
}

TEST_F(ClasseurTest, FailedOperationShowsItsMessageAndZero)
{
    remplirAdministratif();
    tablePertes();
    classeur->ChangementFeuille(5);
    classeur->CliqueCellule(6, 15);
    taper(QStringLiteral("2x3"));
    classeur->SaisiePerteFocus();
    EXPECT_EQ(ui.dernierMessage(), QStringLiteral("Caractère non compatible."));
    EXPECT_EQ(ui.messages.last().titre, QStringLiteral(" Thermique."));
    EXPECT_EQ(etude.flexGrid[4].text(6, 15), QStringLiteral("0.00"));
    // The faulty text comes back at the next edit.
    classeur->DoubleCliqueCellule(6, 15);
    EXPECT_EQ(classeur->vue().saisie.texte, QStringLiteral("2x3"));
}

TEST_F(ClasseurTest, DownOnTheLastRowOfTheHeatLossSheetAddsAMergedBlankRow)
{
    remplirAdministratif();
    classeur->ChangementFeuille(5);
    Grid &g = etude.flexGrid[4];
    const int rows = g.rows();
    g.row = rows - 1;
    g.col = 2;
    classeur->ToucheEnfoncee(Touche::Bas, 0);
    ASSERT_EQ(g.rows(), rows + 1);
    EXPECT_TRUE(g.mergeRow(rows));
    EXPECT_EQ(g.text(rows, 5), QStringLiteral(" "));
    EXPECT_EQ(g.row, rows);
    // The new row has its operation slots.
    g.setOperation(rows, 17, QStringLiteral("1+1"));
    EXPECT_EQ(g.operationAt(g.indexLineaire(rows, 17)), QStringLiteral("1+1"));
}

TEST_F(ClasseurTest, CoefUKeysInsertRemoveAndToggle)
{
    remplirAdministratif();
    classeur->ChangementFeuille(2);
    Grid &g = etude.flexGrid[1];
    g.setText(5, 1, QStringLiteral("Mur extérieur"));
    g.setText(5, 6, QStringLiteral("Béton"));
    g.setText(6, 6, QStringLiteral("Isolant"));
    g.setOperation(6, 9, QStringLiteral("0.1*2"));
    verrouiller(g, 5, 3);
    const int rows = g.rows();
    g.row = 5;
    g.col = 6;
    classeur->ToucheEnfoncee(Touche::F2, 0);
    EXPECT_EQ(g.rows(), rows + 1);
    EXPECT_TRUE(g.text(6, 6).isEmpty());
    EXPECT_EQ(g.text(7, 6), QStringLiteral("Isolant"));
    EXPECT_EQ(g.operation(7, 9), QStringLiteral("0.1*2"));
    // The new line takes the colours of the active one, and the cursor goes to column 6.
    EXPECT_EQ(g.attributs(6, 3).couleurFond, gris);
    EXPECT_EQ(g.row, 6);
    EXPECT_EQ(g.col, 6);

    classeur->ToucheEnfoncee(Touche::S, Touche::MasqueCtrl);
    EXPECT_EQ(g.rows(), rows);
    EXPECT_EQ(g.text(6, 6), QStringLiteral("Isolant"));

    g.row = 6;
    g.col = 4;
    classeur->ToucheEnfoncee(Touche::F5, 0);
    EXPECT_EQ(g.attributs(6, 4).couleurFond, gris);
    classeur->ToucheEnfoncee(Touche::F4, 0);
    for (int c = 1; c <= 12; ++c)
        EXPECT_EQ(g.attributs(6, c).couleurFond, CouleurSystemeFenetre) << c;
    classeur->ToucheEnfoncee(Touche::F6, 0);
    EXPECT_TRUE(g.attributs(6, 4).gras);
}

TEST_F(ClasseurTest, WallUsedOnTheHeatLossSheetCannotBeDeleted)
{
    remplirAdministratif();
    classeur->ChangementFeuille(2);
    Grid &g = etude.flexGrid[1];
    g.setText(5, 0, QStringLiteral("0007"));
    g.setText(5, 1, QStringLiteral("Mur"));
    etude.flexGrid[4].setText(30, 20, QStringLiteral("0007"));
    const int rowsAvant = g.rows();
    g.row = 5;
    g.col = 1;
    classeur->ToucheEnfoncee(Touche::F3, 0);
    EXPECT_EQ(ui.dernierMessage(),
              QStringLiteral("Il n'est pas possible d'effacer une paroi dans cette feuille "
                             "lorsqu'elle est également présente dans la feuille de calcul des "
                             "pertes de chaleur."));
    EXPECT_EQ(g.rows(), rowsAvant);
    EXPECT_EQ(g.text(5, 1), QStringLiteral("Mur"));

    // Not used: a question, then the wall goes with the blank rows round it.
    etude.flexGrid[4].setText(30, 20, QString());
    g.setText(3, 1, QStringLiteral("Premier mur"));
    g.setText(3, 11, QStringLiteral("0.36"));
    g.setText(6, 6, QStringLiteral("couche"));
    g.setText(8, 1, QStringLiteral("Suivant"));
    ui.reponses.enqueue(ReponseOui);
    const int rows = g.rows();
    classeur->ToucheEnfoncee(Touche::F3, 0);
    EXPECT_EQ(ui.dernierMessage(),
              QStringLiteral("Attention, effacement irrémédiable de la paroi."));
    EXPECT_EQ(g.rows(), rows - 4);
    EXPECT_EQ(g.text(4, 1), QStringLiteral("Suivant"));
}

TEST_F(ClasseurTest, StrictFiltersRefuseKeysWithBothMessages)
{
    remplirAdministratif();
    tablePertes();
    classeur->ChangementFeuille(5);
    classeur->etat().SaisieControlee = true;
    Grid &g = etude.flexGrid[4];
    g.row = 6;
    g.col = 17;
    classeur->ToucheEnfoncee('X', 0);
    EXPECT_EQ(ui.dernierMessage(), QStringLiteral("Saisie non autorisée ici. 88"));
    classeur->ToucheCaractere('x');
    EXPECT_EQ(ui.dernierMessage(), QStringLiteral("Saisie non autorisé ici. 120"));
    EXPECT_FALSE(classeur->vue().saisie.visible);
    // Digits pass, and so do the blank and "B" on key press.
    const int avant = int(ui.messages.size());
    classeur->ToucheEnfoncee(Touche::Droite, 0);
    g.col = 17;
    classeur->ToucheCaractere('7');
    classeur->AnnulerSaisie();
    classeur->ToucheCaractere('B');
    EXPECT_EQ(ui.messages.size(), avant);
    EXPECT_TRUE(classeur->vue().saisie.visible);
}

TEST_F(ClasseurTest, WallColumnTakesOnlyTheRightButton)
{
    remplirAdministratif();
    tablePertes();
    classeur->ChangementFeuille(5);
    etude.flexGrid[4].cellPtr(6, 8)->attributs.couleurFond = CouleurSystemeFenetre;
    classeur->CliqueCellule(6, 8);
    classeur->ToucheCaractere('1');
    EXPECT_EQ(
        ui.dernierMessage(),
        QStringLiteral("Dans cette colonne, vous ne devez cliquer qu'avec le bouton droit !"));
    classeur->DoubleCliqueCellule(6, 8);
    EXPECT_EQ(
        ui.dernierMessage(),
        QStringLiteral("Dans cette colonne, vous ne devez que cliquer avec le bouton droit !"));
    EXPECT_FALSE(classeur->vue().saisie.visible);
}

TEST_F(ClasseurTest, LockedCellsAreSkippedByClickAndArrows)
{
    remplirAdministratif();
    classeur->ChangementFeuille(2);
    Grid &g = etude.flexGrid[1];
    for (int c = 1; c <= 12; ++c)
        verrouiller(g, 8, c);
    verrouiller(g, 9, 1);
    classeur->CliqueCellule(5, 3);
    // Clicked below: the search goes forward, from column 1 of the row.
    classeur->CliqueCellule(8, 4);
    EXPECT_EQ(g.row, 9);
    EXPECT_EQ(g.col, 2);
    EXPECT_FALSE(classeur->vue().saisie.visible);
    classeur->DoubleCliqueCellule(8, 4);
    EXPECT_FALSE(classeur->vue().saisie.visible);
    // Up onto the locked row searches upward from its last input column.
    classeur->CliqueCellule(9, 5);
    classeur->ToucheEnfoncee(Touche::Haut, 0);
    EXPECT_EQ(g.row, 7);
    EXPECT_EQ(g.col, 12);
    // Right stops at the last input column; Left on column 1 stays on column 1.
    classeur->ToucheEnfoncee(Touche::Droite, 0);
    EXPECT_EQ(g.col, 12);
    g.col = 1;
    classeur->ToucheEnfoncee(Touche::Gauche, 0);
    EXPECT_EQ(g.col, 1);
}

TEST_F(ClasseurTest, AdministrativeMergedRangesTakeTheSameText)
{
    classeur->CliqueCellule(4, 3);
    taper(QStringLiteral("Maison Dupont"));
    classeur->SaisiePerteFocus();
    for (int c = 1; c <= 11; ++c)
        EXPECT_EQ(etude.flexGrid[0].text(4, c), QStringLiteral("Maison Dupont")) << c;
    EXPECT_TRUE(etude.flexGrid[0].text(4, 12).isEmpty());
    // Delete clears through the box: two blanks on row 4, three beyond column 12.
    etude.flexGrid[0].row = 4;
    etude.flexGrid[0].col = 5;
    classeur->ToucheEnfoncee(Touche::Suppr, 0);
    EXPECT_EQ(etude.flexGrid[0].text(4, 1), QStringLiteral("  "));
    etude.flexGrid[0].col = 14;
    classeur->ToucheEnfoncee(Touche::Suppr, 0);
    EXPECT_EQ(etude.flexGrid[0].text(4, 22), QStringLiteral("   "));
}

TEST_F(ClasseurTest, DeleteOnTheHeatLossSheetClearsOperationsAndRecalculates)
{
    remplirAdministratif();
    tablePertes();
    classeur->ChangementFeuille(5);
    Grid &g = etude.flexGrid[4];
    g.setText(6, 15, QStringLiteral("4.00"));
    g.setOperation(6, 15, QStringLiteral("2*2"));
    g.setText(6, 12, QStringLiteral("0.36"));
    const int avant = pertes->resultats;
    g.row = 6;
    g.col = 12;
    g.rowSel = 6;
    g.colSel = 15;
    classeur->ToucheEnfoncee(Touche::Suppr, 0);
    EXPECT_EQ(g.text(6, 15), QStringLiteral(" "));
    EXPECT_TRUE(g.operation(6, 15).isEmpty());
    // A locked copy of the wall's U stays.
    EXPECT_EQ(g.text(6, 12), QStringLiteral("0.36"));
    EXPECT_EQ(pertes->resultats, avant + 1);
    EXPECT_EQ(classeur->etat().MiseAJourResultats, 0);
}

TEST_F(ClasseurTest, HeatLossLinesRefuseRemovalOutsideWallsAndTables)
{
    remplirAdministratif();
    tablePertes();
    classeur->ChangementFeuille(5);
    Grid &g = etude.flexGrid[4];
    const int rows = g.rows();
    for (int r : {5, 7, 8, 9}) {
        g.row = r;
        g.col = 3;
        classeur->Bouton(1);
        EXPECT_EQ(g.rows(), rows) << r;
    }
    // From the head row, the question removes the whole table.
    g.row = 4;
    ui.reponses.enqueue(ReponseOui);
    classeur->Bouton(1);
    EXPECT_EQ(ui.dernierMessage(),
              QStringLiteral("Attention, depuis cette ligne la commande efface le tableau "
                             "complet du local."));
    EXPECT_EQ(g.rows(), rows - 6);
    EXPECT_NE(g.text(4, 0), QStringLiteral("TableauLigne1"));
}

TEST_F(ClasseurTest, CopyAndPasteOfARoomTable)
{
    remplirAdministratif();
    tablePertes();
    classeur->ChangementFeuille(5);
    Grid &g = etude.flexGrid[4];
    g.setText(4, 2, QStringLiteral("Séjour"));
    g.setOperation(6, 15, QStringLiteral("3*4"));
    g.row = 6;
    g.col = 2;
    classeur->ToucheEnfoncee(Touche::C, Touche::MasqueCtrl);
    EXPECT_EQ(ui.dernierMessage(),
              QStringLiteral("Pour copier un tableau la cellule active doit "
                             "se situer dans la cellule nom du local."));
    EXPECT_FALSE(classeur->vue().boutons[7].actif);
    g.row = 4;
    classeur->ToucheEnfoncee(Touche::C, Touche::MasqueCtrl);
    EXPECT_TRUE(classeur->vue().boutons[7].actif);
    g.row = 12;
    g.col = 2;
    const int rows = g.rows();
    const int lignesAvant = pertes->lignes;
    classeur->ToucheEnfoncee(Touche::V, Touche::MasqueCtrl);
    EXPECT_EQ(g.rows(), rows + 6);
    EXPECT_EQ(g.text(12, 0), QStringLiteral("TableauLigne1"));
    EXPECT_EQ(g.text(12, 2), QStringLiteral("Séjour"));
    EXPECT_EQ(g.operation(14, 15), QStringLiteral("3*4"));
    EXPECT_EQ(g.text(17, 0), QStringLiteral("TableauInterTableau"));
    EXPECT_EQ(pertes->lignes, lignesAvant + 1);
    // The pasted rows are dressed again by their codes.
    EXPECT_GE(pertes->formes, 1);
}

TEST_F(ClasseurTest, TableInsertionNeedsAFreeRowOrATableHead)
{
    remplirAdministratif();
    tablePertes();
    classeur->ChangementFeuille(5);
    Grid &g = etude.flexGrid[4];
    g.row = 6;
    g.col = 2;
    classeur->ToucheEnfoncee(Touche::T, Touche::MasqueCtrl);
    EXPECT_TRUE(
        ui.dernierMessage().startsWith(QStringLiteral("Pour insérer un nouveau tableau :")));
    const int tableaux = pertes->tableaux;
    // On the head of a table, the new one goes before it.
    g.row = 4;
    classeur->ToucheEnfoncee(Touche::T, Touche::MasqueCtrl);
    EXPECT_EQ(pertes->tableaux, tableaux + 1);
    EXPECT_EQ(g.text(4, 0), QStringLiteral("TableauLigne1"));
    int tetes = 0;
    for (int r = 0; r < g.rows(); ++r)
        tetes += g.text(r, 0) == QLatin1String("TableauLigne1");
    EXPECT_EQ(tetes, 2);
    EXPECT_EQ(classeur->etat().InsertionTableau, 0);
}

TEST_F(ClasseurTest, BlockPlaceRefusesARowHoldingABlank)
{
    Grid &g = etude.flexGrid[1];
    g.setText(12, 7, QStringLiteral(" "));
    EXPECT_TRUE(classeur->VerifierPlace(3, 11));
    EXPECT_FALSE(classeur->VerifierPlace(10, 14));
    EXPECT_EQ(ui.dernierMessage(),
              QStringLiteral("La plage de cellules disponibles pour "
                             "l'insertion est insuffisante !\r\nUn espace, "
                             "invisible dans une ligne, peut faire qu'une "
                             "ligne ne soit pas vide.\r\nInsérez des lignes."));
    EXPECT_EQ(ui.messages.last().style, 16);
    EXPECT_EQ(classeur->etat().IgnorerCombo, 1);
    // The grid grows first to hold the block.
    EXPECT_TRUE(classeur->VerifierPlace(60, 70));
    EXPECT_GE(g.rows(), 71);
}

TEST_F(ClasseurTest, ChangedWallReachesTheHeatLossRowsOnEntry)
{
    remplirAdministratif();
    Grid &parois = etude.flexGrid[1];
    parois.setText(5, 1, QStringLiteral("Mur nord"));
    parois.setText(5, 3, QStringLiteral("A1"));
    parois.setText(5, 11, QStringLiteral("0.360"));
    classeur->ChangementFeuille(5);
    const QString numero = parois.text(5, 0);
    EXPECT_EQ(numero, QStringLiteral("0001"));
    ASSERT_EQ(classeur->etat().ListeParois.size(), 1);
    EXPECT_EQ(classeur->etat().ListeParois[0], QStringLiteral("Mur nord@A1@@@0.360@@0001"));
    Grid &pertes4 = etude.flexGrid[4];
    pertes4.setText(20, 20, numero);
    pertes4.setText(20, 12, QStringLiteral("0.360"));
    classeur->ChangementFeuille(2);
    parois.setText(5, 11, QStringLiteral("0.250"));
    const int lignes = pertes->lignes;
    classeur->ChangementFeuille(5);
    EXPECT_EQ(pertes4.text(20, 12), QStringLiteral("0.250"));
    EXPECT_EQ(pertes4.text(20, 0), QStringLiteral("TableauLigneCalculParoi"));
    EXPECT_EQ(pertes4.text(20, 3), QStringLiteral("Mur nord"));
    EXPECT_EQ(pertes4.attributs(20, 12).couleurFond, gris);
    EXPECT_EQ(pertes->lignes, lignes + 1);
    EXPECT_TRUE(
        ui.attentes.contains(QStringLiteral("Mise à jour des calculs, veuillez patienter.")));
}

TEST_F(ClasseurTest, ClosingAsksOnlyWhenTheStudyChanged)
{
    EXPECT_TRUE(classeur->Fermeture());
    EXPECT_TRUE(ui.messages.isEmpty());
    RecordReader positions(QByteArray([&] {
        QFile f(dossier.filePath("PositionsFeuilles.ini"));
        f.open(QIODevice::ReadOnly);
        return f.readAll();
    }()));
    EXPECT_EQ(positions.readBoolean(), false);
    EXPECT_EQ(positions.readInteger(), 0);

    int enregistrements = 0;
    classeur->extensions.enregistrerSous = [&] {
        ++enregistrements;
    };
    classeur->marquerModifiee();
    ui.reponses.enqueue(ReponseOui);
    EXPECT_TRUE(classeur->Fermeture());
    EXPECT_EQ(ui.dernierMessage(), QStringLiteral("Enregistrement du fichier ?"));
    EXPECT_EQ(ui.messages.last().titre, QStringLiteral("Thermique."));
    EXPECT_EQ(enregistrements, 1);
}

TEST_F(ClasseurTest, LockedColourChangesRepaintAndRefuseTheInputColour)
{
    Grid &g = etude.flexGrid[2];
    verrouiller(g, 3, 3);
    classeur->ChangerCouleurVerrouillee(CouleurSystemeFenetre);
    EXPECT_EQ(classeur->etat().CouleurVerrouillee, gris);
    classeur->Menu(QStringLiteral("Mnu_CouleurDéfaut"));
    EXPECT_EQ(classeur->etat().CouleurVerrouillee, CouleurSystemeInfoBulle);
    EXPECT_EQ(g.attributs(3, 3).couleurFond, CouleurSystemeInfoBulle);
    QFile f(dossier.filePath("Couleur.txt"));
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), QByteArray("-2147483624\r\n"));
}

TEST_F(ClasseurTest, OldFilesEntrySwitchesTheCaptions)
{
    classeur->extensions.ouvrirAncienFichier = [] {
    };
    classeur->Menu(QStringLiteral("Mnu_FichiersAnciens"));
    EXPECT_EQ(classeur->vue().menus[QStringLiteral("MnuOuvrir")].libelle,
              QStringLiteral("&Ouvrir (nouveau fichier)"));
    EXPECT_TRUE(classeur->vue().menus[QStringLiteral("Ouvrir")].visible);
    classeur->Menu(QStringLiteral("Mnu_FichiersAnciens"));
    EXPECT_EQ(classeur->vue().menus[QStringLiteral("MnuOuvrir")].libelle,
              QStringLiteral("&Ouvrir"));
    EXPECT_FALSE(classeur->vue().menus[QStringLiteral("Ouvrir")].visible);
    // An entry whose action does not exist yet is shown disabled.
    EXPECT_FALSE(classeur->vue().menus[QStringLiteral("MnuIdentité")].actif);
}
