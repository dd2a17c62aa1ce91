#include "scripteduserinterface.h"

#include "administratif/feuilleadministrative.h"
#include "administratif/identite.h"
#include "climate/brouillemet.h"
#include "climate/choixsite.h"
#include "climate/fichiersclimat.h"

#include "workbook/classeur.h"
#include "workbook/nombres.h"
#include "workbook/records.h"

#include <gtest/gtest.h>

#include <QDate>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace thermique;

namespace {

constexpr qint32 gris = 12632256;
const QString var = QStringLiteral("Provence-Alpes-Côte d'Azur\\Var");
const QString drome = QStringLiteral("Auvergne-Rhône-Alpes\\Drôme");

void ecrire(const QString &chemin, const QByteArray &octets)
{
    QDir().mkpath(QFileInfo(chemin).absolutePath());
    QFile f(chemin);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(octets);
}

QStringList lignesCellule(const QString &texte)
{
    return texte.split(QStringLiteral("\r\n"));
}

class FeuilleAdministrativeTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dossier.isValid());
        ecrire(dossier.filePath("Couleur.txt"), "12632256\r\n");
        RecordWriter id;
        for (const char *c : {"Bureau Durand", "1 rue du Port", "Toulon", "04 94 00 00 00", "",
                              "durand@exemple.fr"})
            id.stringRecord(QString::fromUtf8(c));
        ecrire(dossier.filePath("Identité.txt"), id.bytes());
        RecordWriter geo;
        for (const char *l : {"Rég : Auvergne-Rhône-Alpes", "Dép : Drôme",
                              "Rég : Provence-Alpes-Côte d'Azur", "Dép : Var"})
            geo.stringRecord(QString::fromUtf8(l));
        ecrire(dossier.filePath("Fichiers Géographique.txt"), geo.bytes());
        ecrire(
            dossier.filePath(QStringLiteral("Base de données - Coordonnées des départements.txt")),
            EncoderWindows1252(QStringLiteral(
                "N°\tDépartement\tRégion\tPréfecture\tEté\tHiver\tAlt\tTété\tThiver\tHR\tDurée\r\n"
                "26\tDrôme\tARA\tValence\tEc\tH2d\t126\t34\t-6\t60\t5100\r\n"
                "83\tVar\tPACA\tToulon\tEd\tH3\t12\t32\t-5\t64\t4100\r\n")));
        ville(var, "Toulon",
              {"83137", "83000", "Var", "43.1244", "5.9284", "12", "83", "PACA", "GN0"});
        ville(var, "Bargème",
              {"83011", "83840", "Var", "43.7333", "6.5667", "1100", "83", "PACA", "GN2"});
        ville(drome, "Die",
              {"26113", "26150", "Drôme", "44.7536", "5.3703", "420", "26", "ARA", "GN0"});
        ville(drome, "Lus-la-Croix-Haute",
              {"26168", "26620", "Drôme", "44.6658", "5.7069", "1050", "26", "ARA", "GN9"});
        choisirDossier(var);
        demarrer();
    }

    void ville(const QString &choix, const char *nom, const QStringList &champs)
    {
        const QString n = QString::fromUtf8(nom);
        ecrire(dossier.filePath(QStringLiteral("Météo/") + QString(choix).replace('\\', '/') + '/'
                                + n + ".met"),
               BrouilleMet(EcrireFicheVille(QStringList {n} + champs), n + QStringLiteral(".met")));
    }

    void choisirDossier(const QString &choix)
    {
        RecordWriter w;
        w.stringRecord(choix);
        ecrire(dossier.filePath(QStringLiteral("Fichiers Météo.txt")), w.bytes());
    }

    void demarrer()
    {
        classeur = std::make_unique<Classeur>(etude, ui, DossierApplication(dossier.path()));
        classeur->installerFeuille(0, std::make_unique<FeuilleAdministrative>());
        classeur->ChargementInitial();
    }

    Grid &g() { return etude.flexGrid[0]; }

    // The user at the distance form types `saisie` and presses OK.
    void distance(const QString &saisie)
    {
        ui.formulaires[QStringLiteral("Frm_DistanceMer")] = [this, saisie] {
            DefinirDistanceMer(*classeur, saisie);
            return true;
        };
    }

    void choisirVille(const QString &nom)
    {
        classeur->CliqueCellule(9, 14);
        ASSERT_TRUE(classeur->vue().listes[0].visible);
        const qsizetype i = classeur->vue().listes[0].elements.indexOf(nom);
        ASSERT_GE(i, 0) << nom.toStdString();
        classeur->ChoixListe(0, int(i));
    }

    void choisir(int ligne, const QString &texte)
    {
        classeur->CliqueCellule(ligne, 15);
        ASSERT_TRUE(classeur->vue().listes[1].visible) << ligne;
        const qsizetype i = classeur->vue().listes[1].elements.indexOf(texte);
        ASSERT_GE(i, 0) << texte.toStdString();
        classeur->ChoixListe(1, int(i));
    }

    QTemporaryDir dossier;
    Study etude;
    ScriptedUserInterface ui;
    std::unique_ptr<Classeur> classeur;
};

} // namespace

TEST_F(FeuilleAdministrativeTest, BuildsTheSheetAsTabled)
{
    EXPECT_EQ(g().rows(), 19);
    EXPECT_EQ(g().cols(), 23);
    EXPECT_EQ(g().fixedRows, 0);
    EXPECT_EQ(g().fixedCols, 0);
    EXPECT_EQ(g().modeFusion, 2);
    EXPECT_EQ(g().colWidth(0), 10);
    EXPECT_EQ(g().colWidth(1), 500);
    EXPECT_EQ(g().colWidth(11), 999);
    EXPECT_EQ(g().colWidth(22), 500);
    const std::pair<int, int> hauteurs[]
        = {{0, 10},    {1, 280},   {2, 1470},  {4, 1470},  {5, 500}, {6, 220},
           {10, 2700}, {14, 2000}, {16, 1750}, {18, 2500}, {17, 280}};
    for (const auto &[ligne, twips] : hauteurs)
        EXPECT_EQ(g().rowHeight(ligne), twips) << ligne;
    for (int r = 0; r < 19; ++r)
        EXPECT_TRUE(g().mergeRow(r)) << r;

    struct Cas
    {
        int ligne, colonne;
        const char *texte;
        bool verrou, gras;
        int alignement;
    };
    const Cas cas[] = {
        {1, 1, "Etude Thermique :", true, true, AlignementGaucheCentre},
        {1, 22, "Affaire :", true, true, AlignementGaucheCentre},
        {2, 11,
         "Bureau Durand\r\n1 rue du Port\r\nToulon\r\n04 94 00 00 00\r\n\r\ndurand@exemple.fr",
         true, false, AlignementGaucheHaut},
        {2, 12, "", false, false, AlignementGaucheHaut},
        {3, 12, "Maître d'Oeuvre :", true, true, AlignementGaucheCentre},
        {4, 10, "", false, false, AlignementGaucheHaut},
        {4, 11, "", true, false, AlignementGaucheHaut},
        {5, 12, "ETUDE THERMIQUE.", true, true, AlignementCentreCentre},
        {6, 1, "Méthode simplifiée.", true, false, AlignementGaucheCentre},
        {7, 3, "Dossier n° : ", true, true, AlignementDroiteHaut},
        {7, 4, "", false, false, AlignementGaucheCentre},
        {7, 10, "Date : ", true, true, AlignementDroiteHaut},
        {7, 16, "", false, false, AlignementGaucheCentre},
        {7, 17, "  ", true, true, AlignementGaucheCentre},
        {9, 9, "Ville - Code postal - Département : \r\n", true, false, AlignementDroiteHaut},
        {9, 10, " ", false, false, AlignementGaucheHaut},
        {10, 22, " ", false, false, AlignementGaucheHaut},
        {12, 12, "Type de construction : ", true, false, AlignementDroiteHaut},
        {13, 13, " ", false, false, AlignementGaucheHaut},
        {14, 13, " ", true, false, AlignementGaucheCentre},
        {15, 1, "Besoins de chaleur pour le chauffage des locaux :", true, true,
         AlignementGaucheCentre},
        {17, 22, "Notes :", true, true, AlignementGaucheCentre},
        {18, 5, "", false, false, AlignementGaucheHaut},
        {0, 5, "", true, false, AlignementGeneral},
    };
    for (const Cas &c : cas) {
        const Cell &cell = g().cell(c.ligne, c.colonne);
        EXPECT_EQ(cell.texte, QString::fromUtf8(c.texte)) << c.ligne << "," << c.colonne;
        EXPECT_EQ(cell.attributs.couleurFond == gris, c.verrou) << c.ligne << "," << c.colonne;
        EXPECT_EQ(cell.attributs.gras, c.gras) << c.ligne << "," << c.colonne;
        EXPECT_EQ(cell.attributs.alignement, c.alignement) << c.ligne << "," << c.colonne;
    }
    EXPECT_EQ(g().cell(5, 1).attributs.taillePolice, 18.0f);
    EXPECT_EQ(g().cell(6, 22).attributs.taillePolice, 6.0f);

    const QStringList climat = lignesCellule(g().text(10, 1));
    ASSERT_EQ(climat.size(), 11);
    EXPECT_EQ(climat.first(), QStringLiteral("Latitude (°) : "));
    EXPECT_EQ(climat.last(), QStringLiteral("Degrés jour base 18°C : "));
    const QStringList resultats = lignesCellule(g().text(14, 12));
    ASSERT_EQ(resultats.size(), 8);
    EXPECT_EQ(resultats[0], QStringLiteral(" "));
    EXPECT_EQ(resultats[1], QStringLiteral("Surface totale chauffée (m²) : "));
    EXPECT_EQ(resultats[4], QStringLiteral("Volume chauffé à plus de 12°C (m³) : "));
    const QStringList besoins = lignesCellule(g().text(16, 1));
    ASSERT_EQ(besoins.size(), 6);
    EXPECT_EQ(besoins[2], QStringLiteral("Besoins moyens totaux (kWh/an.m²) : "));
    // The towns of the weather folder in use make the locality list.
    EXPECT_EQ(classeur->etat().FichiersMeteo,
              (QStringList {QStringLiteral("Bargème"), QStringLiteral("Toulon")}));
}

TEST_F(FeuilleAdministrativeTest, NoStartWithoutAnIdentity)
{
    QFile::remove(dossier.filePath("Identité.txt"));
    Study autre;
    ScriptedUserInterface autreUi;
    int ouvertures = 0;
    std::unique_ptr<Classeur> c;
    autreUi.formulaires[QStringLiteral("Frm_Identité")] = [&] {
        // OK on blanks does nothing; the form comes back until a name is given.
        Identite id;
        id.champs[0] = ++ouvertures < 3 ? QStringLiteral("   ") : QStringLiteral("Martin");
        id.piedDePage = QStringLiteral("Etude \"Martin\"");
        EXPECT_EQ(ValiderIdentite(*c, id), ouvertures >= 3);
        return true;
    };
    c = std::make_unique<Classeur>(autre, autreUi, DossierApplication(dossier.path()));
    c->installerFeuille(0, std::make_unique<FeuilleAdministrative>());
    c->ChargementInitial();
    EXPECT_EQ(ouvertures, 3);
    EXPECT_EQ(autre.flexGrid[0].text(2, 1), QStringLiteral("Martin\r\n\r\n\r\n\r\n\r\n"));
    const Identite relue = LireIdentite(DossierApplication(dossier.path()));
    EXPECT_EQ(relue.champs[0], QStringLiteral("Martin"));
    EXPECT_EQ(relue.piedDePage, QStringLiteral("Etude 'Martin'"));

    // Without a form (the batch tool) the start goes on with a blank identity.
    QFile::remove(dossier.filePath("Identité.txt"));
    Study batch;
    ScriptedUserInterface sansFormulaire;
    Classeur b(batch, sansFormulaire, DossierApplication(dossier.path()));
    b.installerFeuille(0, std::make_unique<FeuilleAdministrative>());
    b.ChargementInitial();
    EXPECT_EQ(sansFormulaire.formulairesOuverts, QStringList {QStringLiteral("Frm_Identité")});
    EXPECT_EQ(batch.flexGrid[0].rows(), 19);
}

TEST_F(FeuilleAdministrativeTest, ReplayedSessionFillsTheSiteAndLeavesTheSheet)
{
    // The three gates, one after another, as the cells fill.
    classeur->ChangementFeuille(2);
    EXPECT_EQ(ui.dernierMessage(),
              QStringLiteral("La ville n'est pas renseignée sur la feuille ADMINISTRATIVE."));

    distance(QStringLiteral("2"));
    choisirVille(QStringLiteral("Toulon"));
    EXPECT_EQ(ui.formulairesOuverts.count(QStringLiteral("Frm_DistanceMer")), 1);
    EXPECT_FALSE(ui.formulairesOuverts.contains(QStringLiteral("Frm_RéférenceGazNaturel")));
    EXPECT_EQ(g().text(9, 0), QStringLiteral("2"));
    for (int c : {10, 16, 22})
        EXPECT_EQ(g().text(9, c), QStringLiteral("Toulon - 83000 - Var")) << c;
    const QStringList attendu
        = {"43.1244", "5.9284", "12", "H3 - Ed", "W", "0", "0", "32", "64", "4100", NoticeDJU()};
    EXPECT_EQ(lignesCellule(g().text(10, 10)), attendu);
    EXPECT_EQ(g().text(10, 22), g().text(10, 10));
    EXPECT_EQ(etude.temperatureBaseCorrigee, 0);
    EXPECT_EQ(etude.temperatureBaseEte, QStringLiteral("32"));
    EXPECT_DOUBLE_EQ(classeur->etat().LatitudeSite, 43.1244);
    EXPECT_EQ(classeur->etat().ChangementMeteo, QStringLiteral("Oui"));
    EXPECT_EQ(classeur->etat().EtudeModifiee, 1);
    QFile villeChoisie(dossier.filePath(QStringLiteral("Fichier Ville.txt")));
    ASSERT_TRUE(villeChoisie.open(QIODevice::ReadOnly));
    EXPECT_EQ(RecordReader(villeChoisie.readAll()).string(), QStringLiteral("Toulon£"));

    classeur->ChangementFeuille(2);
    EXPECT_EQ(
        ui.dernierMessage(),
        QStringLiteral("L'usage du bâtiment n'est pas renseigné sur la feuille ADMINISTRATIVE."));
    choisir(12, QStringLiteral("Bâtiment collectif."));
    EXPECT_EQ(g().text(12, 13), QStringLiteral("Bâtiment collectif."));
    EXPECT_EQ(g().text(12, 22), QStringLiteral("Bâtiment collectif."));

    classeur->ChangementFeuille(2);
    EXPECT_EQ(ui.dernierMessage(),
              QStringLiteral(
                  "La situation du bâtiment n'est pas renseigné sur la feuille ADMINISTRATIVE."));
    // Toulon is on the coast: the seaside situation stands.
    choisir(13, QStringLiteral("(d) Isolée, en bord de mer."));
    EXPECT_EQ(g().text(13, 13), QStringLiteral("(d) Isolée, en bord de mer."));

    const qsizetype messages = ui.messages.size();
    classeur->ChangementFeuille(2);
    EXPECT_EQ(ui.messages.size(), messages);
    EXPECT_EQ(classeur->etat().FeuilleActive, 1);
    EXPECT_EQ(lignesCellule(g().text(10, 10)).size(), 11);
}

TEST_F(FeuilleAdministrativeTest, TownChoiceByDepartmentAndAltitude)
{
    struct Cas
    {
        QString dossierMeteo;
        const char *ville;
        const char *distanceSaisie; // nullptr: no form
        QStringList lignes; // zones, letter, base, corrected
        int corrigee;
        bool niveauGazDemande;
    };
    const Cas cas[] = {
        // Var at 1100 m, 10 km from the sea: T0 -2, above 900 m; "V" though above 1000 m.
        {var, "Bargème", "10", {"H3 - Ed", "V", "-2", "-8"}, -8, false},
        // 30 km away: T0 stays -5; 1100 m reads row 11, column 1.
        {var, "Bargème", "30", {"H3 - Ed", "V", "-5", "-10"}, -10, false},
        // A negative distance counts as 0 and the cell says so.
        {var, "Toulon", "-4", {"H3 - Ed", "W", "0", "0"}, 0, false},
        // Drôme: "W" only for the listed towns; 420 m with T0 -6 reads row 5, column 2.
        {drome, "Die", nullptr, {"H2d - Ec", "W", "-6", "-8"}, -8, false},
        {drome, "Lus-la-Croix-Haute", nullptr, {"H2d - Ec", "V", "-6", "-14"}, -14, true},
    };
    for (const Cas &c : cas) {
        ui.formulairesOuverts.clear();
        ui.formulaires.clear();
        choisirDossier(c.dossierMeteo);
        ApresChoixRegion(*classeur);
        if (c.distanceSaisie)
            distance(QString::fromUtf8(c.distanceSaisie));
        choisirVille(QString::fromUtf8(c.ville));
        const QStringList l = lignesCellule(g().text(10, 10));
        ASSERT_EQ(l.size(), 11) << c.ville;
        EXPECT_EQ(l.mid(3, 4), c.lignes) << c.ville;
        EXPECT_EQ(etude.temperatureBaseCorrigee, c.corrigee) << c.ville;
        EXPECT_EQ(ui.formulairesOuverts.contains(QStringLiteral("Frm_DistanceMer")),
                  c.distanceSaisie != nullptr);
        EXPECT_EQ(ui.formulairesOuverts.contains(QStringLiteral("Frm_RéférenceGazNaturel")),
                  c.niveauGazDemande)
            << c.ville;
    }
    EXPECT_EQ(g().text(9, 0), QStringLiteral("0"));

    // The gas-level form is not asked when the study flag is set.
    ui.formulairesOuverts.clear();
    classeur->etat().DrapeauEtude = -1;
    choisirVille(QStringLiteral("Lus-la-Croix-Haute"));
    EXPECT_FALSE(ui.formulairesOuverts.contains(QStringLiteral("Frm_RéférenceGazNaturel")));
}

TEST_F(FeuilleAdministrativeTest, BadTownAndDepartmentFilesFillEmptyValues)
{
    // A town file that is not scrambled with its own name, and a department not in the file.
    ecrire(dossier.filePath(QStringLiteral("Météo/Provence-Alpes-Côte d'Azur/Var/Abîmé.met")),
           QByteArray("\x01\x02\xff", 3));
    ville(var, "Paris", {"75056", "75001", "Paris", "48.85", "2.35", "35", "75", "IDF", "GN0"});
    ApresChoixRegion(*classeur);
    ui.formulaires.clear();
    choisirVille(QStringLiteral("Abîmé"));
    QStringList l = lignesCellule(g().text(10, 10));
    ASSERT_EQ(l.size(), 11);
    EXPECT_EQ(l[5], QString());
    EXPECT_EQ(l[10], NoticeDJU());
    choisirVille(QStringLiteral("Paris"));
    l = lignesCellule(g().text(10, 10));
    EXPECT_EQ(l.mid(0, 5), (QStringList {"48.85", "2.35", "35", "", "V"}));
    EXPECT_EQ(l.mid(5, 5), (QStringList {"", "", "", "", ""}));
    // A missing town file is the same.
    QFile::remove(
        dossier.filePath(QStringLiteral("Météo/Provence-Alpes-Côte d'Azur/Var/Paris.met")));
    choisirVille(QStringLiteral("Paris"));
    EXPECT_EQ(g().text(9, 10), QStringLiteral(" -  - Var"));
}

TEST_F(FeuilleAdministrativeTest, ListChoicesAndTheirEffects)
{
    // Inland: the seaside situation becomes the open country, without a message.
    choisirDossier(drome);
    ApresChoixRegion(*classeur);
    choisirVille(QStringLiteral("Die"));
    choisir(13, QStringLiteral("(d) Isolée, en bord de mer."));
    EXPECT_EQ(g().text(13, 13), QStringLiteral("(e) Isolée, en rase campagne."));
    EXPECT_TRUE(ui.messages.isEmpty());

    // A situation cuts the climate cell after the notice and blanks the results.
    g().setText(10, 10, QStringLiteral("43\r\n") + NoticeDJU() + QStringLiteral("\r\nreste"));
    for (int c = 13; c <= 22; ++c) {
        g().setText(14, c, QStringLiteral("120"));
        g().setText(16, c, QStringLiteral("8 000"));
    }
    choisir(13, QStringLiteral("(b) Dans une ville de moyenne importance."));
    EXPECT_EQ(g().text(10, 10), QStringLiteral("43\r\n") + NoticeDJU());
    EXPECT_EQ(g().text(10, 22), QStringLiteral("43\r\n") + NoticeDJU());
    EXPECT_EQ(g().text(14, 13), QStringLiteral(" "));
    EXPECT_EQ(g().text(16, 22), QStringLiteral(" "));

    // The joinery codes follow the building type on both sheets, once a type was known.
    Grid &coefU = etude.flexGrid[1];
    Grid &pertes = etude.flexGrid[4];
    coefU.setText(5, 3, QStringLiteral("A6"));
    coefU.setText(6, 3, QStringLiteral("A1"));
    pertes.setText(8, 9, QStringLiteral("A6"));
    struct Etape
    {
        const char *type;
        const char *code;
    };
    const Etape etapes[] = {{"Maison individuelle.", "A6"},
                            {"Bâtiment collectif.", "A7"},
                            {"Bâtiment collectif.", "A7"},
                            {"Bureaux.", "A6"}};
    pertes.setText(9, 9, QStringLiteral("A7"));
    choisir(12, QStringLiteral("Maison individuelle."));
    // The first choice has no memory to differ from: nothing moves.
    EXPECT_EQ(pertes.text(9, 9), QStringLiteral("A7"));
    pertes.setText(9, 9, QStringLiteral("A6"));
    for (const Etape &e : etapes) {
        choisir(12, QString::fromUtf8(e.type));
        for (const QString &t : {coefU.text(5, 3), pertes.text(8, 9), pertes.text(9, 9)})
            EXPECT_EQ(t, QString::fromUtf8(e.code)) << e.type;
        EXPECT_EQ(coefU.text(6, 3), QStringLiteral("A1"));
        EXPECT_EQ(g().text(14, 13), QStringLiteral(" "));
    }
}

TEST_F(FeuilleAdministrativeTest, ListsOpenCloseAndSwallow)
{
    classeur->CliqueCellule(12, 20);
    ASSERT_TRUE(classeur->vue().listes[1].visible);
    EXPECT_EQ(classeur->vue().listes[1].elements.size(), 9);
    EXPECT_EQ(classeur->vue().listes[1].colonne, 13);
    // A second click on the cell closes the list instead of opening it again.
    classeur->CliqueCellule(12, 20);
    EXPECT_FALSE(classeur->vue().listes[1].visible);
    classeur->CliqueCellule(13, 13);
    EXPECT_EQ(classeur->vue().listes[1].elements, Situations());
    // Labels are locked: a click there never opens a list.
    classeur->CliqueCellule(12, 5);
    EXPECT_FALSE(classeur->vue().listes[1].visible);

    classeur->CliqueCellule(9, 10);
    ASSERT_TRUE(classeur->vue().listes[0].visible);
    EXPECT_EQ(classeur->vue().listes[0].hauteur, 3100);
    classeur->etat().IgnorerCombo = 1;
    classeur->ChoixListe(0, 1);
    EXPECT_EQ(classeur->etat().IgnorerCombo, 0);
    EXPECT_EQ(g().text(9, 10), QStringLiteral(" "));
}

TEST_F(FeuilleAdministrativeTest, RightClicksDateAndDocument)
{
    classeur->ClicDroitCellule(7, 13);
    const QString date = FormatDate(QDate::currentDate(), QStringLiteral("dd/mm/yyyy"));
    for (int c = 11; c <= 16; ++c)
        EXPECT_EQ(g().text(7, c), date) << c;
    EXPECT_EQ(g().text(7, 17), QStringLiteral("  "));
    classeur->ClicDroitCellule(12, 14);
    ASSERT_EQ(ui.documents.size(), 1);
    EXPECT_TRUE(ui.documents[0].endsWith(
        QStringLiteral("FA Batiment-habitation - Individuel ou collectif.pdf")));
    classeur->ClicDroitCellule(4, 3);
    EXPECT_EQ(ui.formulairesOuverts.last(), QStringLiteral("Frm_BasesDonnées"));
}

TEST_F(FeuilleAdministrativeTest, MenusOfTheSheet)
{
    // The weather folder: a department chosen relists the towns and blanks the site.
    choisirVille(QStringLiteral("Bargème"));
    choisir(13, QStringLiteral("(a) A l'intérieur d'un grand centre urbain."));
    ui.formulaires[QStringLiteral("frm_Météo")] = [this] {
        const auto regions = RegionsMeteo(*classeur);
        EXPECT_EQ(regions.size(), 2);
        return ChoisirDepartementMeteo(*classeur, regions[0].nom, regions[0].departements[0]);
    };
    classeur->Menu(QStringLiteral("Mnu_Météo"));
    EXPECT_EQ(LireChoixMeteo(classeur->dossier()), drome);
    EXPECT_EQ(classeur->etat().FichiersMeteo,
              (QStringList {QStringLiteral("Die"), QStringLiteral("Lus-la-Croix-Haute")}));
    for (const auto &[ligne, colonne] : {std::pair {9, 10}, {10, 22}, {13, 13}, {14, 22}, {16, 13}})
        EXPECT_EQ(g().text(ligne, colonne), QStringLiteral(" ")) << ligne << "," << colonne;
    // Cancelled: nothing is blanked.
    choisirVille(QStringLiteral("Die"));
    ui.formulaires[QStringLiteral("frm_Météo")] = [] {
        return false;
    };
    classeur->Menu(QStringLiteral("Mnu_Météo"));
    EXPECT_EQ(g().text(9, 10), QStringLiteral("Die - 26150 - Drôme"));

    // The weather data need a site.
    classeur->Menu(QStringLiteral("Mnu_DonnéesMétéo"));
    EXPECT_EQ(ui.formulairesOuverts.last(), QStringLiteral("Frm_MétéoDonnées"));

    // The identity only from this sheet.
    classeur->Menu(QStringLiteral("MnuIdentité"));
    EXPECT_EQ(ui.formulairesOuverts.last(), QStringLiteral("Frm_Identité"));
    classeur->etat().FeuilleActive = 3;
    classeur->Menu(QStringLiteral("MnuIdentité"));
    EXPECT_EQ(ui.dernierMessage(),
              QStringLiteral(
                  "Vous devez être sur la feuille administrative pour exécuter cette commande"));
    EXPECT_EQ(ui.messages.last().style, 16);
    EXPECT_EQ(ui.messages.last().titre, QStringLiteral("Thermique"));
}

TEST_F(FeuilleAdministrativeTest, HelpPanelByBand)
{
    struct Cas
    {
        int ligne, colonne;
        const char *debut;
    };
    const Cas cas[] = {
        {2, 3, "Fenêtre identité :"},
        {2, 15, "Fenêtre Affaire :"},
        {4, 3, "Fenêtre Maître d'Ouvrage :"},
        {4, 15, "Fenêtre Maître d'Oeuvre :"},
        {7, 5, "Saisie de la référence du dossier d'étude."},
        {7, 14, "Clic avec le bouton gauche pour entrer la date du jour"},
        {9, 14, "Pour choisir la région et le département :"},
        {10, 14, "Caractréristiques de la localité :"},
        {13, 14, "Clic gauche dans la cellule pour sélectionner le type de situation."},
        {18, 3, "Fenêtre Note :"},
        {5, 3, "Déplacer le pointeur de la souris sur les fenêtres"},
    };
    for (const Cas &c : cas) {
        classeur->SurvolCellule(c.ligne, c.colonne, false);
        EXPECT_TRUE(classeur->vue().aide.startsWith(QString::fromUtf8(c.debut)))
            << c.ligne << "," << c.colonne << ": " << classeur->vue().aide.toStdString();
    }
    // Within the tall results row the text follows the pointer's height.
    classeur->SurvolCellule(14, 5, false, 8800);
    EXPECT_TRUE(classeur->vue().aide.startsWith(QStringLiteral("Surface totale chauffée")));
    classeur->SurvolCellule(14, 5, false, 9500);
    EXPECT_TRUE(classeur->vue().aide.startsWith(QStringLiteral("Volume chauffé à plus de 12")));
    // Shift keeps the text.
    classeur->SurvolCellule(2, 3, true);
    EXPECT_TRUE(classeur->vue().aide.startsWith(QStringLiteral("Volume chauffé à plus de 12")));
}

TEST(Identite, RoomListAndLogo)
{
    QTemporaryDir dossier;
    const DossierApplication d(dossier.path());
    EXPECT_TRUE(EcrireListePieces(d, QStringLiteral("Séjour\r\nChambre \"1\"\nCuisine")));
    EXPECT_EQ(LireListePieces(d), QStringLiteral("Séjour\r\nChambre '1'\r\nCuisine"));
    EXPECT_TRUE(LireListePieces(DossierApplication(dossier.filePath("absent"))).isEmpty());

    Study etude;
    ScriptedUserInterface ui;
    Classeur c(etude, ui, d);
    c.installerFeuille(0, std::make_unique<FeuilleAdministrative>());
    c.ChargementInitial();
    EXPECT_FALSE(ChoisirLogo(c));
    ASSERT_EQ(ui.dialogues.size(), 1);
    EXPECT_TRUE(ui.dialogues[0].startsWith(QStringLiteral("ouvrir|Logo|Logo (*.jpg)|*.jpg|")));
    EXPECT_TRUE(QDir(dossier.filePath("Logo")).exists());

    ecrire(dossier.filePath("photo.jpg"), "JPEG");
    ui.fichiers.enqueue(dossier.filePath("photo.jpg"));
    EXPECT_TRUE(ChoisirLogo(c));
    QFile logo(dossier.filePath("Logo/Logo.jpg"));
    ASSERT_TRUE(logo.open(QIODevice::ReadOnly));
    EXPECT_EQ(logo.readAll(), QByteArray("JPEG"));
    EXPECT_TRUE(c.etat().LogoIdentite);
    const Grid &g = etude.flexGrid[0];
    EXPECT_FALSE(g.estVerrouillee(2, 3, c.etat().CouleurVerrouillee));
    EXPECT_TRUE(g.estVerrouillee(2, 4, c.etat().CouleurVerrouillee));
    EXPECT_TRUE(g.text(2, 8).isEmpty());

    Identite id;
    EXPECT_FALSE(ValiderIdentite(c, id));
    EXPECT_TRUE(c.etat().LogoIdentite);
    id.champs[5] = QStringLiteral("x@y.fr");
    EXPECT_TRUE(ValiderIdentite(c, id));
    EXPECT_FALSE(c.etat().LogoIdentite);
    EXPECT_TRUE(g.estVerrouillee(2, 1, c.etat().CouleurVerrouillee));
    EXPECT_EQ(g.text(2, 1), QStringLiteral("\r\n\r\n\r\n\r\n\r\nx@y.fr"));
}
