#include "scripteduserinterface.h"

#include "administratif/feuilleadministrative.h"
#include "climate/brouillemet.h"
#include "climate/choixsite.h"
#include "climate/fichiersclimat.h"
#include "envelope/coefu/editeurparois.h"
#include "envelope/coefu/feuillecoefu.h"
#include "heatloss/calcullocal.h"
#include "heatloss/feuillepertes.h"
#include "heatloss/tableaupertes.h"
#include "heatloss/ubat.h"
#include "workbook/classeur.h"
#include "workbook/nombres.h"
#include "workbook/projet.h"
#include "workbook/records.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace thermique;
namespace P = ColonnePertes;

namespace {

constexpr qint32 gris = 12632256;
const QChar nbsp(0x00A0);

// A number with the sheet's thousands mark, as the cells show it.
QString milliers(const char *texte)
{
    return QString::fromUtf8(texte).replace(QLatin1Char(' '), nbsp);
}

void ecrire(const QString &chemin, const QByteArray &octets)
{
    QDir().mkpath(QFileInfo(chemin).absolutePath());
    QFile f(chemin);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(octets);
}

// The application folder of a user in Toulon, with one town in the weather folder.
void preparerDossier(const QTemporaryDir &d)
{
    ecrire(d.filePath("Couleur.txt"), "12632256\r\n");
    RecordWriter id;
    for (const char *c : {"Bureau Durand", "1 rue du Port", "Toulon", "", "", ""})
        id.stringRecord(QString::fromUtf8(c));
    ecrire(d.filePath("Identité.txt"), id.bytes());
    RecordWriter geo;
    for (const char *l : {"Rég : Provence-Alpes-Côte d'Azur", "Dép : Var"})
        geo.stringRecord(QString::fromUtf8(l));
    ecrire(d.filePath("Fichiers Géographique.txt"), geo.bytes());
    ecrire(d.filePath(QStringLiteral("Base de données - Coordonnées des départements.txt")),
           EncoderWindows1252(QStringLiteral(
               "N°\tDépartement\tRégion\tPréfecture\tEté\tHiver\tAlt\tTété\tThiver\tHR\tDurée\r\n"
               "83\tVar\tPACA\tToulon\tEd\tH3\t12\t32\t-5\t64\t4100\r\n")));
    const QString ville = QStringLiteral("Toulon");
    ecrire(d.filePath(QStringLiteral("Météo/Provence-Alpes-Côte d'Azur/Var/Toulon.met")),
           BrouilleMet(EcrireFicheVille({ville, "83137", "83000", "Var", "43.1244", "5.9284", "12",
                                         "83", "PACA", "GN0"}),
                       ville + QStringLiteral(".met")));
    RecordWriter meteo;
    meteo.stringRecord(QStringLiteral("Provence-Alpes-Côte d'Azur\\Var"));
    ecrire(d.filePath(QStringLiteral("Fichiers Météo.txt")), meteo.bytes());
    RecordWriter pieces;
    for (const char *p : {"Séjour", "Chambre", "Atelier"})
        pieces.stringRecord(QString::fromUtf8(p));
    ecrire(d.filePath(QStringLiteral("ListePièces.txt")), pieces.bytes());
}

class SessionPertesTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dossier.isValid());
        preparerDossier(dossier);
        classeur = demarrer(etude, ui);
    }

    std::unique_ptr<Classeur> demarrer(Study &e, ScriptedUserInterface &u)
    {
        auto c = std::make_unique<Classeur>(e, u, DossierApplication(dossier.path()));
        c->installerFeuille(0, std::make_unique<FeuilleAdministrative>());
        c->installerFeuille(1, std::make_unique<FeuilleCoefU>());
        c->installerFeuille(4, std::make_unique<FeuillePertes>());
        c->installerFeuille(5, std::make_unique<FeuilleCoefUbat>());
        c->ChargementInitial();
        return c;
    }

    Grid &pertes() { return etude.flexGrid[4]; }
    Grid &parois() { return etude.flexGrid[1]; }

    void choisir(int ligne, int colonne, int liste, const QString &texte)
    {
        classeur->CliqueCellule(ligne, colonne);
        ASSERT_TRUE(classeur->vue().listes[liste].visible) << ligne;
        const qsizetype i = classeur->vue().listes[liste].elements.indexOf(texte);
        ASSERT_GE(i, 0) << texte.toStdString();
        classeur->ChoixListe(liste, int(i));
    }

    // Types a text in a cell and presses Enter.
    void saisir(int ligne, int colonne, const QString &texte)
    {
        classeur->CliqueCellule(ligne, colonne);
        ASSERT_FALSE(pertes().estVerrouillee(ligne, colonne, gris) && etat().FeuilleActive == 4)
            << ligne << "," << colonne;
        classeur->ToucheCaractere(texte.at(0).unicode());
        classeur->SaisieTexteChange(texte);
        classeur->SaisieTouche(Touche::Entree, 0, false, true);
    }

    EtatSession &etat() { return classeur->etat(); }

    // Identity, town, use and situation through the Administrative sheet.
    void remplirAdministratif()
    {
        ui.formulaires[QStringLiteral("Frm_DistanceMer")] = [this] {
            DefinirDistanceMer(*classeur, QStringLiteral("30"));
            return true;
        };
        classeur->CliqueCellule(9, 14);
        const qsizetype i = classeur->vue().listes[0].elements.indexOf(QStringLiteral("Toulon"));
        ASSERT_GE(i, 0);
        classeur->ChoixListe(0, int(i));
        classeur->CliqueCellule(12, 15);
        classeur->ChoixListe(1,
                             int(classeur->vue().listes[1].elements.indexOf(
                                 QStringLiteral("Maison individuelle."))));
        classeur->CliqueCellule(13, 15);
        classeur->ChoixListe(1,
                             int(classeur->vue().listes[1].elements.indexOf(
                                 QStringLiteral("(b) Dans une ville de moyenne importance."))));
    }

    // A wall block of `type` at `ligne` whose one layer has the resistance `r`.
    int paroi(int ligne, const QString &type, const QString &r)
    {
        choisir(ligne, ColonneParoi::Nom, 1, type);
        saisir(ligne + 1, ColonneParoi::Epaisseur, QStringLiteral("0.20"));
        saisir(ligne + 1, ColonneParoi::Resistance, r);
        return ligne + NombreLignesBloc(type) + 1;
    }

    // The house of the tests: identity and site, three walls on Coef-U, one window type, one
    // bridge, the ventilation figures; then the heat-loss sheet is entered.
    void preparerMaison()
    {
        remplirAdministratif();
        ASSERT_EQ(etude.temperatureBaseCorrigee, -5);

        // Coef-U: ΣR = Rse + R + Rsi gives U = 1/ΣR.
        classeur->ChangementFeuille(2);
        ASSERT_EQ(etat().FeuilleActive, 1);
        int r
            = paroi(3, QStringLiteral("Mur Ext."), QStringLiteral("0.83")); // 0.04+0.83+0.13: 1.00
        r = paroi(r, QStringLiteral("Plaf. sous Comble."), QStringLiteral("4.80")); // 0.20
        paroi(r, QStringLiteral("Plan. sur VS."), QStringLiteral("2.16")); // 0.40
        EXPECT_EQ(parois().text(3, ColonneParoi::UJour), QStringLiteral("1.00"));
        // The joinery block as the windows code leaves it: U 2.00 by day, 1.50 with shutters.
        Grid &p = parois();
        p.setRows(50);
        p.setText(45, 1, TypeFenetre());
        p.setText(45, 3, QStringLiteral("A6"));
        p.setText(45, 11, QStringLiteral("2.00"));
        p.setText(45, 12, QStringLiteral("1.50"));
        p.setText(46, 6, QStringLiteral("Coefficients de la fenêtre :"));
        p.setText(46, 11, QStringLiteral("2.00"));
        p.setText(46, 12, QStringLiteral("1.50"));
        // One bridge on Coef-Pth, and the ventilation figures as that sheet writes them:
        // base flow blank, Po 0.50 per m², P = 40, zone flow 160 m³/h.
        Grid &ponts = etude.flexGrid[2];
        ponts.setText(3, 0, QStringLiteral("0101"));
        ponts.setText(3, 1, QStringLiteral("Plancher bas / mur"));
        ponts.setText(3, 3, QStringLiteral("L1"));
        ponts.setText(3, 13, QStringLiteral("0.60"));
        Grid &v = etude.flexGrid[3];
        for (int c = 12; c <= 22; ++c) {
            v.setText(19, c, QStringLiteral("Bâtiment individuel : 0.50"));
            v.setText(21, c, QStringLiteral("40"));
            v.setText(25, c, QStringLiteral("160"));
        }

        // Entering the sheet builds the first table.
        classeur->ChangementFeuille(5);
        ASSERT_EQ(etat().FeuilleActive, 4);
    }

    // Ctrl+T on a free row adds a room table there.
    void nouveauLocal(int ligne)
    {
        classeur->CliqueCellule(ligne, 2);
        classeur->ToucheEnfoncee(Touche::T, Touche::MasqueCtrl);
    }

    struct Local
    {
        const char *nom, *trs;
        int emetteur;
        const char *inclinaisonMur, *surfaces[5], *aire, *hauteur, *qi;
    };

    void remplirLocal(int tete, const Local &l)
    {
        // The room names of the user's list come with the right button.
        classeur->ClicDroitCellule(tete, 2);
        ASSERT_TRUE(classeur->vue().listes[1].visible);
        classeur->ChoixListe(
            1, int(classeur->vue().listes[1].elements.indexOf(QString::fromUtf8(l.nom))));
        saisir(tete, 9, QString::fromUtf8(l.trs));
        if (l.emetteur != 0)
            choisir(tete, 18, 1, Emetteurs()[l.emetteur]);
        if (*l.inclinaisonMur)
            saisir(tete + 2, 7, QString::fromUtf8(l.inclinaisonMur));
        for (int i = 0; i < 5; ++i)
            if (*l.surfaces[i])
                saisir(tete + 2 + i, 15, QString::fromUtf8(l.surfaces[i]));
        saisir(tete + 8, 2, QString::fromUtf8(l.aire));
        saisir(tete + 8, 5, QString::fromUtf8(l.hauteur));
        if (*l.qi)
            saisir(tete + 8, 13, QString::fromUtf8(l.qi));
    }

    QTemporaryDir dossier;
    Study etude;
    ScriptedUserInterface ui;
    std::unique_ptr<Classeur> classeur;
};

} // namespace

// A small house in Toulon (θe −5): a stone wall, an attic ceiling, a floor over a crawl
// space, one window type and one bridge; three rooms.
TEST_F(SessionPertesTest, SmallHouseFromEndToEnd)
{
    preparerMaison();
    const int mur = 3;
    EXPECT_TRUE(ui.messages.isEmpty()) << ui.dernierMessage().toStdString();
    const char *codes[] = {"TableauLigne1",
                           "TableauLigne2",
                           "TableauLigneCalculParoi",
                           "TableauLigneCalculParoi",
                           "TableauLigneCalculParoi",
                           "TableauLigneCalculParoi",
                           "TableauLigneCalculPontThermique",
                           "TableauLigneRenouvellementAir",
                           "TableauLigneRésultats",
                           "TableauInterTableau"};
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(pertes().text(3 + i, 0), QString::fromUtf8(codes[i])) << i;
    EXPECT_EQ(pertes().text(3, 11), QStringLiteral("-5"));
    EXPECT_EQ(pertes().text(3, 18), QStringLiteral("Radi."));
    EXPECT_EQ(pertes().text(5, 20), QStringLiteral("0001"));
    EXPECT_EQ(pertes().text(5, 7), QStringLiteral("90")); // A1
    EXPECT_EQ(pertes().text(6, 7), QStringLiteral("180")); // A2
    EXPECT_EQ(pertes().text(7, 7), QStringLiteral("0")); // A4
    EXPECT_FALSE(pertes().estVerrouillee(5, 8, gris));
    EXPECT_TRUE(pertes().estVerrouillee(7, 8, gris)); // no azimuth for a floor
    EXPECT_EQ(pertes().text(9, 14), QStringLiteral("0.60"));
    EXPECT_EQ(pertes().text(10, 12), QStringLiteral("0.34"));
    EXPECT_EQ(pertes().text(11, 20).size(), 70);
    EXPECT_EQ(pertes().rowHeight(4), 570);

    nouveauLocal(13);
    nouveauLocal(23);
    EXPECT_EQ(pertes().text(13, 0), QStringLiteral("TableauLigne1"));
    EXPECT_EQ(pertes().text(32, 0), QStringLiteral("TableauInterTableau"));

    // Séjour, radiators, θrs 19, its outer wall sloping at 60°; A 30, V 75, D = 45,
    //   H = D/Y = 122.129. Rα(60) = 0.17 − 0.03 + 0.00222 = 0.14222:
    //   U = 1/((1/1.00 − 0.13) + 0.14222) = 0.988 → 0.99.
    //   θsi: A1 19 − 24·0.99·0.13 = 15.911 (20 m²), A2 19 − 24·0.2·0.1 = 18.52 (30 m²),
    //   A4 19 − 24·0.4·0.17 = 17.368 (30 m²), A6 19 − 24·2·0.13 = 12.76 (4 m²)
    //   ΣS = 84, Σθsi·S = 1445.904; θm = (38.129·19 + 1445.904)/122.129 = 17.771, k = 0
    //   θa = 38 − 17.771 + 1 = 21.23, ΔT = 26.23.
    //   Losses: 20·0.99·26.23 = 519, 30·0.2·26.23 = 157, 30·0.4·26.23 = 315,
    //   4·2·26.23 = 210, bridge 12·0.6·26.23 = 189.
    //   Air: L = 30·0.5 = 15, Qv = 160·2·15/40 + 45 = 165, 165·0.34·26.23 = 1 472.
    //   Room: 2 862.
    // Chambre, convectors, θrs 18: A 12, V 30, H = 70.209; θm = 16.973, θa = 36 − 16.973
    //   + 2 = 21.03, ΔT 26.03: 312 + 62 + 125 + 104 + 0; Qv = 8·6 + 15 = 63 → 558.
    //   Room: 1 161.
    // Atelier, warm air below 5 vol/h, θrs 16, 6 m high: A 50, V 300, H = 310.943;
    //   θm = 15.352, θa = 32 − 15.352 + 3 = 19.65, ΔT 24.65: 986 + 247 + 493 + 0 + 296;
    //   Qv = 8·25 = 200 → 1 676. Σ = 3 698, supplement 0.60: 2 219; room 5 917.
    // House: 2 862 + 1 161 + 5 917 = 9 940 W.
    const Local locaux[] = {
        {"Séjour", "19", 0, "60", {"20", "30", "30", "4", "12"}, "30", "2.5", "45"},
        {"Chambre", "18", 1, "", {"12", "12", "12", "2", ""}, "12", "2.5", "15"},
        {"Atelier", "16", 4, "", {"40", "50", "50", "", "20"}, "50", "6", ""},
    };
    remplirLocal(3, locaux[0]);
    remplirLocal(13, locaux[1]);
    remplirLocal(23, locaux[2]);
    EXPECT_TRUE(ui.messages.isEmpty()) << ui.dernierMessage().toStdString();

    EXPECT_EQ(pertes().text(3, 4), QStringLiteral("Séjour"));
    EXPECT_EQ(pertes().text(5, 12), QStringLiteral("0.99"));
    EXPECT_EQ(pertes().text(5, 13), QStringLiteral("0.99"));
    EXPECT_EQ(pertes().text(3, 17), QStringLiteral("21.23"));
    EXPECT_EQ(pertes().text(5, 16), QStringLiteral("26.23"));
    const char *pertesSejour[] = {"519", "157", "315", "210", "189", "1 472"};
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(pertes().text(5 + i, 18), milliers(pertesSejour[i])) << i;
    EXPECT_EQ(pertes().text(10, 15), QStringLiteral(" 165"));
    EXPECT_EQ(pertes().text(11, 9).trimmed(), QStringLiteral("75.00"));
    EXPECT_EQ(pertes().text(11, 3), QStringLiteral("30.00"));
    EXPECT_EQ(pertes().text(11, 18), milliers("2 862"));
    EXPECT_EQ(pertes().text(13, 17), QStringLiteral("21.03"));
    EXPECT_EQ(pertes().text(21, 18), milliers("1 161"));
    // The supplement row stands below the air line of the high room.
    EXPECT_EQ(pertes().text(23, 17), QStringLiteral("19.65"));
    EXPECT_EQ(pertes().text(31, 0), QStringLiteral("TableauLigneComplément"));
    EXPECT_EQ(pertes().text(31, 1), QStringLiteral("Supplément pour grande hauteur"));
    EXPECT_EQ(pertes().text(31, 10),
              QStringLiteral("(Air pulsé à grande vitesse), ") + milliers("3 698")
                  + QStringLiteral(" x 0.60"));
    EXPECT_EQ(pertes().text(31, 18), milliers("2 219"));
    EXPECT_EQ(pertes().text(32, 18), milliers("5 917"));
    EXPECT_EQ(classeur->vue().aide,
              QStringLiteral("Total calorifuites : ") + milliers("9 940") + QStringLiteral(" W "));

    // The outer wall gets better insulation on Coef-U: 0.04 + 1.83 + 0.13 = 2.00, U 0.50.
    classeur->ChangementFeuille(2);
    saisir(mur + 1, ColonneParoi::Resistance, QStringLiteral("1.83"));
    EXPECT_EQ(parois().text(mur, ColonneParoi::UJour), QStringLiteral("0.50"));
    ui.attentes.clear();
    classeur->ChangementFeuille(5);
    EXPECT_EQ(ui.attentes,
              QStringList {QStringLiteral("Mise à jour des calculs, veuillez patienter.")});
    // Séjour at 60°: 1/((2 − 0.13) + 0.14222) = 0.497 → 0.50; θa 20.98, ΔT 25.98:
    //   260 + 156 + 312 + 208 + 187 + 1 457 = 2 580. Chambre θa 20.77: 996.
    //   Atelier θa 19.47: Σ 3 181, ×1.6 = 5 090. House: 8 666 W.
    EXPECT_EQ(pertes().text(5, 7), QStringLiteral("60"));
    EXPECT_EQ(pertes().text(5, 12), QStringLiteral("0.50"));
    EXPECT_EQ(pertes().text(15, 12), QStringLiteral("0.50"));
    EXPECT_EQ(pertes().text(3, 17), QStringLiteral("20.98"));
    EXPECT_EQ(pertes().text(11, 18), milliers("2 580"));
    EXPECT_EQ(pertes().text(21, 18), milliers("996"));
    EXPECT_EQ(pertes().text(32, 18), milliers("5 090"));
    EXPECT_EQ(classeur->vue().aide,
              QStringLiteral("Total calorifuites : ") + milliers("8 666") + QStringLiteral(" W "));

    // Save, reload into a new session, recalculate: the same sheet.
    const Grid avant = pertes();
    const QString chemin = dossier.filePath(QStringLiteral("Maison.dep"));
    ASSERT_TRUE(EcrireFichiers(*classeur, chemin));
    Study relue;
    ScriptedUserInterface autreUi;
    auto autre = demarrer(relue, autreUi);
    ASSERT_TRUE(OuvrirFichierChemin(*autre, chemin));
    autre->RecalculerTout();
    const Grid &apres = relue.flexGrid[4];
    ASSERT_EQ(apres.rows(), avant.rows());
    for (int l = 0; l < avant.rows(); ++l)
        for (int c = 0; c <= 20; ++c)
            EXPECT_EQ(apres.text(l, c), avant.text(l, c)) << l << "," << c;
    EXPECT_EQ(apres.operation(5, 7), QStringLiteral("60"));
    EXPECT_EQ(autre->vue().aide,
              QStringLiteral("Total calorifuites : ") + milliers("8 666") + QStringLiteral(" W "));

    // Coef-Ubat of the reloaded house. Distinct lines: the sloping wall of the Séjour
    // (20 m²), the upright walls of the other rooms (12 + 40), the ceilings and floors
    // (92 m² each), the windows (4 + 2) and three bridge lines (12 m, none, 20 m).
    //   Σj = 0.5·20 + 0.5·52 + 0.2·92 + 0.4·92 + 2·6 + 0.6·32 = 122.4
    //   Σn = the same with 1.5 for the windows = 119.4; ΣA = 262
    //   Ubat = ((122.4 + 119.4) / 2) / 262 = 0.461. No ventilation flow here, so
    //   G = 122.4 / 405 m³ (every room above 12 °C) = 0.302 by day.
    autre->ChangementFeuille(6);
    ASSERT_EQ(autre->etat().FeuilleActive, 5);
    const Grid &ubat = relue.flexGrid[5];
    auto ligneUbat = [&](const QString &debut) {
        for (int r = 0; r < ubat.rows(); ++r)
            if (ubat.text(r, 5).startsWith(debut))
                return r;
        return -1;
    };
    const int formule = ligneUbat(QStringLiteral("Ubat = "));
    ASSERT_GT(formule, 0);
    EXPECT_EQ(ubat.text(formule, 5), QStringLiteral("Ubat = ((122.40 + 119.40) / 2) / 262.00"));
    EXPECT_EQ(ubat.text(formule + 1, 5), QStringLiteral("= 0.461 W/(m².K)"));
    const int g = ligneUbat(QStringLiteral("Calcul de G"));
    ASSERT_GT(g, formule);
    EXPECT_EQ(ubat.text(g + 7, 13), QStringLiteral("405.00"));
    EXPECT_EQ(ubat.text(g + 8, 13), QStringLiteral("0.302"));
    // The summary of the cover page: areas, volumes, losses, compactness.
    EXPECT_TRUE(
        relue.flexGrid[0].text(14, 13).startsWith(QStringLiteral("\r\n92.00\r\n92.00\r\n405.00")))
        << relue.flexGrid[0].text(14, 13).toStdString();
}

TEST_F(SessionPertesTest, ListsFormsAndLineCommands)
{
    preparerMaison();
    // Right button on a wall name: the walls of Coef-U, as many rows as walls plus one.
    classeur->ClicDroitCellule(5, 3);
    const ListeDeroulante &l = classeur->vue().listes[0];
    ASSERT_TRUE(l.visible);
    EXPECT_EQ(l.elements,
              (QStringList {QStringLiteral("Mur Ext."), QStringLiteral("Plaf. sous Comble."),
                            QStringLiteral("Plan. sur VS."), TypeFenetre()}));
    EXPECT_EQ(l.hauteur, 5 * 210 + 190);
    EXPECT_EQ(l.infobulle,
              QStringLiteral("Lecture du code dans la fenêtre d'aide en bas de page. "
                             "Clique pour sélectionner une paroi."));
    // Choosing the ceiling for the first line keeps the surface typed there.
    classeur->FermerListes();
    saisir(5, 15, QStringLiteral("2*5"));
    EXPECT_EQ(pertes().text(5, 15), QStringLiteral("10.00"));
    classeur->ClicDroitCellule(5, 3);
    classeur->ChoixListe(0, 1);
    EXPECT_EQ(pertes().text(5, 1), QStringLiteral("Plaf. sous Comble."));
    EXPECT_EQ(pertes().text(5, 9), QStringLiteral("A2"));
    EXPECT_EQ(pertes().text(5, 7), QStringLiteral("180"));
    EXPECT_EQ(pertes().text(5, 20), QStringLiteral("0002"));
    EXPECT_EQ(pertes().operation(5, 15), QStringLiteral("2*5"));
    EXPECT_FALSE(pertes().estVerrouillee(5, 8, gris)); // only A3 and A4 have no azimuth
    // The bridge line lists the bridges.
    classeur->ClicDroitCellule(9, 2);
    EXPECT_EQ(classeur->vue().listes[0].elements,
              QStringList {QStringLiteral("Plancher bas / mur")});
    classeur->FermerListes();

    // b from its form: the option's value, and the line is recalculated.
    saisir(3, 9, QStringLiteral("19"));
    saisir(11, 2, QStringLiteral("20"));
    saisir(11, 5, QStringLiteral("2.5"));
    const double avant = ValNombre(pertes().text(5, 18));
    ui.formulaires[QStringLiteral("Frm_Calculb")] = [this] {
        AppliquerCoefficientB(*classeur, OptionsCoefficientB()[3].options[2]);
        return true;
    };
    classeur->ClicDroitCellule(5, 17);
    EXPECT_EQ(pertes().text(5, 17), QStringLiteral("0.70"));
    EXPECT_NEAR(ValNombre(pertes().text(5, 18)), avant * 0.7, 1.0);
    // The wind rose gives the azimuth of a wall and keeps the mask of the study.
    ui.formulaires[QStringLiteral("Frm_RoseDesVents")] = [this] {
        QStringList masques(72, QStringLiteral("0"));
        masques[36] = QStringLiteral("15");
        AppliquerRoseDesVents(*classeur, QStringLiteral("SO"), masques);
        return true;
    };
    classeur->ClicDroitCellule(8, 8);
    EXPECT_EQ(pertes().text(8, 8), QStringLiteral("SO"));
    EXPECT_EQ(etude.roseDesVents.text(37, 1), QStringLiteral("15"));
    // Typing in the azimuth column is refused.
    classeur->CliqueCellule(8, 8);
    classeur->ToucheCaractere('S');
    EXPECT_EQ(
        ui.dernierMessage(),
        QStringLiteral("Dans cette colonne, vous ne devez cliquer qu'avec le bouton droit !"));

    // A click on the surface of a window opens its data form; the line follows the form.
    ui.formulaires[QStringLiteral("Frm_FenêtresDonnées")] = [this] {
        pertes().setOperation(8, 15, QStringLiteral("1.20*1.25*2"));
        pertes().setText(8, 15, QStringLiteral("3.00"));
        return true;
    };
    classeur->CliqueCellule(8, 15);
    EXPECT_TRUE(ui.formulairesOuverts.contains(QStringLiteral("Frm_FenêtresDonnées")));
    EXPECT_NEAR(ValNombre(pertes().text(8, 18)), 3 * 2 * ValNombre(pertes().text(8, 16)), 0.5);

    // The emitter list of the room head.
    classeur->CliqueCellule(3, 18);
    ASSERT_TRUE(classeur->vue().listes[1].visible);
    EXPECT_EQ(classeur->vue().listes[1].elements, Emetteurs());
    classeur->ChoixListe(1, 3);
    EXPECT_EQ(pertes().text(3, 18), QStringLiteral("Pl. ch."));

    // F2-like insertion below a wall line: the form asks for a bridge line.
    ui.formulaires[QStringLiteral("Frm_ChoixLigneCalorifuites")] = [this] {
        ChoisirLigneInseree(*classeur, true);
        return true;
    };
    classeur->CliqueCellule(6, 15);
    classeur->InsererLigne();
    EXPECT_EQ(pertes().text(7, 0), QStringLiteral("TableauLigneCalculPontThermique"));
    EXPECT_EQ(pertes().text(12, 0), QStringLiteral("TableauLigneRésultats"));
    // Removing the whole table from its head.
    ui.reponses.enqueue(ReponseOui);
    classeur->CliqueCellule(3, 3);
    classeur->SupprimerLigne();
    EXPECT_EQ(ui.dernierMessage(),
              QStringLiteral("Attention, depuis cette ligne la commande "
                             "efface le tableau complet du local."));
    EXPECT_NE(pertes().text(3, 0), QStringLiteral("TableauLigne1"));
    EXPECT_EQ(classeur->vue().aide, QStringLiteral("Total calorifuites : 0 W "));
}

TEST_F(SessionPertesTest, NoWallNoTable)
{
    remplirAdministratif();
    classeur->ChangementFeuille(2);
    classeur->ChangementFeuille(5);
    EXPECT_EQ(ui.dernierMessage(),
              QStringLiteral("Vous devez créer des parois, Onglet Coef-U, "
                             "avant d'atteindre cette page."));
    EXPECT_EQ(ui.messages.last().titre, QStringLiteral("Thermique."));
    EXPECT_EQ(etat().FeuilleActive, 1);
    EXPECT_EQ(pertes().text(3, 0).trimmed(), QString());
}

// ---- One table on bare grids ----------------------------------------------------------------

namespace {

class TableauPertesTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        couleurs.verrouillee = gris;
        // Coef-U: an outer wall (Rse 0.04, Rsi 0.13, U 1.00) keyed 0001, a window 0002.
        parois.setText(3, 0, QStringLiteral("0001"));
        parois.setText(3, 9, QStringLiteral("0.040"));
        parois.setText(7, 9, QStringLiteral("0.130"));
        parois.setText(8, 11, QStringLiteral("1.00"));
        parois.setText(8, 12, QStringLiteral("1.00"));
        parois.setText(10, 0, QStringLiteral("0002"));
        parois.setText(11, 6, QStringLiteral("Coefficients de la fenêtre :"));
        parois.setText(11, 11, QStringLiteral("2.00"));
        parois.setText(11, 12, QStringLiteral("1.50"));
        EcrireTableau(
            g, 0, couleurs,
            {QStringLiteral("Mur@A1@@@1.00@1.00@0001"), QStringLiteral("Fen.@A6@@@2.00@1.50@0002")},
            {}, -5);
        g.setText(0, 9, QStringLiteral("20"));
        g.setText(5, 3, QStringLiteral("25.00"));
        g.setText(5, 2, QStringLiteral("25.00"));
        g.setText(5, 5, QStringLiteral("2.50"));
        g.setText(2, 15, QStringLiteral("10.00"));
        g.setText(3, 15, QStringLiteral("2.00"));
    }

    Grid g {20, ColonnesPertes};
    Grid parois {20, 14};
    Grid ventilation {26, 23};
    CouleursPertes couleurs;
    ContexteCalculPertes ctx {g, parois, ventilation, gris, false};
};

} // namespace

TEST_F(TableauPertesTest, InclinationOfAWallLine)
{
    struct Cas
    {
        const char *inclinaison, *u;
    };
    // 1/((1 − 0.13) + Rα): 0 and 1 give Rα 0.1695 → 0.96; 90 → 1.00; 180 → 1.03.
    const Cas cas[] = {{"0", "0.96"}, {"1", "0.96"}, {"90", "1.00"}, {"180", "1.03"}};
    for (const Cas &c : cas) {
        g.setText(2, P::Inclinaison, QString::fromUtf8(c.inclinaison));
        CalculLignePertes(ctx, 2);
        EXPECT_EQ(g.text(2, P::UJour), QString::fromUtf8(c.u)) << c.inclinaison;
        EXPECT_EQ(g.text(2, P::UNuit), QString::fromUtf8(c.u)) << c.inclinaison;
    }
    // A key that Coef-U no longer has leaves the U as entered.
    g.setText(2, P::Cle, QStringLiteral("0009"));
    g.setText(2, P::UJour, QStringLiteral("0.70"));
    CalculLignePertes(ctx, 2);
    EXPECT_EQ(g.text(2, P::UJour), QStringLiteral("0.70"));
}

TEST_F(TableauPertesTest, ImpossibleWindowIsFalseAndLosesNothing)
{
    CalculLignePertes(ctx, 3);
    EXPECT_EQ(g.text(3, P::UJour), QStringLiteral("2.00"));
    EXPECT_EQ(g.text(3, P::UNuit), QStringLiteral("1.50"));
    const QString avec = g.text(5, P::Pertes);

    struct Cas
    {
        const char *jour, *nuit, *b, *colonne12, *colonne13;
    };
    const Cas cas[] = {
        {"0", "1.50", "1.00", "Faux", "1.50"},
        // A failed night value marks the day column too.
        {"2.00", "0", "1.00", "Faux", "1.50"},
        // With b other than 1.00 the window keeps its U.
        {"0", "0", "0.80", "2.00", "1.50"},
    };
    for (const Cas &c : cas) {
        g.setText(3, P::UJour, QStringLiteral("2.00"));
        g.setText(3, P::UNuit, QStringLiteral("1.50"));
        g.setText(3, P::B, QString::fromUtf8(c.b));
        parois.setText(11, 11, QString::fromUtf8(c.jour));
        parois.setText(11, 12, QString::fromUtf8(c.nuit));
        CalculLignePertes(ctx, 3);
        EXPECT_EQ(g.text(3, P::UJour), QString::fromUtf8(c.colonne12)) << c.jour << c.nuit;
        EXPECT_EQ(g.text(3, P::UNuit), QString::fromUtf8(c.colonne13)) << c.jour << c.nuit;
    }
    g.setText(3, P::B, QStringLiteral("1.00"));
    parois.setText(11, 11, QStringLiteral("0"));
    CalculLignePertes(ctx, 3);
    EXPECT_EQ(g.text(3, P::Pertes).trimmed(), QString());
    EXPECT_LT(ValNombre(g.text(5, P::Pertes)), ValNombre(avec));
}

TEST_F(TableauPertesTest, VolumeAndKeptAirTemperature)
{
    struct Cas
    {
        const char *aire, *hauteur, *volume;
    };
    const Cas cas[] = {{"25.00", "2.50", "62.50"},
                       {"399.99", "2.50", "999.98"},
                       {"400.00", "2.50", "1 000"},
                       {"1 250.00", "3.00", "3 750"}};
    for (const Cas &c : cas) {
        g.setText(5, 2, milliers(c.aire));
        g.setText(5, 5, QString::fromUtf8(c.hauteur));
        CalculVolume(ctx, 5);
        EXPECT_EQ(g.text(5, 9).trimmed(), QString::fromUtf8(c.volume)) << c.aire;
        EXPECT_EQ(g.text(5, 8), g.text(5, 9));
    }
    // With no area the room keeps the θa it had.
    g.setText(0, P::TemperatureAir, QStringLiteral("21.50"));
    g.setText(5, 2, QStringLiteral(" "));
    g.setText(5, 3, QStringLiteral(" "));
    CalculVolume(ctx, 5);
    CalculLocal(ctx, 0);
    EXPECT_EQ(g.text(0, P::TemperatureAir), QStringLiteral("21.50"));
    EXPECT_EQ(g.text(2, P::DeltaT), QStringLiteral("26.50"));
}

TEST_F(TableauPertesTest, HeightSupplementComesAndGoes)
{
    struct Cas
    {
        const char *hauteur;
        bool ligne;
        const char *facteur;
    };
    const Cas cas[] = {{"5.00", false, ""},
                       {"5.50", true, "0.10"},
                       {"10.00", true, "0.10"},
                       {"10.50", true, "0.20"},
                       {"5.00", false, ""}};
    for (const Cas &c : cas) {
        // The results row moves down when the supplement row comes.
        const int resultats = TrouverTableau(g, 0).resultats;
        g.setText(resultats, P::Hauteur, QString::fromUtf8(c.hauteur));
        CalculVolume(ctx, resultats);
        CalculLocal(ctx, 0);
        const TableauLocal t = TrouverTableau(g, 0);
        ASSERT_EQ(t.complement >= 0, c.ligne) << c.hauteur;
        const double somme = [&] {
            double s = 0;
            for (int r = t.titres + 1; r <= t.air; ++r)
                s += ValNombre(g.text(r, P::Pertes));
            return s;
        }();
        if (c.ligne) {
            EXPECT_EQ(t.complement, t.air + 1);
            EXPECT_TRUE(g.text(t.complement, 10).endsWith(QStringLiteral(" x ") + c.facteur));
            const double f = Val(QString::fromUtf8(c.facteur));
            EXPECT_EQ(g.text(t.resultats, P::Pertes),
                      Format(somme * f + somme, QStringLiteral("###,###,##0")));
        } else {
            EXPECT_EQ(g.text(t.resultats, P::Pertes), Format(somme, QStringLiteral("###,###,##0")));
        }
    }
}

TEST_F(TableauPertesTest, AirLineReadsTheVentilationSheet)
{
    // Base flow 20, Po 0.25, P 50, zone flow of the two-value form 220.
    const char *cellules[][2] = {{"5", "20"},
                                 {"19", "Bâtiment collectif : 0.25"},
                                 {"21", "50"},
                                 {"25", "Maxi : 220 ; Mini : 100"}};
    for (const auto &c : cellules)
        for (int col = 12; col <= 22; ++col)
            ventilation.setText(QString::fromUtf8(c[0]).toInt(), col, QString::fromUtf8(c[1]));
    // Leakage: the window's m 2 · opening 1.5 + Pe 3 + 25 m² · 0.25 = 12.25;
    // Qv = (220 − 20)·2·12.25/50 + Qi 30 = 98 + 30 = 128.
    g.setText(3, P::Permeabilite, QStringLiteral("2.00"));
    g.setText(3, P::SurfaceOuvrant, QStringLiteral("1.50"));
    g.setText(5, P::Pe, QStringLiteral("3.00"));
    g.setText(5, P::Qi, QStringLiteral("30.00"));
    CalculVolume(ctx, 5);

    struct Cas
    {
        const char *recuperation;
        double part; // share of Qi that is lost
    };
    const Cas cas[] = {{" ", 1}, {"R(%) = 60", 0.4}, {"R(%) = 100", 0}};
    for (const Cas &c : cas) {
        g.setText(5, P::Recuperation, QString::fromUtf8(c.recuperation));
        CalculLocal(ctx, 0);
        EXPECT_EQ(g.text(4, P::Quantite), QStringLiteral(" 128"));
        const double deltaT = ValNombre(g.text(4, P::DeltaT));
        EXPECT_EQ(g.text(4, P::DeltaT), g.text(2, P::DeltaT));
        EXPECT_EQ(
            g.text(4, P::Pertes),
            Format(98 * 0.34 * deltaT + 30 * 0.34 * c.part * deltaT, QStringLiteral("###,###,##0")))
            << c.recuperation;
    }
    // Without the building's permeability the room has its own flow only.
    for (int col = 12; col <= 22; ++col)
        ventilation.setText(21, col,
                            QStringLiteral("Calcul automatique avec les pertes de chaleur."));
    CalculLocal(ctx, 0);
    EXPECT_EQ(g.text(4, P::Quantite), QStringLiteral(" 30"));
}

TEST_F(TableauPertesTest, DamagedTablesNeitherCrashNorLoop)
{
    // Whatever a damaged file or a stray edit leaves in the cells, a recalculation ends and
    // leaves readable figures.
    const QString textes[] = {QStringLiteral("Faux"),
                              QStringLiteral("-1e308"),
                              QStringLiteral("1e308"),
                              QStringLiteral(" "),
                              QString(),
                              QStringLiteral("(((("),
                              QStringLiteral("12.5.3"),
                              QStringLiteral("Maxi : ; Mini :"),
                              QStringLiteral("R(%) = x")};
    const QString codes[] = {CodePertes::Tete,      CodePertes::Titres, CodePertes::Paroi,
                             CodePertes::Pont,      CodePertes::Air,    CodePertes::Complement,
                             CodePertes::Resultats, CodePertes::Fin,    QStringLiteral(" ")};
    for (int graine = 0; graine < 40; ++graine) {
        Grid abime(30, ColonnesPertes);
        unsigned x = 2463534242u + unsigned(graine);
        auto suivant = [&x] {
            x ^= x << 13;
            x ^= x >> 17;
            x ^= x << 5;
            return x;
        };
        for (int r = 0; r < abime.rows(); ++r) {
            abime.setText(r, 0, codes[suivant() % 9]);
            for (int c = 1; c < abime.cols(); ++c)
                abime.setText(r, c, textes[suivant() % 9]);
            abime.setOperation(r, 15, textes[suivant() % 9]);
        }
        for (int c = 12; c <= 22; ++c)
            for (int r : {5, 19, 21, 25})
                ventilation.setText(r, c, textes[suivant() % 9]);
        ContexteCalculPertes abimeCtx {abime, parois, ventilation, gris, false};
        ReevaluerOperations(abime);
        for (int r = 0; r < abime.rows(); ++r) {
            CalculVolume(abimeCtx, r);
            CalculLignePertes(abimeCtx, r);
        }
        EXPECT_LE(abime.rows(), 60) << graine;
        (void)CalculTotalPertes(abime);
    }
}

TEST_F(SessionPertesTest, HelpPanelByRowAndColumn)
{
    preparerMaison();
    struct Cas
    {
        int ligne, colonne;
        const char *debut;
    };
    const Cas cas[] = {
        {5, 3, "Code de la ligne : A1"},     {5, 15, "Surface (m²) d'une paroi"},
        {9, 17, "Coefficient de réduction"}, {3, 4, "Nom du local"},
        {3, 18, "Type d'émetteur"},          {11, 5, "Hauteur sous plafond"},
    };
    for (const Cas &c : cas) {
        classeur->SurvolCellule(c.ligne, c.colonne, false);
        EXPECT_TRUE(classeur->vue().aide.startsWith(QString::fromUtf8(c.debut)))
            << c.ligne << "," << c.colonne << ": " << classeur->vue().aide.toStdString();
    }
}
