#include "scripteduserinterface.h"

#include "administratif/feuilleadministrative.h"
#include "ventilation/feuilleventilation.h"

#include "workbook/classeur.h"
#include "workbook/records.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using namespace thermique;

namespace {

constexpr qint32 gris = 12632256;
const QChar nbsp(0x00A0);

void ecrire(const QString &chemin, const QByteArray &octets)
{
    QFile f(chemin);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(octets);
}

class FeuilleVentilationTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dossier.isValid());
        ecrire(dossier.filePath("Couleur.txt"), "12632256\r\n");
        RecordWriter id;
        for (const char *c : {"Bureau Durand", "1 rue du Port", "Toulon", "", "", ""})
            id.stringRecord(QString::fromUtf8(c));
        ecrire(dossier.filePath(QStringLiteral("Identité.txt")), id.bytes());
        classeur = std::make_unique<Classeur>(etude, ui, DossierApplication(dossier.path()));
        classeur->installerFeuille(0, std::make_unique<FeuilleAdministrative>());
        classeur->installerFeuille(3, std::make_unique<FeuilleVentilation>());
        classeur->ChargementInitial();
        Grid &pertes = etude.flexGrid[4];
        pertes.resize(std::max(pertes.rows(), 20), std::max(pertes.cols(), 38));
    }

    // The site as the administrative sheet leaves it after the user's choices.
    void site(const char *localite, const char *altitude, const char *type, const char *situation)
    {
        Grid &a = etude.flexGrid[0];
        for (int c = 10; c <= 22; ++c) {
            a.setText(9, c, QString::fromUtf8(localite));
            a.setText(10, c,
                      QStringLiteral("43.1244\r\n5.9284\r\n") + QString::fromUtf8(altitude)
                          + QStringLiteral("\r\nH3 - Ed\r\n"));
        }
        for (int c = 13; c <= 22; ++c) {
            a.setText(12, c, QString::fromUtf8(type));
            a.setText(13, c, QString::fromUtf8(situation));
        }
    }
    void toulon(const char *type = "Maison individuelle.",
                const char *situation = "(c) A la périphérie d'un grand centre urbain.")
    {
        site("Toulon - 83000 - 83", "12", type, situation);
    }
    void paris(const char *type = "Bureaux.",
               const char *situation = "(a) A l'intérieur d'un grand centre urbain.")
    {
        site("Paris - 75001 - 75", "35", type, situation);
    }

    void entrer()
    {
        classeur->ChangementFeuille(4);
        ASSERT_EQ(classeur->etat().FeuilleActive, 3) << ui.dernierMessage().toStdString();
    }

    void choisir(int ligne, const char *texte)
    {
        classeur->CliqueCellule(ligne, 15);
        ASSERT_TRUE(classeur->vue().listes[1].visible) << ligne;
        const qsizetype i = classeur->vue().listes[1].elements.indexOf(QString::fromUtf8(texte));
        ASSERT_GE(i, 0) << texte;
        classeur->ChoixListe(1, int(i));
    }

    void taper(int ligne, const QString &texte)
    {
        classeur->CliqueCellule(ligne, 14);
        classeur->ToucheCaractere(texte.at(0).unicode());
        classeur->SaisieTexteChange(texte);
        classeur->ValiderSaisie();
    }

    void pertes(int r, const char *code, std::initializer_list<std::pair<int, const char *>> v)
    {
        Grid &g = etude.flexGrid[4];
        g.setText(r, 0, QString::fromUtf8(code));
        for (const auto &[c, t] : v)
            g.setText(r, c, QString::fromUtf8(t));
    }

    Grid &g() { return etude.flexGrid[3]; }
    QString v(int ligne) const { return etude.flexGrid[3].text(ligne, 12); }
    bool verrou(int ligne) const { return etude.flexGrid[3].estVerrouillee(ligne, 12, gris); }
    // Every value cell of the row holds the same text and lock.
    void uniforme(int ligne)
    {
        for (int c = 13; c <= 22; ++c) {
            EXPECT_EQ(g().text(ligne, c), v(ligne)) << ligne << "," << c;
            EXPECT_EQ(g().estVerrouillee(ligne, c, gris), verrou(ligne)) << ligne << "," << c;
        }
    }

    QTemporaryDir dossier;
    Study etude;
    ScriptedUserInterface ui;
    std::unique_ptr<Classeur> classeur;
};

} // namespace

TEST_F(FeuilleVentilationTest, BuildsTheSheetAsTabled)
{
    ASSERT_EQ(g().rows(), 26);
    ASSERT_EQ(g().cols(), 23);
    EXPECT_EQ(g().colWidth(0), 10);
    for (int c = 1; c < 23; ++c)
        EXPECT_EQ(g().colWidth(c), 500) << c;
    for (int r = 0; r < 26; ++r)
        EXPECT_EQ(g().rowHeight(r), 280) << r;

    struct Cas
    {
        int ligne;
        const char *libelle, *valeur;
        bool verrou;
    };
    const Cas cas[] = {
        {2, "Dispositif de renouvellement d'air : ", "Simple flux autoréglable.", false},
        {3, "Débit d'air renouvelé extrait - Maxi (m³/h) : ", " ", false},
        {4, "Débit d'air renouvelé extrait - Mini (m³/h) : ", " ", false},
        {5, "Débit d'air renouvelé soufflé - Maxi (m³/h) : ", " ", true},
        {6, "Débit d'air renouvelé soufflé - Mini (m³/h) : ", " ", true},
        {7, "Commande de variation du dispositif d'extraction : ", "Néant.", false},
        {8, "Commande de variation du dispositif de soufflage : ", "Automatique.", true},
        {10, "Région : ", " ", true},
        {11, "Situation : ", " ", true},
        {12, "Hauteur des fenêtres au-dessus du sol (m) : ", "< 6 m", false},
        {13, "Façades abritées : ", "Non", false},
        {14, "Classe d'exposition au vent du bâtiment : ", " ", true},
        {15, "Classe d'exposition au vent de la zone : ", "Plusieurs façades exposées.", false},
        {16, "Coefficient (a) d'exposition au vent de la zone : ", "Calcul automatique.", true},
        {19, "Perméabilité (Po) des parois opaques de la zone : ", "Bâtiment individuel : 0.50",
         false},
        {20, "Débit spécifique d'extraction d'air de la zone (QV) : ", "Calcul automatique.", true},
        {21, "Perméabilité de la zone (P) : ", "Calcul automatique avec les pertes de chaleur.",
         true},
        {24, "Coefficient (B) majorateur selon le type de ventilation : ",
         "Calcul automatique selon le dispositif de ventilation.", true},
        {25, "Débit de renouvellement d'air de la zone (m³/h) : ",
         "Calcul automatique selon les paramètres précédents.", true},
    };
    for (const Cas &c : cas) {
        for (int col = 1; col <= 11; ++col) {
            EXPECT_EQ(g().text(c.ligne, col), QString::fromUtf8(c.libelle)) << c.ligne;
            EXPECT_TRUE(g().estVerrouillee(c.ligne, col, gris)) << c.ligne;
        }
        EXPECT_EQ(v(c.ligne), QString::fromUtf8(c.valeur)) << c.ligne;
        EXPECT_EQ(verrou(c.ligne), c.verrou) << c.ligne;
        EXPECT_FALSE(g().attributs(c.ligne, 5).gras) << c.ligne;
        uniforme(c.ligne);
    }
    for (int ligne : {1, 9}) {
        EXPECT_EQ(g().text(ligne, 22), g().text(ligne, 1));
        EXPECT_TRUE(g().attributs(ligne, 22).gras);
        EXPECT_TRUE(g().estVerrouillee(ligne, 22, gris));
    }
    EXPECT_TRUE(g().text(9, 1).startsWith(QStringLiteral("Caractéristiques de la construction")));

    // The lists open over the value cells, sized by their items.
    struct Liste
    {
        int ligne, nombre;
    };
    for (const Liste &l :
         {Liste {2, 6}, Liste {7, 2}, Liste {12, 5}, Liste {13, 2}, Liste {15, 2}, Liste {19, 3}}) {
        classeur->FermerListes();
        ASSERT_TRUE(classeur->feuille(3).clicDroit(*classeur, l.ligne, 20)) << l.ligne;
        const ListeDeroulante &liste = classeur->vue().listes[1];
        EXPECT_EQ(liste.elements.size(), l.nombre) << l.ligne;
        EXPECT_EQ(liste.colonne, 12);
        EXPECT_EQ(liste.largeur, 5500);
        EXPECT_EQ(liste.hauteur, l.nombre * 210 + 190);
    }
    // No list on a label, a result nor on the locked supply command.
    for (const auto &[ligne, colonne] : {std::pair {2, 5}, {8, 12}, {20, 12}, {3, 11}})
        EXPECT_FALSE(classeur->feuille(3).clicDroit(*classeur, ligne, colonne)) << ligne;
    // The flow rows open the table of regulated flows.
    classeur->FermerListes();
    ui.formulairesOuverts.clear();
    EXPECT_TRUE(classeur->feuille(3).clicDroit(*classeur, 4, 18));
    EXPECT_EQ(ui.formulairesOuverts, QStringList {QStringLiteral("Frm_Ventilation")});
    EXPECT_FALSE(classeur->vue().listes[1].visible);
}

TEST_F(FeuilleVentilationTest, ToulonHasRegionWAndClassEx3)
{
    toulon();
    entrer();
    choisir(12, "6 à 18 m");
    EXPECT_EQ(v(10), QStringLiteral("W"));
    EXPECT_EQ(v(11), QStringLiteral("(c) A la périphérie d'un grand centre urbain."));
    EXPECT_EQ(v(14), QStringLiteral("Ex3"));
    EXPECT_EQ(v(16), QStringLiteral("2"));
    EXPECT_EQ(v(17), QStringLiteral("1.10"));
    EXPECT_EQ(v(18), QStringLiteral("1.15"));
    EXPECT_DOUBLE_EQ(classeur->etat().LatitudeSite, 43.1244);
    for (int ligne : {10, 11, 14, 16, 17, 18})
        uniforme(ligne);

    // One exposed facade changes e, d and a.
    choisir(15, "Une seule façade exposée.");
    EXPECT_EQ(v(16), QStringLiteral("1"));
    EXPECT_EQ(v(17), QStringLiteral("0.35"));
    EXPECT_EQ(v(18), QStringLiteral("1.55"));
}

TEST_F(FeuilleVentilationTest, OpenCountrySiteCountsAsPeriphery)
{
    paris("Maison individuelle.", "(a) A l'intérieur d'un grand centre urbain.");
    entrer();
    choisir(13, "Oui.");
    EXPECT_FALSE(verrou(13));
    EXPECT_EQ(v(14), QStringLiteral("Ex1"));

    // Site (e) behaves as (c): no sheltered facades, and the cell is no longer an input.
    classeur->ChangementFeuille(1);
    site("Paris - 75001 - 75", "35", "Maison individuelle.", "(e) Isolée, en rase campagne.");
    entrer();
    EXPECT_EQ(v(13), QStringLiteral("Non."));
    EXPECT_TRUE(verrou(13));
    uniforme(13);
    EXPECT_EQ(v(14), QStringLiteral("Ex1"));
    choisir(12, "6 à 18 m");
    EXPECT_EQ(v(14), QStringLiteral("Ex2"));

    // Back to a sheltered site, the cell takes input again.
    classeur->ChangementFeuille(1);
    site("Paris - 75001 - 75", "35", "Maison individuelle.",
         "(b) Dans une ville de moyenne importance.");
    entrer();
    EXPECT_FALSE(verrou(13));
    EXPECT_EQ(v(14), QStringLiteral("Ex1"));
}

TEST_F(FeuilleVentilationTest, BuildingTooHighForItsSiteResetsTheSheet)
{
    Grid initiale;
    ConstruireGrilleVentilation(initiale, gris, CouleurSystemeFenetre);
    paris("Maison individuelle.");
    entrer();
    choisir(2, "Double flux, sans régulation du taux de transfert.");
    taper(3, QStringLiteral("120"));
    taper(5, QStringLiteral("100"));
    choisir(13, "Oui.");
    choisir(12, "28 à 50 m");
    EXPECT_EQ(v(12), QStringLiteral("< 6 m"));
    EXPECT_EQ(v(13), QStringLiteral("Non"));
    EXPECT_EQ(v(3), QStringLiteral(" "));
    EXPECT_TRUE(g().operation(3, 12).isEmpty());
    EXPECT_EQ(v(17), QStringLiteral("Calcul automatique."));

    taper(3, QStringLiteral("90"));
    choisir(13, "Oui.");
    choisir(12, "50 à 100 m");
    Grid apres = g();
    apres.row = initiale.row;
    apres.col = initiale.col;
    apres.modeAffichage = initiale.modeAffichage;
    EXPECT_TRUE(apres == initiale);
}

TEST_F(FeuilleVentilationTest, EqualFlowsMeanNoCommand)
{
    toulon();
    entrer();
    taper(3, QStringLiteral("90"));
    EXPECT_EQ(v(7), QStringLiteral("Manuelle."));
    taper(4, QStringLiteral("45*2"));
    EXPECT_EQ(v(4), QStringLiteral("90"));
    EXPECT_EQ(g().operation(4, 22), QStringLiteral("45*2"));
    EXPECT_EQ(v(7), QStringLiteral("Néant."));
    // Cd 1: QV is the flow itself; no heat-loss rows, so no leakage term.
    EXPECT_EQ(v(20), QStringLiteral("90"));
    EXPECT_EQ(v(21), QStringLiteral("0"));
    EXPECT_EQ(v(22), QStringLiteral("0"));
    EXPECT_EQ(v(25), QStringLiteral("90"));
    EXPECT_EQ(classeur->etat().DebitRenouvellementMaxi, 90);

    // Delete on the flow rows clears the value and its operation, and recalculates.
    classeur->CliqueCellule(4, 12);
    classeur->ToucheEnfoncee(Touche::Suppr, 0);
    EXPECT_TRUE(v(4).trimmed().isEmpty());
    EXPECT_TRUE(g().operation(4, 12).trimmed().isEmpty());
    EXPECT_EQ(v(7), QStringLiteral("Manuelle."));
    // (11/12) 0 + 90/12.
    EXPECT_EQ(v(20), QStringLiteral("8"));
}

TEST_F(FeuilleVentilationTest, DoubleFluxOpensTheSupplyRows)
{
    toulon();
    entrer();
    EXPECT_TRUE(verrou(5));
    EXPECT_TRUE(verrou(6));
    EXPECT_TRUE(verrou(8));
    classeur->etat().ChangementVentilation = QStringLiteral("Non");

    choisir(2, "Double flux, régulation automatique du taux de transfert.");
    EXPECT_EQ(v(2), QStringLiteral("Double flux, régulation automatique du taux de transfert."));
    EXPECT_EQ(classeur->etat().ChangementVentilation, QStringLiteral("Oui"));
    for (int ligne : {3, 4, 5, 6, 8}) {
        EXPECT_FALSE(verrou(ligne)) << ligne;
        uniforme(ligne);
    }
    taper(5, QStringLiteral("100+20"));
    taper(3, QStringLiteral("100"));
    EXPECT_EQ(v(5), QStringLiteral("120"));
    // The supply above the extract sets the maximum; the flows differ, so the command is
    // manual: (11/12) 0 + 120/12.
    EXPECT_EQ(v(7), QStringLiteral("Manuelle."));
    EXPECT_EQ(v(20), QStringLiteral("10"));

    choisir(2, "Simple flux hygroréglable B.");
    for (int ligne : {5, 6, 8}) {
        EXPECT_TRUE(verrou(ligne)) << ligne;
        uniforme(ligne);
    }
    for (int ligne : {5, 6}) {
        EXPECT_EQ(v(ligne), QStringLiteral(" "));
        for (int c = 12; c <= 22; ++c)
            EXPECT_TRUE(g().operation(ligne, c).isEmpty()) << ligne << "," << c;
    }
    EXPECT_FALSE(verrou(3));
    EXPECT_EQ(v(3), QStringLiteral("100"));
    // The recalculation no longer counts the supply: 100/12.
    EXPECT_EQ(v(20), QStringLiteral("8"));

    // A locked supply row takes no typing.
    classeur->CliqueCellule(5, 14);
    EXPECT_NE(g().row, 5);
}

TEST_F(FeuilleVentilationTest, UnknownSystemAsksForAChoice)
{
    toulon();
    EcrireValeurVentilation(g(), 2, QStringLiteral(" "));
    entrer();
    EXPECT_EQ(v(2), QStringLiteral("Sélection du système de ventilation."));
    for (int ligne = 3; ligne <= 6; ++ligne)
        EXPECT_TRUE(verrou(ligne)) << ligne;
    EXPECT_EQ(v(23), QStringLiteral("0"));
    choisir(2, "Naturel.");
    EXPECT_FALSE(verrou(3));
    EXPECT_FALSE(verrou(6));
    EXPECT_EQ(v(23), QStringLiteral("1.8"));
    EXPECT_EQ(v(24), QStringLiteral("2.2"));
}

TEST_F(FeuilleVentilationTest, DwellingSessionCheckedByHand)
{
    toulon();
    // One room: a window (2 x 1.5 x 2), a floor line (1 x 10), Pe 4, 60 m², Qi 30.
    pertes(2, "TableauLigne1", {});
    pertes(3, "TableauLigneCalculParoi", {{9, "A1"}, {10, "0.00"}, {15, "40.00"}});
    pertes(4, "TableauLigneCalculParoi",
           {{9, "A6"}, {10, "2.00"}, {15, "3.00"}, {21, "2"}, {37, "1.50"}});
    pertes(5, "TableauLigneCalculParoi", {{9, "A4"}, {10, "1.00"}, {15, "10.00"}});
    pertes(6, "TableauLigneCalculPontThermique", {{9, "L1"}, {10, "7"}, {15, "12.00"}});
    pertes(7, "TableauLigneRenouvellementAir", {});
    pertes(8, "TableauLigneRésultats", {{2, "60.00"}, {11, "4"}, {13, "30"}});
    entrer();
    choisir(12, "6 à 18 m");
    taper(3, QStringLiteral("105"));
    taper(4, QStringLiteral("35"));
    EXPECT_EQ(v(7), QStringLiteral("Manuelle."));
    choisir(7, "Automatique.");
    EXPECT_EQ(v(7), QStringLiteral("Automatique."));
    // QV = (23/24) 35 + 105/24 = 37.92; P = 6 + 10 + 4 + 0.50 x 60 = 50;
    // Qs = 1.10 / (1 + (1.15/1.10) (7.92/50)^2) x 50 = 53.60; Q = 37.92 + 1.8 x 53.60.
    EXPECT_EQ(v(20), QStringLiteral("38"));
    EXPECT_EQ(v(21), QStringLiteral("50"));
    EXPECT_EQ(v(22), QStringLiteral("54"));
    EXPECT_EQ(v(23), QStringLiteral("1.8"));
    EXPECT_EQ(v(24), QStringLiteral("1"));
    EXPECT_EQ(v(25), QStringLiteral("134"));
    EXPECT_EQ(classeur->etat().DebitRenouvellementMaxi, 134);
    for (int ligne = 20; ligne <= 25; ++ligne)
        uniforme(ligne);

    // A collective building halves Po: P = 20 + 0.25 x 60 = 35.
    choisir(19, "Bâtiment collectif : 0.25");
    EXPECT_EQ(v(21), QStringLiteral("35"));

    // Leaving and coming back recalculates from the same inputs.
    classeur->ChangementFeuille(1);
    entrer();
    EXPECT_EQ(v(21), QStringLiteral("35"));
    EXPECT_EQ(v(20), QStringLiteral("38"));
    EXPECT_EQ(classeur->etude().flexGrid[0].text(13, 13).left(3), QStringLiteral("(c)"));
}

TEST_F(FeuilleVentilationTest, OfficeSessionShowsBothFlows)
{
    paris();
    pertes(2, "TableauLigneCalculParoi", {{9, "A7"}, {10, "3"}, {21, "4"}, {37, "2"}});
    pertes(3, "TableauLigneRésultats", {{2, "200"}, {11, " "}, {13, "0"}});
    entrer();
    choisir(13, "Oui.");
    choisir(15, "Une seule façade exposée.");
    choisir(19, "Bâtiment collectif : 0.25");
    choisir(2, "Double flux, régulation automatique du taux de transfert.");
    taper(3, QStringLiteral("1200"));
    taper(4, QStringLiteral("300"));
    taper(5, QStringLiteral("800"));
    taper(6, QStringLiteral("250"));
    EXPECT_EQ(v(10), QStringLiteral("V"));
    EXPECT_EQ(v(14), QStringLiteral("Ex1"));
    EXPECT_EQ(v(17), QStringLiteral("0.15"));
    EXPECT_EQ(v(7), QStringLiteral("Automatique."));
    // P = 3 x 2 x 4 + 0.25 x 200 = 74; Qs = 0.15 / (1 + (1.55/0.15)(d/74)^2) x 74 with
    // d = 400 and 50: 0.04 and 1.94.
    EXPECT_EQ(v(21), QStringLiteral("74"));
    EXPECT_EQ(v(20), QStringLiteral("Maxi : 1") + nbsp + QStringLiteral("200 ; Mini : 300"));
    EXPECT_EQ(v(22), QStringLiteral("Maxi : 0 ; Mini : 2"));
    EXPECT_EQ(v(25), QStringLiteral("Maxi : 1") + nbsp + QStringLiteral("200 ; Mini : 303"));
    EXPECT_EQ(classeur->etat().DebitRenouvellementMaxi, 1200);
    EXPECT_EQ(classeur->etat().DebitRenouvellementMini, 303);

    // The manual command does not exist for other buildings.
    choisir(7, "Manuelle.");
    EXPECT_EQ(v(7), QStringLiteral("Automatique."));
    taper(4, QStringLiteral("1200"));
    taper(6, QStringLiteral(" "));
    EXPECT_EQ(v(7), QStringLiteral("Néant."));
}
