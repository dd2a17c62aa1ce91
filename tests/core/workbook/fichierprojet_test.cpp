#include "scripteduserinterface.h"
#include "workbook/classeur.h"
#include "workbook/fichierprojet.h"
#include "workbook/projet.h"
#include "workbook/records.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace thermique;

namespace {

// A study that uses every feature of the file: multi-line cells, quotes, accents, varied
// attributes, operations at both ends of rows, the labels that the code page loses.
Study etudeComplete()
{
    Study e;
    e.fenetre = {120, 45.5f, 9000, 15000};
    Grid &admin = e.flexGrid[0];
    admin.setText(10, 10, QStringLiteral("Toulon\r\n83000\r\nAltitude : 10 m"));
    admin.setText(4, 3, QStringLiteral("Client \"Dupont\", maître d'œuvre §2"));
    CellAttributes a;
    a.gras = true;
    a.alignement = AlignementDroiteCentre;
    a.couleurFond = 12632256;
    a.italique = true;
    a.police = QStringLiteral("Arial");
    a.taillePolice = 9.75f;
    a.barre = true;
    a.souligne = true;
    a.couleurTexte = 255;
    a.styleTexte = 3;
    admin.setAttributs(10, 10, a);
    admin.setRowHeight(10, 1200);
    admin.setColWidth(22, 0);
    admin.row = 4;
    admin.col = 3;
    admin.modeAffichage = 2;

    Grid &parois = e.flexGrid[1];
    parois.setText(1, 8, QStringLiteral("λ"));
    parois.setText(5, 1, QStringLiteral("Mur extérieur"));
    parois.setOperation(5, 0, QStringLiteral("1+1"));
    parois.setOperation(6, parois.cols() - 1, QStringLiteral("0.20*2"));

    Grid &pertes = e.flexGrid[4];
    pertes.setText(4, 0, QStringLiteral("TableauLigne1"));
    pertes.setText(4, 2, QStringLiteral("Séjour"));
    pertes.setText(4, 8, QStringLiteral("θrs :"));
    pertes.setText(4, 10, QStringLiteral("θe  :"));
    pertes.setText(4, 16, QStringLiteral("θa : "));
    pertes.setText(4, 11, QStringLiteral("-5"));
    pertes.setText(4, 17, QStringLiteral("19"));
    pertes.setText(5, 16, QStringLiteral("ΔT\r\n(K)"));
    pertes.setText(9, 0, QStringLiteral("TableauLigneRésultats"));
    pertes.setText(9, 18, QStringLiteral("1\u00A0250"));
    pertes.setOperation(7, 15, QStringLiteral("2.00*1.25-(0.88*1.08)*2"));
    // Column 0 of a row: its index is also "column Cols" of the row above.
    pertes.setOperation(8, 0, QStringLiteral("3*3"));

    e.flexGrid[3].setOperation(20, 12, QStringLiteral("30+15"));
    e.flexGrid[12].setText(59, 1, QStringLiteral("dernière cellule"));
    e.flexGrid3[0].setText(59, 9, QStringLiteral("ECS"));
    e.flexGrid3[12].setText(0, 2, QStringLiteral("Bois bûches"));
    e.roseDesVents.setText(36, 1, QStringLiteral("12.5"));
    e.temperatureNuit.text2[35] = QStringLiteral("22:00");
    e.temperatureNuit.check1Valeur[143] = 1;
    e.temperatureNuit.check1Actif[7] = false;
    e.temperatureNuit.text5[0] = QStringLiteral("Nuit");
    e.temperatureNuit.check6[23] = 1;
    e.compteurParois = 42;
    e.temperatureBaseCorrigee = -7;
    e.temperatureBaseEte = QStringLiteral("32");
    e.centrageFeuilles = 1;
    return e;
}

QStringList records(const QByteArray &octets)
{
    QStringList r;
    RecordReader lecteur(octets);
    while (auto s = lecteur.readString())
        r << *s;
    return r;
}

} // namespace

TEST(FichierProjet, RoundTripGivesTheSameStudyAndStableBytes)
{
    const Study source = etudeComplete();
    const FichierEtude fichier = EcrireEtude(source);
    Study relue;
    ASSERT_TRUE(LireEtude(fichier.dep, relue));
    EXPECT_EQ(relue, source);
    EXPECT_EQ(EcrireEtude(relue).dep, fichier.dep);
}

TEST(FichierProjet, QuotesAndTheGreekLabels)
{
    Study e;
    e.flexGrid[0].setText(2, 12, QStringLiteral("dit \"le Moulin\""));
    e.flexGrid[0].setText(3, 12, QStringLiteral("déjà $$$ là"));
    const FichierEtude f = EcrireEtude(e);
    EXPECT_TRUE(f.dep.contains("\"dit $$$le Moulin$$$\"\r\n"));
    Study relue;
    ASSERT_TRUE(LireEtude(f.dep, relue));
    EXPECT_EQ(relue.flexGrid[0].text(2, 12), QStringLiteral("dit \"le Moulin\""));
    // A literal "$$$" comes back as a quote: the file cannot tell them apart.
    EXPECT_EQ(relue.flexGrid[0].text(3, 12), QStringLiteral("déjà \" là"));
    // The heat-loss and Coef-U labels are rebuilt on reading.
    Study sansLabels = etudeComplete();
    sansLabels.flexGrid[4].setText(4, 8, QString());
    sansLabels.flexGrid[4].setText(5, 16, QStringLiteral("dT"));
    sansLabels.flexGrid[1].setText(1, 8, QString());
    ASSERT_TRUE(LireEtude(EcrireEtude(sansLabels).dep, relue));
    EXPECT_EQ(relue.flexGrid[4].text(4, 8), QStringLiteral("θrs :"));
    EXPECT_EQ(relue.flexGrid[4].text(5, 16), QStringLiteral("ΔT\r\n(K)"));
    EXPECT_EQ(relue.flexGrid[4].text(4, 2), QStringLiteral("Séjour"));
    EXPECT_EQ(relue.flexGrid[1].text(1, 8), QStringLiteral("λ"));
}

TEST(FichierProjet, LayoutRecordByRecord)
{
    Study e;
    for (Grid &g : e.flexGrid)
        g = Grid(1, 1);
    e.flexGrid[0].setText(0, 0, QStringLiteral("é§"));
    e.flexGrid[0].cellPtr(0, 0)->attributs.gras = true;
    e.flexGrid[4] = Grid(2, 2);
    e.flexGrid[4].setOperation(1, 0, QStringLiteral("1+2"));
    const QByteArray dep = EcrireEtude(e).dep;
    const QList<QByteArray> lignes = dep.split('\n');
    EXPECT_TRUE(dep.endsWith("\r\n"));
    EXPECT_EQ(lignes[0], QByteArray("0,0,0,0\r"));
    EXPECT_EQ(lignes[1], QByteArray("1,1,0,0\r")); // Rows, Cols, FixedRows, FixedCols
    EXPECT_EQ(lignes[2], QByteArray("0\r")); // display mode
    EXPECT_EQ(lignes[3], QByteArray("0,0\r")); // Col, Row
    EXPECT_EQ(lignes[4], QByteArray("240\r")); // row height
    EXPECT_EQ(lignes[5], QByteArray("960\r")); // column width, on row 0 only
    EXPECT_EQ(lignes[6], QByteArray("\"\xE9\xA7\"\r"));
    EXPECT_EQ(lignes[7], QByteArray("#TRUE#\r"));
    EXPECT_EQ(lignes[8], QByteArray("9\r"));
    EXPECT_EQ(lignes[9], QByteArray("-2147483643\r"));
    EXPECT_EQ(lignes[10], QByteArray("#FALSE#\r"));
    EXPECT_EQ(lignes[11], QByteArray("\"MS Sans Serif\"\r"));
    EXPECT_EQ(lignes[12], QByteArray("8.25\r"));
    // The operation at (1, 0) of a 2-column grid is also "column 2" of row 0: twice.
    // The blocks of grids 1 and 3 are empty (N = 0), then grid 4 with N = 2.
    EXPECT_TRUE(dep.contains("0\r\n0\r\n2\r\n\"2\xA7"
                             "1+2\"\r\n\"2\xA7"
                             "1+2\"\r\n"));
    Study relue;
    ASSERT_TRUE(LireEtude(dep, relue));
    EXPECT_EQ(relue.flexGrid[4].operation(1, 0), QStringLiteral("1+2"));
    // 60 x 10 + 12 x 60 x 3 consumption cells, then the centring flag.
    EXPECT_TRUE(dep.endsWith("\"\"\r\n0\r\n"));
}

TEST(FichierProjet, CompanionListsEachRoomTable)
{
    Study e = etudeComplete();
    Grid &p = e.flexGrid[4];
    // A second table whose head is followed by no results row.
    p.setText(30, 0, QStringLiteral("TableauLigne1"));
    p.setText(30, 11, QStringLiteral("-7"));
    p.setText(30, 17, QStringLiteral("20"));
    EXPECT_EQ(records(EcrireEtude(e).compagnon),
              (QStringList {"-5", "19", "1\u00A0250", "-7", "20"}));
    // A head on the very last row is never reached by the walk.
    p.setText(p.rows() - 1, 0, QStringLiteral("TableauLigne1"));
    EXPECT_EQ(records(EcrireEtude(e).compagnon).size(), 5);
}

TEST(FichierProjet, TruncatedOrDamagedFilesStopWithoutHarm)
{
    const QByteArray dep = EcrireEtude(etudeComplete()).dep;
    // Every cut keeps what was read and reports the failure.
    for (int coupe = 0; coupe < dep.size(); coupe += 997) {
        Study e;
        EXPECT_FALSE(LireEtude(dep.left(coupe), e)) << coupe;
    }
    struct Cas
    {
        const char *nom;
        QByteArray donnees;
    };
    const Cas cas[] = {
        {"huge rows", "0,0,0,0\r\n2000000000,38,0,0\r\n"},
        {"huge cols", "0,0,0,0\r\n10,2000000000,0,0\r\n"},
        {"product", "0,0,0,0\r\n100000,999,0,0\r\n0\r\n0,0\r\n"},
        {"negative", "0,0,0,0\r\n-5,3,0,0\r\n"},
        {"text for a number", "0,0,0,0\r\n\"abc\",3,0,0\r\n"},
        {"empty", ""},
    };
    for (const Cas &c : cas) {
        Study e;
        EXPECT_FALSE(LireEtude(c.donnees, e)) << c.nom;
        EXPECT_LE(e.flexGrid[0].rows(), 60) << c.nom;
    }
}

TEST(FichierProjet, OldFormatAndSnapshotsReadIntoTheSameGrids)
{
    const Study source = etudeComplete();
    for (int feuille = 0; feuille <= 4; ++feuille) {
        Study relue;
        ASSERT_TRUE(LireInstantane(EcrireInstantane(source, feuille), relue, feuille, true));
        Grid attendue = source.flexGrid[feuille];
        attendue.modeAffichage = 8;
        if (feuille != 1 && feuille != 3 && feuille != 4)
            attendue.clearOperations();
        EXPECT_EQ(relue.flexGrid[feuille], attendue) << feuille;
        EXPECT_EQ(relue.compteurParois, 42);
        EXPECT_EQ(relue.temperatureNuit, source.temperatureNuit);
        EXPECT_EQ(relue.centrageFeuilles, 1);
    }

    // An old file, written by hand: thirteen 2 x 2 blocks, then the same tail with 8
    // columns in the consumption grids 1 to 12.
    RecordWriter w;
    for (int i = 0; i < Study::NombreFeuilles; ++i) {
        w.integer(2).integer(2).endRecord();
        w.integer(0).integer(1).endRecord();
        w.stringRecord(i == 4 ? QStringLiteral("TableauLigne1\tSalle $$$A$$$\t")
                              : QStringLiteral("a%1\tb\t").arg(i));
        w.stringRecord(QStringLiteral("c\td\t"));
        w.integerRecord(500);
        w.integerRecord(700);
        w.integerRecord(300);
        w.integerRecord(310);
        w.integerRecord(2);
        w.single(0).single(0).single(9000).single(12000).endRecord();
        w.integer(1).integer(1).endRecord();
        for (int c = 0; c < 4; ++c) {
            w.booleanRecord(c == 3);
            w.integerRecord(7);
            w.integerRecord(12632256);
            w.booleanRecord(false);
            w.stringRecord(QStringLiteral("Arial"));
            w.single(10).endRecord();
            w.booleanRecord(false);
            w.booleanRecord(false);
            w.integerRecord(0);
            w.integerRecord(0);
        }
    }
    for (int i = 0; i < 3; ++i)
        w.integerRecord(0);
    w.integerRecord(-9);
    for (int l = 1; l < 73; ++l)
        w.stringRecord(QStringLiteral("0"));
    w.integerRecord(5);
    for (int i = 0; i < 36; ++i)
        w.stringRecord(QString());
    for (int i = 0; i < 144; ++i) {
        w.integerRecord(0);
        w.booleanRecord(true);
    }
    for (int i = 0; i < 6; ++i)
        w.stringRecord(QString());
    for (int i = 0; i < 72; ++i)
        w.integerRecord(0);
    w.stringRecord(QStringLiteral("33"));
    for (int i = 0; i < 13; ++i)
        for (int n = 0; n < 60 * (i == 0 ? 10 : 8); ++n)
            w.stringRecord(n == 0 ? QStringLiteral("g%1").arg(i) : QString());
    w.integerRecord(1);

    Study ancienne;
    ASSERT_TRUE(LireAncienneEtude(w.bytes(), ancienne));
    EXPECT_EQ(ancienne.flexGrid[0].text(0, 0), QStringLiteral("a0"));
    EXPECT_EQ(ancienne.flexGrid[7].text(1, 1), QStringLiteral("d"));
    EXPECT_EQ(ancienne.flexGrid[0].colWidth(1), 700);
    EXPECT_EQ(ancienne.flexGrid[0].rowHeight(1), 310);
    EXPECT_EQ(ancienne.flexGrid[0].modeAffichage, 8);
    EXPECT_TRUE(ancienne.flexGrid[0].attributs(1, 1).gras);
    EXPECT_EQ(ancienne.flexGrid[4].text(0, 1), QStringLiteral("Salle \"A\""));
    EXPECT_EQ(ancienne.flexGrid3[5].cols(), 8);
    EXPECT_EQ(ancienne.flexGrid3[5].text(0, 0), QStringLiteral("g5"));
    EXPECT_EQ(ancienne.temperatureBaseCorrigee, -9);
    EXPECT_EQ(ancienne.temperatureBaseEte, QStringLiteral("33"));
    EXPECT_EQ(ancienne.compteurParois, 5);
    EXPECT_EQ(ancienne.centrageFeuilles, 1);
}

namespace {

class ProjetTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dossier.isValid());
        classeur = std::make_unique<Classeur>(etude, ui, DossierApplication(dossier.path()));
        InstallerFichierProjet(*classeur);
        classeur->ChargementInitial();
    }
    QString chemin(const QString &nom) const { return dossier.filePath(nom); }

    QTemporaryDir dossier;
    Study etude;
    ScriptedUserInterface ui;
    std::unique_ptr<Classeur> classeur;
};

} // namespace

TEST_F(ProjetTest, SaveNamesTheFileAndItsCompanion)
{
    // Cancelling the dialog writes nothing and keeps the change flag.
    classeur->marquerModifiee();
    Enregistrer(*classeur);
    EXPECT_EQ(classeur->etat().EtudeModifiee, 1);
    EXPECT_TRUE(QDir(chemin("Dossiers")).entryList(QDir::Files).isEmpty());

    ui.fichiers.enqueue(chemin("Dossiers/etude"));
    Enregistrer(*classeur);
    EXPECT_EQ(classeur->etat().NomFichierEtude, chemin("Dossiers/etude.dep"));
    EXPECT_TRUE(QFile::exists(chemin("Dossiers/etude.dep")));
    EXPECT_TRUE(QFile::exists(chemin("Dossiers/etude.Pc1")));
    EXPECT_EQ(classeur->etat().EtudeModifiee, 0);
    EXPECT_TRUE(ui.dialogues.last().contains(QStringLiteral("Pertes de chaleur (.dep)|*.dep")));

    // "Save as" offers the name without its extension.
    ui.fichiers.enqueue(chemin("Dossiers/copie.dep"));
    EnregistrerSous(*classeur);
    EXPECT_TRUE(ui.dialogues.last().endsWith(QStringLiteral("|etude")));
    EXPECT_EQ(classeur->etat().NomFichierEtude, chemin("Dossiers/copie.dep"));
}

TEST_F(ProjetTest, FailedSaveKeepsThePreviousFile)
{
    classeur->etat().NomFichierEtude = chemin("etude.dep");
    etude.flexGrid[0].setText(2, 12, QStringLiteral("première version"));
    Enregistrer(*classeur);
    QFile f(chemin("etude.dep"));
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray avant = f.readAll();
    f.close();
    // The companion's place is taken by a folder: the pass fails as a whole.
    ASSERT_TRUE(QFile::remove(chemin("etude.Pc1")));
    ASSERT_TRUE(QDir().mkpath(chemin("etude.Pc1")));
    etude.flexGrid[0].setText(2, 12, QStringLiteral("seconde version"));
    classeur->marquerModifiee();
    Enregistrer(*classeur);
    EXPECT_EQ(ui.dernierMessage(),
              QStringLiteral("Une erreur s'est produite lors de l'enregistrement."));
    EXPECT_EQ(ui.messages.last().style, 54);
    EXPECT_EQ(ui.messages.last().titre, QStringLiteral("Erreur."));
    EXPECT_EQ(classeur->etat().EtudeModifiee, 1);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), avant);
}

TEST_F(ProjetTest, OpenAsksToSaveThenReadsAndRebuildsTheLists)
{
    Study autre = etudeComplete();
    autre.flexGrid[1].setText(5, 11, QStringLiteral("0.36"));
    QFile f(chemin("autre.dep"));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(EcrireEtude(autre).dep);
    f.close();
    classeur->marquerModifiee();
    ui.reponses.enqueue(ReponseNon);
    ui.fichiers.enqueue(chemin("autre.dep"));
    OuvrirFichier(*classeur);
    EXPECT_EQ(ui.messages.first().texte, QStringLiteral("Enregistrement du fichier ?"));
    EXPECT_EQ(etude.flexGrid[0].text(4, 3), autre.flexGrid[0].text(4, 3));
    EXPECT_EQ(classeur->etat().NomFichierEtude, chemin("autre.dep"));
    EXPECT_EQ(classeur->etat().EtudeModifiee, 0);
    EXPECT_EQ(classeur->etat().ListeParois.size(), 1);
    EXPECT_EQ(etude.flexGrid[1].colWidth(1), 3200);
    EXPECT_EQ(classeur->etat().FeuilleActive, 0);
}

TEST_F(ProjetTest, SnapshotsNameAndNumberTheirSessions)
{
    const QDate jour(2026, 11, 21);
    EXPECT_EQ(NomSauvegarde(classeur->etat(), jour),
              QStringLiteral("2026 nov. 21 - Non enregistré"));
    classeur->etat().NomFichierEtude = QStringLiteral("/x/Maison - Dupont.dep");
    EXPECT_EQ(NomSauvegarde(classeur->etat(), jour), QStringLiteral("Maison - Dupont.dep"));

    auto nomsSauvegardes = [&] {
        return QDir(chemin("SauvegardeInter")).entryList({"*.sav"}, QDir::Files, QDir::Name);
    };
    SauvegardeInter(*classeur, 0, jour);
    SauvegardeInter(*classeur, 5, jour);
    SauvegardeInter(*classeur, 4, jour);
    EXPECT_EQ(nomsSauvegardes(),
              (QStringList {"Maison - Dupont.dep-1.0.sav", "Maison - Dupont.dep-1.4.sav"}));
    // The same study started again: the next number.
    classeur->etat().SessionOuverte = false;
    SauvegardeInter(*classeur, 0, jour);
    EXPECT_TRUE(nomsSauvegardes().contains(QStringLiteral("Maison - Dupont.dep-2.0.sav")));
    // Two studies alternating both restart at 1.
    classeur->etat().NomFichierEtude = QStringLiteral("/x/Autre.dep");
    classeur->etat().SessionOuverte = false;
    SauvegardeInter(*classeur, 0, jour);
    classeur->etat().NomFichierEtude = QStringLiteral("/x/Maison - Dupont.dep");
    classeur->etat().SessionOuverte = false;
    SauvegardeInter(*classeur, 0, jour);
    EXPECT_EQ(classeur->etat().NumeroSession, 1);
    EXPECT_EQ(ListeRecuperation(classeur->dossier()),
              (QStringList {"Autre.dep-1.0.sav", "Maison - Dupont.dep-1.0.sav",
                            "Maison - Dupont.dep-2.0.sav"}));
}

TEST_F(ProjetTest, RecoveryAfterACrashBringsBackTheFiveSheets)
{
    const Study avant = etudeComplete();
    etude = avant;
    classeur->etat().NomFichierEtude = chemin("maison.dep");
    for (int s = 0; s <= 5; ++s)
        SauvegardeInter(*classeur, s);
    // The process dies; a new one starts on an empty study.
    Study nouvelle;
    ScriptedUserInterface ui2;
    Classeur apres(nouvelle, ui2, DossierApplication(dossier.path()));
    apres.ChargementInitial();
    const QStringList liste = ListeRecuperation(apres.dossier());
    ASSERT_EQ(liste.size(), 1);
    Recuperer(apres, liste.first());
    for (int s = 0; s <= 4; ++s) {
        EXPECT_EQ(nouvelle.flexGrid[s].rows(), avant.flexGrid[s].rows()) << s;
        for (int r = 0; r < avant.flexGrid[s].rows(); ++r)
            for (int c = 0; c < avant.flexGrid[s].cols(); ++c)
                ASSERT_EQ(nouvelle.flexGrid[s].cell(r, c), avant.flexGrid[s].cell(r, c))
                    << s << ' ' << r << ' ' << c;
    }
    EXPECT_EQ(nouvelle.compteurParois, 42);
    EXPECT_TRUE(apres.etat().NomFichierEtude.isEmpty());
    SupprimerRecuperation(apres.dossier(), liste);
    EXPECT_TRUE(ListeRecuperation(apres.dossier()).isEmpty());
}

TEST(FichierProjet, ReadingKeepsTheMergesOfTheBuiltSheets)
{
    // The file has no merge flag: a study read over built sheets keeps theirs, and rows
    // beyond the built ones start unmerged.
    const QByteArray dep = EcrireEtude(etudeComplete()).dep;
    Study construite;
    Grid &admin = construite.flexGrid[0];
    admin.modeFusion = 2;
    admin.setMergeRow(4, true);
    admin.setMergeCol(2, true);
    construite.flexGrid[4] = Grid(10, 38);
    construite.flexGrid[4].setMergeRow(9, true);
    ASSERT_TRUE(LireEtude(dep, construite));
    EXPECT_EQ(construite.flexGrid[0].modeFusion, 2);
    EXPECT_TRUE(construite.flexGrid[0].mergeRow(4));
    EXPECT_TRUE(construite.flexGrid[0].mergeCol(2));
    EXPECT_FALSE(construite.flexGrid[0].mergeRow(5));
    EXPECT_TRUE(construite.flexGrid[4].mergeRow(9));
    EXPECT_FALSE(construite.flexGrid[4].mergeRow(20));
    EXPECT_EQ(construite.flexGrid[0].text(4, 3), etudeComplete().flexGrid[0].text(4, 3));
}
