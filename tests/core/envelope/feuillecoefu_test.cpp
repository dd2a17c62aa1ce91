#include "envelope/coefu/feuillecoefu.h"
#include "envelope/library/composants.h"
#include "scripteduserinterface.h"
#include "workbook/classeur.h"
#include "workbook/etatvue.h"
#include "workbook/fichierprojet.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using namespace thermique;
namespace C = ColonneParoi;

namespace {

constexpr qint32 gris = 12632256;
const QString messageInvalide
    = QStringLiteral("La sélection dans la colonne 1 de la ligne en cours est incorrecte !\r\n"
                     "Le calcul ne peut pas être poursuivi.\r\n"
                     "Voir l'aide en bas de page concernant la colonne 1.");

class FeuilleCoefUTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dossier.isValid());
        QFile f(dossier.filePath("Couleur.txt"));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write("12632256\r\n");
        f.close();
        classeur = std::make_unique<Classeur>(etude, ui, DossierApplication(dossier.path()));
        auto feuille = std::make_unique<FeuilleCoefU>();
        coefU = feuille.get();
        classeur->installerFeuille(1, std::move(feuille));
        classeur->ChargementInitial();
        Grid &admin = etude.flexGrid[0];
        admin.setText(9, 13, QStringLiteral("Toulon"));
        admin.setText(12, 13, QStringLiteral("Maison individuelle."));
        admin.setText(13, 13, QStringLiteral("(b) Exposée."));
        classeur->ChangementFeuille(2);
        ASSERT_EQ(classeur->etat().FeuilleActive, 1);
    }

    Grid &g() { return etude.flexGrid[1]; }

    // The user picks a type in the list of column 1 on a free row.
    void choisirType(int ligne, const QString &type)
    {
        classeur->CliqueCellule(ligne, C::Nom);
        ASSERT_TRUE(classeur->vue().listes[1].visible);
        classeur->ChoixListe(1, int(TypesParois().indexOf(type)));
    }

    // Types a text in a cell and presses Enter.
    void saisir(int ligne, int colonne, const QString &texte)
    {
        classeur->CliqueCellule(ligne, colonne);
        classeur->ToucheCaractere(texte.at(0).unicode());
        classeur->SaisieTexteChange(texte);
        classeur->SaisieTouche(Touche::Entree, 0, false, true);
    }

    // The components window stands for the user choosing `nom`.
    void composant(int ligne, const QString &nom, const Composant &c)
    {
        ui.formulaires[QStringLiteral("frm_Composants")] = [&, ligne, nom, c] {
            ContexteParois ctx = coefU->contexte(*classeur);
            AppliquerComposant(ctx, ligne, nom, c);
            return true;
        };
        classeur->ClicDroitCellule(ligne, C::Libelle);
    }

    QTemporaryDir dossier;
    Study etude;
    ScriptedUserInterface ui;
    std::unique_ptr<Classeur> classeur;
    FeuilleCoefU *coefU = nullptr;
};

} // namespace

TEST_F(FeuilleCoefUTest, HeadingsWidthsAndTypeList)
{
    EXPECT_EQ(g().rows(), 40);
    EXPECT_EQ(g().cols(), 14);
    EXPECT_EQ(g().fixedRows, 3);
    const char *ligne1[] = {"",  "Paroi", "Teint",      "Code", "m",      "S",      "Composant",
                            "d", "λ",     "Rsi et Rse", "R",    "U jour", "U nuit", ""};
    const char *ligne2[]
        = {"",    "Paroi", "Teint",    "Code",     "m",        "S",        "Composant",
           "(m)", "(W/m)", "(m².K)/W", "(m².K)/W", "W/(m².K)", "W/(m².K)", ""};
    const int largeurs[] = {10, 3200, 600, 590, 450, 450, 6500, 680, 620, 1000, 900, 900, 900, 10};
    for (int c = 0; c < 14; ++c) {
        EXPECT_EQ(g().text(1, c), QString::fromUtf8(ligne1[c])) << c;
        EXPECT_EQ(g().text(2, c), QString::fromUtf8(ligne2[c])) << c;
        EXPECT_EQ(g().colWidth(c), largeurs[c]) << c;
        EXPECT_EQ(g().mergeCol(c), c >= 1 && c <= 6) << c;
    }
    classeur->CliqueCellule(5, C::Nom);
    const ListeDeroulante &l = classeur->vue().listes[1];
    ASSERT_TRUE(l.visible);
    ASSERT_EQ(l.elements.size(), 16);
    EXPECT_EQ(l.elements.first(), QStringLiteral("Mur Ext."));
    EXPECT_EQ(l.elements[10], QStringLiteral("Plaf. sous  Terr."));
    EXPECT_EQ(l.elements.last(), QStringLiteral("Plaf. sous local chauffé, (sans calorifuites)."));
    // Column 1 of a row that holds anything opens nothing.
    classeur->FermerListes();
    g().setText(6, 6, QStringLiteral("note"));
    classeur->CliqueCellule(6, C::Nom);
    EXPECT_FALSE(classeur->vue().listes[1].visible);
}

TEST_F(FeuilleCoefUTest, PlainBlocksAsTabled)
{
    struct Cas
    {
        const char *type, *code, *teinte, *sortie, *rse, *entree, *rsi, *u;
    };
    const Cas cas[] = {
        {"Mur Ext.", "A1", "Moyen", "Résistance de sortie mur extérieur", "0.040",
         "Résistance d'entrée mur extérieur", "0.130", "5.88"},
        {"Mur Int.", "A1", "", "Résistance de sortie mur intérieur", "0.130",
         "Résistance d'entrée mur intérieur", "0.130", "3.85"},
        {"Plan. sur VS.", "A4", "", "Résistance de sortie Plan. VS", "0.170",
         "Résistance d'entrée Plan. VS", "0.170", "2.94"},
        {"Plan. sur Sous-Sol.", "A4", "", "Résistance de sortie plancher sur sous-sol", "0.170",
         "Résistance d'entrée plancher sur sous-sol", "0.170", "2.94"},
        {"Plan. sur Ext.", "A4", "", "Résistance de sortie Plan. Ext.", "0.040",
         "Résistance d'entrée Plan. Ext.", "0.170", "4.76"},
        {"Plaf. sous  Terr.", "A3", "Moyen", "Résistance de sortie plafond sous terrasse", "0.040",
         "Résistance d'entrée plafond sous terrasse", "0.100", "7.14"},
        {"Plaf. sous Comble.", "A2", "", "Résistance de sortie plafond sous comble", "0.100",
         "Résistance d'entrée plafond sous comble", "0.100", "5.00"},
        {"Plaf. sous Ramp.", "A2", "Moyen", "Résistance de sortie plafond sous rampant", "0.040",
         "Résistance d'entrée plafond sous rampant", "0.100", "7.14"},
    };
    int ligne = 3;
    int cle = 0;
    for (const Cas &c : cas) {
        SCOPED_TRACE(c.type);
        choisirType(ligne, QString::fromUtf8(c.type));
        EXPECT_EQ(g().text(ligne, C::Cle),
                  QStringLiteral("%1").arg(++cle, 4, 10, QLatin1Char('0')));
        EXPECT_EQ(g().text(ligne, C::Nom), QString::fromUtf8(c.type));
        EXPECT_EQ(g().text(ligne, C::Cache), QString::fromUtf8(c.type));
        EXPECT_EQ(g().text(ligne, C::Code), QString::fromUtf8(c.code));
        EXPECT_EQ(g().text(ligne, C::Teinte), QString::fromUtf8(c.teinte));
        EXPECT_EQ(g().text(ligne, C::Libelle), QString::fromUtf8(c.sortie));
        EXPECT_EQ(g().text(ligne, C::ResistanceSuperficielle), QString::fromUtf8(c.rse));
        EXPECT_EQ(g().text(ligne + 4, C::Libelle), QString::fromUtf8(c.entree));
        EXPECT_EQ(g().text(ligne + 4, C::ResistanceSuperficielle), QString::fromUtf8(c.rsi));
        // No layer: U = 1/(Rse + Rsi), on the results row and on the head.
        EXPECT_EQ(g().text(ligne + 5, C::UJour), QString::fromUtf8(c.u));
        EXPECT_EQ(g().text(ligne + 5, C::UNuit), QString::fromUtf8(c.u));
        EXPECT_EQ(g().text(ligne, C::UJour), QString::fromUtf8(c.u));
        // Labels are locked, layer cells take input.
        EXPECT_TRUE(g().estVerrouillee(ligne, C::Libelle, gris));
        EXPECT_FALSE(g().estVerrouillee(ligne, C::ResistanceSuperficielle, gris));
        EXPECT_FALSE(g().estVerrouillee(ligne + 1, C::Epaisseur, gris));
        EXPECT_TRUE(g().estVerrouillee(ligne + 5, C::UJour, gris));
        ligne += 6;
    }
    EXPECT_EQ(etude.compteurParois, cle);
    // The "Mur Ext." block: ΣR 0.170, S = 5.88·0.5/7.6923, and the empty phase shift.
    EXPECT_EQ(g().text(8, C::Resistance), QStringLiteral("0.170"));
    EXPECT_EQ(g().text(3, C::FacteurSolaire), QStringLiteral("0.38"));
    EXPECT_EQ(g().text(8, C::Libelle), QStringLiteral("Déphasage thermique de la paroi : "));
    // No phase shift for inner walls and floors.
    EXPECT_EQ(g().text(14, C::Libelle), QString());
    EXPECT_EQ(g().text(20, C::Libelle), QString());
}

TEST_F(FeuilleCoefUTest, ReplayedWallWithComponentsAndThicknesses)
{
    choisirType(3, QStringLiteral("Mur Ext."));
    // Outside to inside: hollow block by its typed R, insulation, plaster.
    saisir(4, C::Libelle, QStringLiteral("Parpaing creux 20 cm"));
    saisir(4, C::Epaisseur, QStringLiteral("0.20"));
    saisir(4, C::Resistance, QStringLiteral("0.23"));
    composant(5, QStringLiteral("Polystyrène expansé"),
              {QStringLiteral("EN ISO 10456"), QStringLiteral("15"), QStringLiteral("0.032"),
               QStringLiteral("1450"), QStringLiteral("60"), QStringLiteral("60"), QString()});
    saisir(5, C::Epaisseur, QStringLiteral("0.05*2"));
    composant(6, QStringLiteral("Plaque de plâtre"),
              {QString(), QStringLiteral("900"), QStringLiteral("0.25"), QStringLiteral("1000"),
               QStringLiteral("10"), QStringLiteral("4"), QString()});
    saisir(6, C::Epaisseur, QStringLiteral("0.013"));

    EXPECT_TRUE(ui.messages.isEmpty()) << ui.dernierMessage().toStdString();
    EXPECT_EQ(g().text(4, C::Epaisseur), QStringLiteral("0.2000"));
    EXPECT_EQ(g().text(4, C::Resistance), QStringLiteral("0.230")); // typed R, blank λ
    EXPECT_EQ(g().text(5, C::Epaisseur), QStringLiteral("0.1000"));
    EXPECT_EQ(g().operation(5, C::Epaisseur), QStringLiteral("0.05*2"));
    EXPECT_EQ(g().text(5, C::Conductivite), QStringLiteral("0.032"));
    EXPECT_EQ(g().text(5, C::Resistance), QStringLiteral("3.125"));
    EXPECT_EQ(g().text(5, C::Cache), QStringLiteral("15£1450£60£"));
    EXPECT_EQ(g().text(6, C::Resistance), QStringLiteral("0.052"));
    // 0.040 + 0.230 + 3.125 + 0.052 + 0.130.
    EXPECT_EQ(g().text(8, C::Resistance), QStringLiteral("3.577"));
    EXPECT_EQ(g().text(8, C::UJour), QStringLiteral("0.28"));
    EXPECT_EQ(g().text(3, C::UNuit), QStringLiteral("0.28"));
    EXPECT_EQ(g().text(3, C::FacteurSolaire), QStringLiteral("0.02"));
    // The block has a layer with no component text.
    EXPECT_EQ(g().text(8, C::Libelle),
              QStringLiteral("Déphasage thermique de la paroi : Non déterminé."));

    // The wall reaches the pick list with its key.
    classeur->ConstruireListes();
    EXPECT_EQ(classeur->etat().ListeParois,
              QStringList {QStringLiteral("Mur Ext.@A1@@0.02@0.28@0.28@0001")});

    // A dark tint from the list changes S.
    classeur->ClicDroitCellule(3, C::Teinte);
    ASSERT_TRUE(classeur->vue().listes[1].visible);
    EXPECT_EQ(classeur->vue().listes[1].elements,
              (QStringList {"Clair", "Moyen", "Sombre", "Noir"}));
    classeur->ChoixListe(1, 3);
    EXPECT_EQ(g().text(3, C::Teinte), QStringLiteral("Noir"));
    EXPECT_EQ(g().text(3, C::FacteurSolaire), QStringLiteral("0.03"));

    // Saved and read back, the sheet is the same, operations and key counter included.
    Study relue;
    ASSERT_TRUE(LireEtude(EcrireEtude(etude).dep, relue));
    const Grid &r = relue.flexGrid[1];
    ASSERT_EQ(r.rows(), g().rows());
    for (int l = 0; l < r.rows(); ++l)
        for (int c = 0; c < r.cols(); ++c) {
            EXPECT_EQ(r.text(l, c), g().text(l, c)) << l << "," << c;
            EXPECT_EQ(r.operation(l, c), g().operation(l, c)) << l << "," << c;
            EXPECT_EQ(r.attributs(l, c).couleurFond, g().attributs(l, c).couleurFond);
        }
    EXPECT_EQ(relue.compteurParois, 1);
}

TEST_F(FeuilleCoefUTest, PhaseShiftOfAConcreteWallAndAbsorptionColours)
{
    choisirType(3, QStringLiteral("Mur Ext."));
    composant(4, QStringLiteral("Béton plein"),
              {QString(), QStringLiteral("2300"), QStringLiteral("2.0"), QStringLiteral("1000"),
               QStringLiteral("130"), QStringLiteral("80"), QString()});
    saisir(4, C::Epaisseur, QStringLiteral("0.20"));
    composant(5, QStringLiteral("Lame d'air verticale non ventilée, flux horizontal"), {});
    saisir(5, C::Epaisseur, QStringLiteral("0.02"));
    EXPECT_EQ(g().text(8, C::Libelle),
              QStringLiteral("Déphasage thermique de la paroi : 4 h 55 mn"));

    // An absorption value gives the colour list, whose choice writes the value.
    saisir(3, C::Teinte, QStringLiteral("0.80"));
    classeur->ClicDroitCellule(3, C::Teinte);
    const QStringList couleurs = classeur->vue().listes[1].elements;
    ASSERT_EQ(couleurs.size(), 13);
    classeur->ChoixListe(1, int(couleurs.indexOf(QStringLiteral("Bleu sombre"))));
    EXPECT_EQ(g().text(3, C::Teinte), QStringLiteral("1.00"));
    // k = 1: S = U/7.6923 with U = 1/(0.04 + 0.1 + 0.13).
    EXPECT_EQ(g().text(3, C::UJour), QStringLiteral("3.70"));
    EXPECT_EQ(g().text(3, C::FacteurSolaire), QStringLiteral("0.48"));
}

TEST_F(FeuilleCoefUTest, BlockPlaceRefusedAndInvalidRows)
{
    // Anything in a row of the block's range stops the insertion.
    g().setText(7, 4, QStringLiteral("m"));
    choisirType(3, QStringLiteral("Mur Ext."));
    ASSERT_EQ(ui.messages.size(), 1);
    EXPECT_EQ(ui.messages[0].style, MessageArret);
    EXPECT_EQ(ui.messages[0].titre, QStringLiteral("Thermique"));
    EXPECT_TRUE(ui.messages[0].texte.startsWith(
        QStringLiteral("La plage de cellules disponibles pour l'insertion est insuffisante !")));
    EXPECT_EQ(classeur->etat().LigneFinBloc, 0);
    EXPECT_TRUE(g().text(3, C::Nom).isEmpty());
    EXPECT_EQ(etude.compteurParois, 0);

    // A thickness typed on a free row has no block: the three-line message.
    saisir(20, C::Epaisseur, QStringLiteral("0.1"));
    ASSERT_EQ(ui.messages.size(), 2);
    EXPECT_EQ(ui.messages[1].texte, messageInvalide);
    EXPECT_EQ(ui.messages[1].titre, QStringLiteral("Termique."));

    // Just below a block's results, the row is outside it too.
    choisirType(30, QStringLiteral("Mur Int."));
    saisir(36, C::Epaisseur, QStringLiteral("0.1"));
    ASSERT_EQ(ui.messages.size(), 3);
    EXPECT_EQ(ui.messages[2].texte, messageInvalide);
}

TEST_F(FeuilleCoefUTest, LinesInsideABlockAndWallRemoval)
{
    choisirType(3, QStringLiteral("Mur Int."));
    saisir(4, C::Epaisseur, QStringLiteral("0.1"));
    saisir(4, C::Conductivite, QStringLiteral("0.5"));
    // F2 on a layer adds a layer row with the layer's colours.
    classeur->CliqueCellule(4, C::Epaisseur);
    classeur->ToucheEnfoncee(Touche::F2, 0);
    EXPECT_EQ(g().text(8, C::Libelle), QStringLiteral("Résistance d'entrée mur intérieur"));
    EXPECT_FALSE(g().estVerrouillee(5, C::Conductivite, gris));
    saisir(5, C::Resistance, QStringLiteral("0.5"));
    // 0.13 + 0.2 + 0.5 + 0.13 = 0.96.
    EXPECT_EQ(g().text(9, C::Resistance), QStringLiteral("0.960"));
    EXPECT_EQ(g().text(9, C::UJour), QStringLiteral("1.04"));
    // F3 on that layer removes it and the block is recomputed.
    classeur->CliqueCellule(5, C::Resistance);
    classeur->ToucheEnfoncee(Touche::F3, 0);
    EXPECT_EQ(g().text(8, C::Resistance), QStringLiteral("0.460"));
    // The entry row cannot be removed.
    classeur->CliqueCellule(7, C::ResistanceSuperficielle);
    classeur->ToucheEnfoncee(Touche::F3, 0);
    EXPECT_TRUE(EstLigneEntree(g().text(7, C::Libelle)));

    // A wall used on the heat-loss sheet stays.
    etude.flexGrid[4].setText(10, 20, QStringLiteral("0001"));
    classeur->CliqueCellule(3, C::Nom);
    classeur->FermerListes();
    classeur->ToucheEnfoncee(Touche::F3, 0);
    EXPECT_EQ(ui.dernierMessage(),
              QStringLiteral("Il n'est pas possible d'effacer une paroi dans cette feuille "
                             "lorsqu'elle est également présente dans la feuille de calcul des "
                             "pertes de chaleur."));
    EXPECT_EQ(g().text(3, C::Cle), QStringLiteral("0001"));
}

TEST_F(FeuilleCoefUTest, WallAgainstTheGround)
{
    choisirType(3, QStringLiteral("Mur Ent."));
    EXPECT_EQ(g().text(6, C::Libelle), QStringLiteral("Profondeur moyenne au-dessous du sol"));
    saisir(4, C::Epaisseur, QStringLiteral("0.24"));
    saisir(4, C::Resistance, QStringLiteral("0.24"));
    // ΣR = 0.13 + 0.24 + 0.13 = 0.5 → 1/R = 2.00 until a depth is given.
    EXPECT_EQ(g().text(8, C::UJour), QStringLiteral("2.00"));
    saisir(6, C::Epaisseur, QStringLiteral("2"));
    EXPECT_EQ(g().text(6, C::Epaisseur), QStringLiteral("2.000"));
    // dw = 1, z = 2: 0.8160.
    EXPECT_EQ(g().text(8, C::UJour), QStringLiteral("0.82"));
    EXPECT_EQ(g().text(3, C::UNuit), QStringLiteral("0.82"));
    EXPECT_TRUE(ui.messages.isEmpty());
}

TEST_F(FeuilleCoefUTest, GroundFloors)
{
    // Rows 3: head, 4 A, 5 P, 6 w, 7 λs, 8 composition, 9-10 layers, 11 entry, 12 results.
    choisirType(3, QStringLiteral("Plan. TP, isol. continue."));
    const char *libelles[] = {"Résistance de sortie contact avec le sol",
                              "Aire du plancher en contact avec le sol",
                              "Périmètre du plancher mesuré côté int.",
                              "Epai. mur sup., toutes couches comprises",
                              "Conductivité thermique du sol non gelé",
                              "Composition du plancher en partie courante",
                              "",
                              "",
                              "Résistance d'entrée contact avec le sol"};
    for (int i = 0; i < 9; ++i)
        EXPECT_EQ(g().text(3 + i, C::Libelle), QString::fromUtf8(libelles[i])) << i;
    EXPECT_EQ(g().text(3, C::Code), QStringLiteral("A4"));
    saisir(4, C::Epaisseur, QStringLiteral("10*10"));
    EXPECT_EQ(g().text(4, C::Epaisseur), QStringLiteral("100.000"));
    saisir(5, C::Epaisseur, QStringLiteral("40"));
    saisir(6, C::Epaisseur, QStringLiteral("0.3"));
    saisir(9, C::Epaisseur, QStringLiteral("0.2"));
    saisir(9, C::Conductivite, QStringLiteral("2"));
    EXPECT_TRUE(g().text(12, C::UJour).isEmpty()); // λs still missing
    saisir(7, C::Epaisseur, QStringLiteral("2"));
    // dt 0.84 below B' 5.
    EXPECT_EQ(g().text(12, C::UJour), QStringLiteral("0.72"));
    EXPECT_EQ(g().text(3, C::UJour), QStringLiteral("0.72"));
    // An insulation brings dt above B': the second formula.
    saisir(10, C::Epaisseur, QStringLiteral("0.08"));
    saisir(10, C::Conductivite, QStringLiteral("0.035"));
    EXPECT_EQ(g().text(10, C::Resistance), QStringLiteral("2.286"));
    EXPECT_EQ(g().text(12, C::UJour), QStringLiteral("0.26"));
    EXPECT_TRUE(ui.messages.isEmpty());
}

TEST_F(FeuilleCoefUTest, EdgeInsulationsAndBasement)
{
    struct Cas
    {
        const char *type;
        int dimension; // row of the width or height
        const char *u;
    };
    const Cas cas[] = {
        {"Plan. TP, isol. péri. hor.", 15, "0.58"},
        {"Plan. TP, isol. péri. vert.", 15, "0.52"},
    };
    for (const Cas &c : cas) {
        SCOPED_TRACE(c.type);
        g() = Grid();
        ConstruireGrilleParois(g());
        choisirType(3, QString::fromUtf8(c.type));
        EXPECT_EQ(g().text(12, C::Libelle).left(30),
                  QStringLiteral("Nature de l'isolation périphér"));
        for (auto [ligne, texte] :
             {std::pair {4, "100"}, {5, "40"}, {6, "0.3"}, {7, "2"}, {9, "0.2"}})
            saisir(ligne, C::Epaisseur, QString::fromUtf8(texte));
        saisir(9, C::Conductivite, QStringLiteral("2"));
        saisir(13, C::Epaisseur, QStringLiteral("0.05"));
        saisir(13, C::Conductivite, QStringLiteral("0.035"));
        EXPECT_EQ(g().text(16, C::UJour), QStringLiteral("0.72")); // no width yet: U0
        saisir(c.dimension, C::Epaisseur, QStringLiteral("1"));
        EXPECT_EQ(g().text(16, C::UJour), QString::fromUtf8(c.u));
        EXPECT_EQ(g().text(3, C::UJour), QString::fromUtf8(c.u));
    }

    g() = Grid();
    ConstruireGrilleParois(g());
    choisirType(3, QStringLiteral("Plan. de Sous-Sol CH."));
    EXPECT_EQ(g().text(7, C::Libelle),
              QStringLiteral("Profondeur d'assise du plancher par rapport au sol environnant"));
    for (auto [ligne, texte] : {std::pair {4, "100"}, {5, "40"}, {6, "0.3"}, {8, "2"}, {10, "0.2"}})
        saisir(ligne, C::Epaisseur, QString::fromUtf8(texte));
    saisir(10, C::Conductivite, QStringLiteral("2"));
    saisir(7, C::Epaisseur, QStringLiteral("1"));
    EXPECT_EQ(g().text(13, C::UJour), QStringLiteral("0.60")); // dt + z/2 = 1.34
    saisir(7, C::Epaisseur, QStringLiteral("-1"));
    EXPECT_EQ(g().text(7, C::Epaisseur), QStringLiteral("0"));
    EXPECT_EQ(g().text(13, C::UJour), QStringLiteral("0.72"));
    EXPECT_TRUE(ui.messages.isEmpty());
}
