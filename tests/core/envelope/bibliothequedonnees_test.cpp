// The delivered wall library is built here by the program's own block editor from the
// delivered materials: the committed file must be what this build computes. Run with
// THERMIQUE_REGENERER=1 to rewrite it after a change of the walls or of the rules.
#include "envelope/coefu/editeurparois.h"
#include "envelope/library/bibliotheque.h"
#include "envelope/library/calculateurs.h"
#include "envelope/library/composants.h"
#include "scripteduserinterface.h"
#include "workbook/etatvue.h"
#include "workbook/nombres.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

using namespace thermique;
namespace C = ColonneParoi;

namespace {

const QString donnees
    = QFileInfo(QStringLiteral(__FILE__)).absoluteDir().filePath(QStringLiteral("../../../data"));

struct Couche
{
    const char *chemin; // "<category>/<variety>/<component>", or "" for an air layer
    const char *epaisseur;
};

struct Paroi
{
    const char *type;
    const char *nom;
    std::vector<Couche> couches;
    // Ground data (area, perimeter, wall, [depth], soil) and edge insulation, by label.
    std::vector<std::pair<const char *, const char *>> donnees = {};
    std::vector<Couche> peripherie = {};
};

const std::vector<Paroi> &parois()
{
    static const std::vector<Paroi> liste = {
        {"Mur Ext.",
         "parpaing 20 + doublage PSE 100 + BA13",
         {{"Plâtres et enduits/Enduits/Enduit ciment", "0.015"},
          {"Maçonnerie/Blocs béton/Bloc béton creux 20 cm (parpaing)", "0.20"},
          {"Isolants/Plastiques alvéolaires/Polystyrène expansé 032 (graphité)", "0.10"},
          {"Plâtres et enduits/Plaques de plâtre/Plaque de plâtre BA13", "0.013"}}},
        {"Mur Ext.",
         "brique creuse 20 + laine de verre 120 + BA13",
         {{"Plâtres et enduits/Enduits/Enduit monocouche", "0.015"},
          {"Maçonnerie/Briques/Brique creuse terre cuite 20 cm", "0.20"},
          {"Isolants/Laines minérales/Laine de verre 032", "0.12"},
          {"Plâtres et enduits/Plaques de plâtre/Plaque de plâtre BA13", "0.013"}}},
        {"Mur Ext.",
         "béton 18 + ITE PSE 140 sous enduit",
         {{"Plâtres et enduits/Enduits/Enduit d'ITE (sous-enduit armé et finition)", "0.006"},
          {"Isolants/Plastiques alvéolaires/Polystyrène expansé 031 (graphité)", "0.14"},
          {"Béton/Béton armé/Béton armé 1 % d'acier", "0.18"},
          {"Plâtres et enduits/Plâtres/Plâtre courant", "0.01"}}},
        {"Mur Ext.",
         "ossature bois 145 + fibre de bois 35",
         {{"Isolants/Isolants biosourcés/Fibre de bois haute densité 046", "0.035"},
          {"Isolants/Laines minérales/Laine de verre 035", "0.145"},
          {"Bois et panneaux/Panneaux dérivés du bois/Panneau OSB", "0.012"},
          {"Isolants/Laines minérales/Laine de verre 035", "0.045"},
          {"Plâtres et enduits/Plaques de plâtre/Plaque de plâtre BA13", "0.013"}}},
        {"Mur Ext.",
         "brique monomur 30",
         {{"Plâtres et enduits/Enduits/Enduit chaux", "0.02"},
          {"Maçonnerie/Briques/Brique monomur terre cuite 30 cm", "0.30"},
          {"Plâtres et enduits/Plâtres/Plâtre courant", "0.015"}}},
        {"Mur Ext.",
         "béton cellulaire 30",
         {{"Plâtres et enduits/Enduits/Enduit monocouche", "0.01"},
          {"Maçonnerie/Béton cellulaire/Béton cellulaire 350 kg-m³", "0.30"},
          {"Plâtres et enduits/Plâtres/Plâtre courant", "0.01"}}},
        {"Mur Ext.",
         "pierre calcaire 50 + laine de roche 100",
         {{"Maçonnerie/Pierres naturelles/Calcaire ferme", "0.50"},
          {"Isolants/Laines minérales/Laine de roche 035", "0.10"},
          {"Plâtres et enduits/Plaques de plâtre/Plaque de plâtre BA13", "0.013"}}},
        {"Mur Ext.",
         "brique pleine 22 + lame d'air 2 + laine de roche 100",
         {{"Maçonnerie/Briques/Brique pleine terre cuite", "0.22"},
          {"", "0.02"},
          {"Isolants/Laines minérales/Laine de roche 035", "0.10"},
          {"Plâtres et enduits/Plaques de plâtre/Plaque de plâtre BA13", "0.013"}}},
        {"Mur Ext.",
         "béton de chanvre 30",
         {{"Plâtres et enduits/Enduits/Enduit chaux", "0.02"},
          {"Maçonnerie/Terre et chanvre/Béton de chanvre (mur)", "0.30"},
          {"Plâtres et enduits/Enduits/Enduit chaux-chanvre", "0.02"}}},
        {"Mur Int.",
         "cloison 72/48 avec laine de verre",
         {{"Plâtres et enduits/Plaques de plâtre/Plaque de plâtre BA13", "0.013"},
          {"Isolants/Laines minérales/Laine de verre 040", "0.045"},
          {"Plâtres et enduits/Plaques de plâtre/Plaque de plâtre BA13", "0.013"}}},
        {"Mur Int.",
         "brique creuse 10 enduite",
         {{"Plâtres et enduits/Plâtres/Plâtre courant", "0.01"},
          {"Maçonnerie/Briques/Brique creuse terre cuite 10 cm (cloison)", "0.10"},
          {"Plâtres et enduits/Plâtres/Plâtre courant", "0.01"}}},
        {"Mur Ent.",
         "voile béton 20 + XPS 80",
         {{"Isolants/Plastiques alvéolaires/Polystyrène extrudé 029", "0.08"},
          {"Béton/Béton armé/Béton armé 1 % d'acier", "0.20"}},
         {{"Profondeur moyenne", "1.5"}}},
        {"Plaf. sous Comble.",
         "laine de verre soufflée 300",
         {{"Isolants/Laines minérales/Laine de verre soufflée 045", "0.30"},
          {"Membranes et étanchéité/Membranes/Pare-vapeur polyéthylène", "0.0002"},
          {"Plâtres et enduits/Plaques de plâtre/Plaque de plâtre BA13", "0.013"}}},
        {"Plaf. sous Comble.",
         "ouate de cellulose 320",
         {{"Isolants/Isolants biosourcés/Ouate de cellulose soufflée 040", "0.32"},
          {"Plâtres et enduits/Plaques de plâtre/Plaque de plâtre BA13", "0.013"}}},
        {"Plaf. sous Ramp.",
         "laine de verre 200 + 100",
         {{"Isolants/Laines minérales/Laine de verre 035", "0.20"},
          {"Isolants/Laines minérales/Laine de verre 035", "0.10"},
          {"Membranes et étanchéité/Membranes/Pare-vapeur polyéthylène", "0.0002"},
          {"Plâtres et enduits/Plaques de plâtre/Plaque de plâtre BA13", "0.013"}}},
        {"Plaf. sous  Terr.",
         "dalle béton + PIR 120",
         {{"Membranes et étanchéité/Membranes/Membrane bitumineuse", "0.006"},
          {"Isolants/Plastiques alvéolaires/Polyuréthane PIR parementé 022", "0.12"},
          {"Membranes et étanchéité/Membranes/Membrane bitumineuse", "0.004"},
          {"Béton/Béton armé/Béton armé 1 % d'acier", "0.20"},
          {"Plâtres et enduits/Plâtres/Plâtre courant", "0.01"}}},
        {"Plaf. sous  Terr.",
         "toiture inversée XPS 140",
         {{"Isolants/Plastiques alvéolaires/Polystyrène extrudé 029", "0.14"},
          {"Membranes et étanchéité/Membranes/Membrane bitumineuse", "0.008"},
          {"Béton/Béton armé/Béton armé 1 % d'acier", "0.20"},
          {"Plâtres et enduits/Plâtres/Plâtre courant", "0.01"}}},
        {"Plan. sur VS.",
         "hourdis béton + PUR 80 sous chape",
         {{"Béton/Béton armé/Plancher hourdis béton 16+4", "0.20"},
          {"Isolants/Plastiques alvéolaires/Polyuréthane PUR parementé 025", "0.08"},
          {"Revêtements de sol/Chapes/Chape ciment", "0.05"},
          {"Revêtements de sol/Revêtements de sol/Carrelage grès cérame", "0.01"}}},
        {"Plan. sur Sous-Sol.",
         "dalle béton + laine de roche 100 en sous-face",
         {{"Isolants/Laines minérales/Laine de roche 038", "0.10"},
          {"Béton/Béton armé/Béton armé 1 % d'acier", "0.20"},
          {"Revêtements de sol/Chapes/Chape ciment", "0.05"},
          {"Revêtements de sol/Revêtements de sol/Parquet chêne", "0.015"}}},
        {"Plan. sur Ext.",
         "porche, laine de roche 120 en sous-face",
         {{"Isolants/Laines minérales/Laine de roche haute densité (ITE)", "0.12"},
          {"Béton/Béton armé/Béton armé 1 % d'acier", "0.20"},
          {"Revêtements de sol/Chapes/Chape ciment", "0.05"},
          {"Revêtements de sol/Revêtements de sol/Carrelage grès cérame", "0.01"}}},
        {"Plan. TP, isol. continue.",
         "dallage + PUR 80 sous chape",
         {{"Béton/Béton armé/Béton armé 1 % d'acier", "0.12"},
          {"Isolants/Plastiques alvéolaires/Polyuréthane PUR parementé 025", "0.08"},
          {"Revêtements de sol/Chapes/Chape ciment", "0.05"}},
         {{"Aire", "100"}, {"Périmètre", "40"}, {"Epai.", "0.30"}, {"Conductivité", "2"}}},
        {"Plan. TP, isol. péri. hor.",
         "dallage non isolé, XPS 60 sur 1 m",
         {{"Béton/Béton armé/Béton armé 1 % d'acier", "0.12"},
          {"Revêtements de sol/Chapes/Chape ciment", "0.05"}},
         {{"Aire", "100"},
          {"Périmètre", "40"},
          {"Epai.", "0.30"},
          {"Conductivité", "2"},
          {"Largeur", "1"}},
         {{"Isolants/Plastiques alvéolaires/Polystyrène extrudé 029", "0.06"}}},
        {"Plan. de Sous-Sol CH.",
         "dallage de sous-sol chauffé à 2.5 m",
         {{"Béton/Béton armé/Béton armé 1 % d'acier", "0.15"},
          {"Revêtements de sol/Chapes/Chape ciment", "0.05"}},
         {{"Aire", "80"},
          {"Périmètre", "36"},
          {"Epai.", "0.30"},
          {"Profondeur", "2.5"},
          {"Conductivité", "2"}}},
    };
    return liste;
}

// Puts the layers on the rows from `premiere` on, adding rows with F2 when needed.
void poserCouches(BibliothequeParois &b, int premiere, int disponibles,
                  const std::vector<Couche> &couches)
{
    Grid &g = b.grille();
    for (int i = disponibles; i < int(couches.size()); ++i) {
        g.row = premiere + i - 1;
        g.col = C::Libelle;
        b.touche(Touche::F2);
    }
    ContexteParois ctx = b.contexte();
    for (size_t i = 0; i < couches.size(); ++i) {
        const int ligne = premiere + int(i);
        const QString chemin = QString::fromUtf8(couches[i].chemin);
        if (chemin.isEmpty()) {
            FormulaireLameAir f;
            f.epaisseur = QString::fromUtf8(couches[i].epaisseur);
            CalculerLameAir(f);
            ValiderLameAir(ctx, ligne, f);
            continue;
        }
        const auto c = LireComposant(donnees + QStringLiteral("/Composants/") + chemin
                                     + QStringLiteral(".txt"));
        ASSERT_TRUE(c) << chemin.toStdString();
        AppliquerComposant(ctx, ligne, chemin.section(QLatin1Char('/'), -1), *c);
        b.valider(ligne, C::Epaisseur, QString::fromUtf8(couches[i].epaisseur));
    }
}

int ligneLibelle(const Grid &g, int debut, const QString &libelle)
{
    for (int r = debut; r < g.rows(); ++r)
        if (g.text(r, C::Libelle).startsWith(libelle))
            return r;
    return -1;
}

} // namespace

TEST(BibliothequeDonnees, DeliveredLibraryIsWhatTheProgramComputes)
{
    ScriptedUserInterface ui;
    BibliothequeParois b(ui, 12632256, CouleurSystemeFenetre);
    Grid &g = b.grille();
    int ligne = 3;
    for (const Paroi &p : parois()) {
        const QString type = QString::fromUtf8(p.type);
        b.clic(ligne, C::Nom);
        ASSERT_TRUE(b.liste.visible);
        b.choixListe(int(TypesParois().indexOf(type)));
        ASSERT_EQ(g.text(ligne, C::Cache), type);
        b.valider(ligne, C::Nom, type + QLatin1Char(' ') + QString::fromUtf8(p.nom));
        for (const auto &[libelle, valeur] : p.donnees) {
            const int r = ligneLibelle(g, ligne + 1, QString::fromUtf8(libelle));
            ASSERT_GT(r, 0) << libelle;
            b.valider(r, C::Epaisseur, QString::fromUtf8(valeur));
        }
        const int entree = *LigneEntree(g, ligne);
        const int composition = ligneLibelle(g, ligne + 1, QStringLiteral("Composition"));
        const int premiere = composition > 0 && composition < entree ? composition + 1 : ligne + 1;
        int disponibles = entree - premiere;
        if (type == QStringLiteral("Mur Ent."))
            disponibles = 2;
        poserCouches(b, premiere, disponibles, p.couches);
        if (!p.peripherie.empty()) {
            const int nature = ligneLibelle(g, ligne + 1, QStringLiteral("Nature"));
            poserCouches(b, nature + 1, 2, p.peripherie);
        }
        const int fin = FinBloc(g, ligne);
        // Every wall is finished: a U on its head.
        EXPECT_GT(ValNombre(g.text(ligne, C::UJour)), 0) << p.nom;
        ligne = fin + 2;
    }
    EXPECT_TRUE(ui.messages.isEmpty()) << ui.dernierMessage().toStdString();
    EXPECT_GE(int(parois().size()), 15);

    QTemporaryDir tmp;
    const QString produit = tmp.filePath(QStringLiteral("Bibliothèque Parois.txt"));
    ASSERT_TRUE(b.enregistrer(produit));
    QFile f(produit);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray attendu = f.readAll();
    const QString livre = donnees + QStringLiteral("/Bibliothèque Parois.txt");
    if (qEnvironmentVariableIsSet("THERMIQUE_REGENERER")) {
        QFile sortie(livre);
        ASSERT_TRUE(sortie.open(QIODevice::WriteOnly));
        sortie.write(attendu);
    }
    QFile l(livre);
    ASSERT_TRUE(l.open(QIODevice::ReadOnly)) << "run with THERMIQUE_REGENERER=1";
    EXPECT_TRUE(l.readAll() == attendu) << "the delivered library differs from what this build "
                                           "computes; run with THERMIQUE_REGENERER=1";
}
