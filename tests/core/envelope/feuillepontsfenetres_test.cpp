// Sessions replayed through the workbook: a window block on the Coef-U sheet, a bridge on
// the Coef-Pth sheet, and both reaching the heat-loss lines that hold their keys.
#include "envelope/bridges/cataloguepont.h"
#include "envelope/bridges/feuillepontsthermiques.h"
#include "envelope/coefu/feuillecoefu.h"
#include "envelope/windows/calculfenetre.h"
#include "envelope/windows/cataloguesfenetres.h"
#include "scripteduserinterface.h"
#include "workbook/classeur.h"
#include "workbook/etatvue.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace thermique;
namespace C = ColonneParoi;
namespace L = LigneFenetre;

namespace {

constexpr qint32 gris = 12632256;

class SessionPontsFenetres : public ::testing::Test
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
        coefU->fenetres = ExtensionMenuiseries();
        classeur->installerFeuille(1, std::move(feuille));
        auto ponts = std::make_unique<FeuillePontsThermiques>();
        feuillePonts = ponts.get();
        classeur->installerFeuille(2, std::move(ponts));
        classeur->ChargementInitial();
        Grid &admin = etude.flexGrid[0];
        admin.setText(9, 13, QStringLiteral("Toulon"));
        admin.setText(12, 13, QStringLiteral("Bâtiment collectif."));
        admin.setText(13, 13, QStringLiteral("(b) Exposée."));
    }

    Grid &u() { return etude.flexGrid[1]; }
    Grid &pth() { return etude.flexGrid[2]; }

    void saisir(int ligne, int colonne, const QString &texte)
    {
        classeur->CliqueCellule(ligne, colonne);
        classeur->ToucheCaractere(texte.at(0).unicode());
        classeur->SaisieTexteChange(texte);
        classeur->SaisieTouche(Touche::Entree, 0, false, true);
    }

    // A window of 1.00 x 1.25 with a PVC frame of 0.10, white, without sill.
    void fenetre(int tete)
    {
        classeur->CliqueCellule(tete, C::Nom);
        ASSERT_TRUE(classeur->vue().listes[1].visible);
        classeur->ChoixListe(1, int(TypesParois().indexOf(TypeFenetre())));
        DimensionsFenetre d;
        d.largeur = 1.00;
        d.hauteur = 1.25;
        d.profil = 0.10;
        ContexteParois ctx = coefU->contexte(*classeur);
        AppliquerDimensions(ctx, tete, d, false, 0);
        saisir(tete, C::ResistanceSuperficielle, QStringLiteral("1.8"));
        ContexteParois ctx2 = coefU->contexte(*classeur);
        ASSERT_TRUE(AppliquerChoixCatalogue(ctx2, tete + L::Vitrage, GenreCatalogue::Vitrages,
                                            {QStringLiteral("Double 4/16/4 argon FE"),
                                             QStringLiteral("0.024"), QStringLiteral("0.62"),
                                             QStringLiteral("1.1"), QStringLiteral("0.78")}));
        saisir(tete + L::PsiVitrage, C::ResistanceSuperficielle, QStringLiteral("0.06"));
    }

    QTemporaryDir dossier;
    Study etude;
    ScriptedUserInterface ui;
    std::unique_ptr<Classeur> classeur;
    FeuilleCoefU *coefU = nullptr;
    FeuillePontsThermiques *feuillePonts = nullptr;
};

} // namespace

TEST_F(SessionPontsFenetres, WindowBlockFromDimensionsAndCatalogues)
{
    classeur->ChangementFeuille(2);
    ASSERT_EQ(classeur->etat().FeuilleActive, 1);
    fenetre(3);
    EXPECT_TRUE(ui.messages.isEmpty()) << ui.dernierMessage().toStdString();

    for (int i = 0; i < L::Nombre; ++i) {
        if (i != L::SurfaceMenuiserie && i != L::SurfaceVitrage && i != L::Resultat) {
            EXPECT_EQ(u().text(3 + i, C::Libelle), LibellesFenetre().at(i)) << i;
        }
    }
    EXPECT_EQ(u().text(3, C::Cle), QStringLiteral("0001"));
    EXPECT_EQ(u().text(3, C::Nom), QStringLiteral("FE. 1.00 x 1.25 Volet"));
    EXPECT_EQ(u().text(3, C::Teinte), QStringLiteral("0.40"));
    EXPECT_EQ(u().text(3, C::Code), QStringLiteral("A7")); // collective building
    EXPECT_EQ(u().text(3, C::Permeabilite), QStringLiteral("0.30"));
    EXPECT_EQ(u().text(3, C::FacteurSolaire), QStringLiteral("0.62")); // from the glazing
    EXPECT_EQ(u().text(4, C::Libelle),
              QStringLiteral("Surface de menuiserie (m²), (hors tout : L 1.00 x H 1.25) :"));
    EXPECT_EQ(u().text(4, C::ResistanceSuperficielle), QStringLiteral("0.33"));
    EXPECT_EQ(u().text(5, C::ResistanceSuperficielle), QStringLiteral("1.100"));
    EXPECT_EQ(u().text(5, C::Cache), QStringLiteral("0.78"));
    EXPECT_EQ(u().text(6, C::ResistanceSuperficielle), QStringLiteral("0.92"));
    EXPECT_EQ(u().text(8, C::ResistanceSuperficielle), QStringLiteral("3.90"));
    EXPECT_TRUE(u().estVerrouillee(4, C::Libelle, gris));
    EXPECT_FALSE(u().estVerrouillee(4, C::ResistanceSuperficielle, gris));

    // No shutter, no box: Uwf = Ujn = Uw = 1.84/1.25; TL = 0.78·0.736.
    const int res = 3 + L::Resultat;
    EXPECT_EQ(u().text(res, C::UJour), QStringLiteral("1.47"));
    EXPECT_EQ(u().text(res, C::UNuit), QStringLiteral("1.47"));
    EXPECT_EQ(u().text(3, C::UJour), QStringLiteral("1.47"));
    EXPECT_EQ(u().text(res, C::Libelle),
              QStringLiteral("Coefficients de la fenêtre, (Uw = 1.47), (Uwf = 1.47), "
                             "(Ujn = 1.47), (Sw1 = 0.46) :"));
    EXPECT_EQ(u().text(res, C::Resistance), u().text(res, C::Libelle));
    EXPECT_TRUE(u().mergeRow(res));
    EXPECT_EQ(u().text(6, C::Libelle), QStringLiteral("Surface de vitrage (m²), (TL = 0.57) :"));
    EXPECT_EQ(u().text(3, C::Cache).split(QLatin1Char('$')).size(), 12);
    EXPECT_EQ(u().text(3, C::Cache).section(QLatin1Char('$'), 1, 1), QStringLiteral("1.472"));

    // The tools of the block's cells.
    struct Outil
    {
        int ligne, colonne;
        const char *formulaire;
    };
    const Outil outils[] = {
        {3, C::ResistanceSuperficielle, "Frm_UVitrages"},
        {5, C::ResistanceSuperficielle, "Frm_UVitrages"},
        {7, C::ResistanceSuperficielle, "Frm_UVitrages"},
        {17, C::ResistanceSuperficielle, "Frm_UVitrages"},
        {18, C::ResistanceSuperficielle, "Frm_UVitrages"},
        {9, C::ResistanceSuperficielle, ""},
        {3, C::Libelle, "Frm_UVitrages_1"},
        {4, C::Libelle, "Frm_FenêtresSaisies"},
        {14, C::Libelle, "Frm_FenêtresSaisies"},
        {5, C::Libelle, ""},
        {30, C::Libelle, ""},
    };
    for (const Outil &o : outils)
        EXPECT_EQ(FormulaireFenetre(u(), o.ligne, o.colonne), QString::fromUtf8(o.formulaire))
            << o.ligne << " " << o.colonne;
    EXPECT_TRUE(AideFenetre(u(), 3, C::Permeabilite).contains(QStringLiteral("A2 = 0.8")));
    EXPECT_TRUE(
        AideFenetre(u(), 3, C::FacteurSolaire).contains(QStringLiteral("triple vitrage 0.70")));
    EXPECT_TRUE(AideFenetre(u(), 4, C::FacteurSolaire).isEmpty());

    // A shutter of R 0.15 typed in its row.
    saisir(3 + L::Volets, C::ResistanceSuperficielle, QStringLiteral("0.15"));
    EXPECT_EQ(u().text(res, C::UJour), QStringLiteral("1.47"));
    EXPECT_EQ(u().text(res, C::UNuit), QStringLiteral("1.21"));
    EXPECT_TRUE(u().text(res, C::Libelle).contains(QStringLiteral("(Ujn = 1.34)")));

    // A transom surface without its coefficient: "Faux" stands for Uw and Uwf.
    saisir(3 + L::SurfaceImposte, C::ResistanceSuperficielle, QStringLiteral("0.2"));
    EXPECT_EQ(u().text(res, C::UJour), QStringLiteral("Faux"));
    EXPECT_EQ(u().text(res, C::UNuit), QStringLiteral("Faux"));
    EXPECT_EQ(u().text(3, C::UJour), QStringLiteral("Faux"));
    saisir(3 + L::SurfaceImposte, C::ResistanceSuperficielle, QStringLiteral("0"));
    EXPECT_EQ(u().text(res, C::UJour), QStringLiteral("1.47"));

    // The buffer carries the joinery to a second block; the code follows the building.
    const TamponMenuiserie t = TamponDepuisBloc(u(), 3);
    const QString chemin = dossier.filePath(QStringLiteral("TamponMenuiserie.txt"));
    ASSERT_TRUE(EcrireTampon(chemin, t));
    const auto relu = LireTampon(chemin);
    ASSERT_TRUE(relu);
    EXPECT_EQ(*relu, t);
    EXPECT_TRUE(relu->enregistrements.contains(QStringLiteral("VitrageCoef=1.100")));
    EXPECT_TRUE(relu->enregistrements.contains(QStringLiteral("TL=0.78")));
    classeur->CliqueCellule(25, C::Nom);
    classeur->ChoixListe(1, int(TypesParois().indexOf(TypeFenetre())));
    ASSERT_EQ(u().text(25, C::Cle), QStringLiteral("0002"));
    etude.flexGrid[0].setText(12, 13, QStringLiteral("Maison individuelle."));
    ContexteParois ctx = coefU->contexte(*classeur);
    AppliquerTampon(ctx, 25, *relu);
    EXPECT_EQ(u().text(25, C::Code), QStringLiteral("A6"));
    EXPECT_EQ(u().text(25, C::ResistanceSuperficielle), QStringLiteral("1.800"));
    EXPECT_EQ(u().text(25 + L::Vitrage, C::ResistanceSuperficielle), QStringLiteral("1.100"));
    EXPECT_EQ(u().text(25 + L::Volets, C::ResistanceSuperficielle), QStringLiteral("0.150"));
    EXPECT_EQ(u().text(25, C::Libelle), LibellesFenetre().at(0));
    // Surfaces are not carried: the block waits for its dimensions.
    EXPECT_EQ(u().text(25 + L::Resultat, C::UJour), QString());
}

TEST_F(SessionPontsFenetres, BridgeFromCatalogueAndPicture)
{
    classeur->ChangementFeuille(3);
    ASSERT_EQ(classeur->etat().FeuilleActive, 2);
    EXPECT_EQ(pth().text(1, 13), QStringLiteral("U"));
    EXPECT_EQ(pth().text(2, 13), QStringLiteral("W/(m.K)"));
    Grid vierge;
    ConstruireGrillePonts(vierge);
    EXPECT_EQ(vierge.colWidth(11), 10);
    EXPECT_EQ(vierge.colWidth(12), 10);
    EXPECT_EQ(vierge.text(1, 6), QStringLiteral("Composant"));
    EXPECT_EQ(classeur->vue().boutons[5].infobulle,
              QStringLiteral("Sélection rapide des ponts thermiques"));

    // Typing does nothing on this sheet.
    classeur->CliqueCellule(4, 1);
    classeur->ToucheCaractere('a');
    EXPECT_FALSE(classeur->vue().saisie.visible);

    FichierPont p;
    p.texte3[1] = QStringLiteral("L9");
    p.texte4 = {QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("1")};
    p.appliquerForme();
    p.tables[3].cellules[0] = QStringLiteral("0.62");
    p.image = QStringLiteral("PT-01.bmp");
    ui.formulaires[QStringLiteral("Frm_PontsThermiques")] = [&] {
        const int ligne = classeur->etat().LigneCourante;
        AppliquerPont(pth(), ligne, NomPont(p, QStringLiteral("Balcon en about de dalle")),
                      p.texte3[1], ChoisirValeur(p, {}, {}), etude.compteurParois,
                      classeur->etat().CouleurVerrouillee);
        return true;
    };
    classeur->ClicDroitCellule(4, 1);
    EXPECT_EQ(pth().text(4, 1), QStringLiteral("PT-01 : Balcon en about de dalle"));
    EXPECT_EQ(pth().text(4, 2), QStringLiteral("L9"));
    EXPECT_EQ(pth().text(4, 13), QStringLiteral("0.62"));
    EXPECT_EQ(pth().text(4, 0), QStringLiteral("0001"));
    EXPECT_EQ(classeur->etat().EtudeModifiee, 1);
    // A filled row and another column open nothing.
    classeur->ClicDroitCellule(4, 1);
    classeur->ClicDroitCellule(6, 2);
    EXPECT_EQ(ui.formulairesOuverts.size(), 1);

    // The pointer over the row names its drawing when the file is there.
    classeur->SurvolCellule(4, 1, false);
    EXPECT_TRUE(feuillePonts->imageSurvolee().isEmpty());
    ASSERT_TRUE(QDir(dossier.path()).mkpath(QStringLiteral("Dessins Ponts Thermiques")));
    QFile image(dossier.filePath(QStringLiteral("Dessins Ponts Thermiques/PT-01.bmp")));
    ASSERT_TRUE(image.open(QIODevice::WriteOnly));
    image.close();
    classeur->SurvolCellule(4, 13, false);
    EXPECT_TRUE(feuillePonts->imageSurvolee().endsWith(QStringLiteral("PT-01.bmp")));
    EXPECT_TRUE(classeur->vue().aide.contains(QStringLiteral("W/(m.K)")));

    // The quick evaluation keeps its state in cells (0,0) and (1,0).
    ui.formulaires[QStringLiteral("frm_Ponts_Thermiques")] = [&] {
        EvaluationPonts e = EvaluationDeLaFeuille(pth());
        e.selections[0] = 4;
        EnregistrerEvaluation(pth(), e);
        return true;
    };
    classeur->Bouton(5);
    EXPECT_EQ(pth().text(0, 0), QStringLiteral("4;2;2;2;2;2;3;0;"));
    EXPECT_EQ(pth().text(1, 0), ValeursParDefaut());
}

TEST_F(SessionPontsFenetres, WindowAndBridgeReachTheHeatLossLines)
{
    classeur->ChangementFeuille(2);
    fenetre(3);
    classeur->ChangementFeuille(3);
    AppliquerPont(pth(), 3, QStringLiteral("PT-01 : Balcon"), QStringLiteral("L9"),
                  QStringLiteral("0.62"), etude.compteurParois, gris);
    ASSERT_EQ(pth().text(3, 0), QStringLiteral("0002"));

    // Two rooms each hold a line of the window and of the bridge.
    Grid &pertes = etude.flexGrid[4];
    if (pertes.cols() < 38)
        pertes.setCols(38);
    if (pertes.rows() < 40)
        pertes.setRows(40);
    for (int r : {6, 20})
        pertes.setText(r, 20, QStringLiteral("0001"));
    for (int r : {7, 21})
        pertes.setText(r, 20, QStringLiteral("0002"));
    classeur->ChangementFeuille(5);
    ASSERT_EQ(classeur->etat().FeuilleActive, 4);
    ASSERT_EQ(classeur->etat().ListeParois.size(), 1);
    EXPECT_EQ(classeur->etat().ListeParois[0],
              QStringLiteral("FE. 1.00 x 1.25 Volet@A7@0.30@0.62@1.47@1.47@0001"));
    EXPECT_EQ(classeur->etat().ListePonts,
              QStringList {QStringLiteral("PT-01 : Balcon@L9@0.62@0002")});

    // A shutter and a better bridge: every line with their keys follows.
    classeur->ChangementFeuille(2);
    saisir(3 + L::Volets, C::ResistanceSuperficielle, QStringLiteral("0.15"));
    classeur->ChangementFeuille(3);
    AppliquerPont(pth(), 3, QStringLiteral("PT-01 : Balcon"), QStringLiteral("L9"),
                  QStringLiteral("0.25"), etude.compteurParois, gris);
    classeur->ChangementFeuille(5);
    for (int r : {6, 20}) {
        EXPECT_EQ(pertes.text(r, 0), QStringLiteral("TableauLigneCalculParoi")) << r;
        EXPECT_EQ(pertes.text(r, 1), QStringLiteral("FE. 1.00 x 1.25 Volet")) << r;
        EXPECT_EQ(pertes.text(r, 9), QStringLiteral("A7")) << r;
        EXPECT_EQ(pertes.text(r, 12), QStringLiteral("1.47")) << r;
        EXPECT_EQ(pertes.text(r, 13), QStringLiteral("1.21")) << r;
    }
    for (int r : {7, 21}) {
        EXPECT_EQ(pertes.text(r, 0), QStringLiteral("TableauLigneCalculPontThermique")) << r;
        EXPECT_EQ(pertes.text(r, 9), QStringLiteral("L9")) << r;
        EXPECT_EQ(pertes.text(r, 14), QStringLiteral("0.25")) << r;
    }
}
