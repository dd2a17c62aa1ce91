// The workbook window driven by plain Qt events, offscreen, over the real controller and a
// scripted user.
#include "scripteduserinterface.h"

#include "workbook/barremenus.h"
#include "workbook/boitesaisie.h"
#include "workbook/classeur.h"
#include "workbook/couleurs.h"
#include "workbook/fenetremessageattente.h"
#include "workbook/fenetreprincipale.h"
#include "workbook/feuille.h"
#include "workbook/interfaceqt.h"
#include "workbook/listecellule.h"
#include "workbook/modelegrille.h"
#include "workbook/touches.h"
#include "workbook/twips.h"
#include "workbook/vuegrille.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>

using namespace thermique;
using thermique::gui::FenetrePrincipale;
using thermique::gui::ModeleGrille;
using thermique::gui::VueGrille;

namespace {

void ecrire(const QString &chemin, const QByteArray &contenu)
{
    QFile f(chemin);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(contenu);
}

void souris(QWidget *cible, QEvent::Type type, const QPoint &position,
            Qt::MouseButton bouton = Qt::LeftButton, Qt::KeyboardModifiers modificateurs = {})
{
    const Qt::MouseButtons tenus = type == QEvent::MouseButtonRelease ? Qt::NoButton : bouton;
    QMouseEvent e(type, QPointF(position), QPointF(cible->mapToGlobal(position)), bouton, tenus,
                  modificateurs);
    QApplication::sendEvent(cible, &e);
}

void touche(QWidget *cible, int cle, Qt::KeyboardModifiers modificateurs = {},
            const QString &texte = {})
{
    QKeyEvent e(QEvent::KeyPress, cle, modificateurs, texte);
    QApplication::sendEvent(cible, &e);
}

// A sheet whose right click opens a list of three items and that records the choice.
class FeuilleAListe : public Feuille
{
public:
    bool clicDroit(Classeur &c, int ligne, int colonne) override
    {
        ListeDeroulante &l = c.vue().listes[0];
        l.visible = true;
        l.ligne = ligne;
        l.colonne = colonne;
        l.elements = {QStringLiteral("Mur"), QStringLiteral("Plancher"), QStringLiteral("Toiture")};
        l.largeur = 3000;
        l.hauteur = 900;
        return true;
    }
    void choixListe(Classeur &, int liste, int index) override { choix << qMakePair(liste, index); }

    QList<QPair<int, int>> &choix;
    explicit FeuilleAListe(QList<QPair<int, int>> &journal)
        : choix(journal)
    { }
};

// The application as it starts, on a settings folder of its own.
class Atelier : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dossier.isValid());
        ecrire(dossier.filePath(QStringLiteral("Couleur.txt")), "-2147483624\r\n");
        ecrire(dossier.filePath(QStringLiteral("Fichiers Transfert.txt")), "#FALSE#\r\n");
        ecrire(dossier.filePath(QStringLiteral("PositionsFeuilles.ini")), "#FALSE#,0\r\n");
        classeur = std::make_unique<Classeur>(etude, ui, DossierApplication(dossier.path()));
        classeur->installerFeuille(0, std::make_unique<FeuilleAListe>(choixListes));
        fenetre = std::make_unique<FenetrePrincipale>(*classeur);
        fenetre->demarrer();
        fenetre->resize(1200, 800);
        fenetre->show();
        fenetre->activateWindow();
        QApplication::processEvents();
    }

    VueGrille *vue() const { return fenetre->vueActive(); }
    Grid &grille() { return classeur->grilleActive(); }
    qint32 verrou() const { return classeur->etat().CouleurVerrouillee; }
    QPoint centre(int r, int c) const { return vue()->rectCellule(r, c).center(); }

    void redessiner()
    {
        classeur->vue().grillesModifiees = true;
        fenetre->rafraichir();
    }
    void verrouiller(int r, int c) { grille().cellPtr(r, c)->attributs.couleurFond = verrou(); }
    void clic(int r, int c, Qt::MouseButton bouton = Qt::LeftButton)
    {
        souris(vue()->viewport(), QEvent::MouseButtonPress, centre(r, c), bouton);
        souris(vue()->viewport(), QEvent::MouseButtonRelease, centre(r, c), bouton);
    }
    void doubleClic(int r, int c)
    {
        clic(r, c);
        souris(vue()->viewport(), QEvent::MouseButtonDblClick, centre(r, c));
        souris(vue()->viewport(), QEvent::MouseButtonRelease, centre(r, c));
    }
    void remplirAdministratif()
    {
        Grid &g = etude.flexGrid[0];
        g.setText(9, 13, QStringLiteral("Paris"));
        g.setText(12, 13, QStringLiteral("Bâtiment collectif."));
        g.setText(13, 13, QStringLiteral("Urbain"));
    }

    QTemporaryDir dossier;
    Study etude;
    ScriptedUserInterface ui;
    QList<QPair<int, int>> choixListes;
    std::unique_ptr<Classeur> classeur;
    std::unique_ptr<FenetrePrincipale> fenetre;
};

// ---- Grid model and view ----------------------------------------------------------------

TEST(ModeleGrille, RangeesFusionneesSurTextesEgauxSeulement)
{
    struct Cas
    {
        const char *nom;
        QStringList textes;
        bool fusion;
        QList<QRect> attendu; // x = first column, width = span
    };
    const Cas cas[] = {
        {"textes égaux", {"", "Mur", "Mur", "Mur", "U"}, true, {QRect(1, 0, 3, 1)}},
        {"deux groupes", {"A", "A", "B", "B", "B"}, true, {QRect(0, 0, 2, 1), QRect(2, 0, 3, 1)}},
        {"tous différents", {"A", "B", "C", "D", "E"}, true, {}},
        {"égaux non adjacents", {"A", "B", "A", "B", "A"}, true, {}},
        {"blancs égaux fusionnés",
         {" ", " ", "", "", "X"},
         true,
         {QRect(0, 0, 2, 1), QRect(2, 0, 2, 1)}},
        {"ligne sans fusion", {"A", "A", "A", "A", "A"}, false, {}},
        {"casse différente", {"Mur", "mur", "Mur", "Mur", "x"}, true, {QRect(2, 0, 2, 1)}},
    };
    for (const Cas &c : cas) {
        Grid g(1, 5);
        for (int i = 0; i < 5; ++i)
            g.setText(0, i, c.textes.at(i));
        g.setMergeRow(0, c.fusion);
        ModeleGrille m;
        m.definirGrille(&g);
        EXPECT_EQ(m.fusions(), c.attendu) << c.nom;
    }
}

TEST(ModeleGrille, TitresFusionnesEnColonne)
{
    // Three header rows over one data row, as the coefficient sheets have them.
    Grid g(4, 4);
    g.fixedRows = 3;
    const char *textes[4][4] = {
        {"", "", "", ""},
        {"Paroi", "U", "λ", "λ"},
        {"Paroi", "U", "(W/m)", "λ"},
        {"Paroi", "U", "", ""},
    };
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            g.setText(r, c, QString::fromUtf8(textes[r][c]));
    g.setMergeCol(0, true);
    g.setMergeCol(3, true);
    g.setMergeRow(1, true);
    ModeleGrille m;
    m.definirGrille(&g);
    // Column 0 merges its titles, not the data row below them; column 1 has no flag; the
    // λ of column 3 already belongs to row 1's range and stays there.
    EXPECT_EQ(m.fusions(), (QVector<QRect> {QRect(2, 1, 2, 1), QRect(0, 1, 1, 2)}));
}

TEST(ModeleGrille, RolesDepuisLesAttributsStockes)
{
    Grid g(3, 4);
    g.fixedRows = 1;
    CellAttributes a;
    a.couleurFond = 0x00FFFF; // BGR: red + green = yellow
    a.couleurTexte = 0xFF0000; // blue
    a.gras = true;
    a.italique = true;
    a.souligne = true;
    a.barre = true;
    a.taillePolice = 12;
    g.setAttributs(1, 1, a);
    g.setText(1, 1, QStringLiteral("x"));
    CellAttributes verrou;
    verrou.couleurFond = CouleurSystemeInfoBulle;
    g.setAttributs(2, 2, verrou);
    ModeleGrille m;
    m.definirGrille(&g);
    const QPalette p = QApplication::palette();

    EXPECT_EQ(m.index(1, 1).data(Qt::BackgroundRole).value<QColor>(), QColor(255, 255, 0));
    EXPECT_EQ(m.index(1, 1).data(Qt::ForegroundRole).value<QColor>(), QColor(0, 0, 255));
    const QFont f = m.index(1, 1).data(Qt::FontRole).value<QFont>();
    EXPECT_TRUE(f.bold() && f.italic() && f.underline() && f.strikeOut());
    EXPECT_EQ(f.pointSizeF(), 12.0);
    EXPECT_EQ(f.family(), QApplication::font().family()); // "MS Sans Serif" is the default face
    // System colours come from the palette; a fixed row left at the window colour is drawn
    // as a button.
    EXPECT_EQ(m.index(2, 2).data(Qt::BackgroundRole).value<QColor>(),
              p.color(QPalette::ToolTipBase));
    EXPECT_EQ(m.index(2, 1).data(Qt::BackgroundRole).value<QColor>(), p.color(QPalette::Base));
    EXPECT_EQ(m.index(0, 1).data(Qt::BackgroundRole).value<QColor>(), p.color(QPalette::Button));
    EXPECT_EQ(m.index(2, 1).data(Qt::ForegroundRole).value<QColor>(), p.color(QPalette::Text));
}

TEST(ModeleGrille, AlignementsEtTexteAffiche)
{
    struct Cas
    {
        int code;
        const char *texte;
        Qt::Alignment attendu;
    };
    const Cas cas[] = {
        {0, "a", Qt::AlignLeft | Qt::AlignTop},
        {1, "a", Qt::AlignLeft | Qt::AlignVCenter},
        {4, "a", Qt::AlignCenter},
        {6, "a", Qt::AlignRight | Qt::AlignTop},
        {7, "a", Qt::AlignRight | Qt::AlignVCenter},
        {9, "Mur extérieur", Qt::AlignLeft | Qt::AlignVCenter},
        {9, "12.50", Qt::AlignRight | Qt::AlignVCenter},
        {9, "-3", Qt::AlignRight | Qt::AlignVCenter},
        {9, "1\u00a0234.56", Qt::AlignRight | Qt::AlignVCenter}, // thousands mark
        {9, "12 m²", Qt::AlignLeft | Qt::AlignVCenter},
        {9, " ", Qt::AlignLeft | Qt::AlignVCenter},
    };
    for (const Cas &c : cas) {
        Grid g(1, 1);
        CellAttributes a;
        a.alignement = c.code;
        g.setAttributs(0, 0, a);
        g.setText(0, 0, QString::fromUtf8(c.texte));
        ModeleGrille m;
        m.definirGrille(&g);
        EXPECT_EQ(m.index(0, 0).data(Qt::TextAlignmentRole).toInt(), c.attendu.toInt())
            << c.code << " " << c.texte;
    }
    // Cells keep CR LF line ends; the screen breaks lines on LF alone.
    EXPECT_EQ(gui::texteAffiche(QStringLiteral("a\r\nb\rc")), QStringLiteral("a\nb\nc"));
}

TEST(ModeleGrille, RafraichirSignaleCeQuiAChange)
{
    Grid g(4, 3);
    ModeleGrille m;
    m.definirGrille(&g);
    int resets = 0;
    QList<QPair<QModelIndex, QModelIndex>> changements;
    QObject::connect(&m, &QAbstractItemModel::modelReset, [&] { ++resets; });
    QObject::connect(
        &m, &QAbstractItemModel::dataChanged,
        [&](const QModelIndex &a, const QModelIndex &b) { changements << qMakePair(a, b); });

    EXPECT_TRUE(m.rafraichir().aucun());
    g.setText(1, 0, QStringLiteral("a"));
    g.setText(2, 2, QStringLiteral("b"));
    auto ch = m.rafraichir();
    EXPECT_TRUE(ch.cellules && ch.fusions && !ch.structure && !ch.dimensions);
    ASSERT_EQ(changements.size(), 1);
    EXPECT_EQ(changements[0].first, m.index(1, 0));
    EXPECT_EQ(changements[0].second, m.index(2, 2));
    EXPECT_EQ(m.index(2, 2).data().toString(), QStringLiteral("b"));

    g.setColWidth(1, 0);
    ch = m.rafraichir();
    EXPECT_TRUE(ch.dimensions && !ch.cellules);
    g.insertRow(1);
    ch = m.rafraichir();
    EXPECT_TRUE(ch.structure);
    EXPECT_EQ(resets, 1);
    EXPECT_EQ(m.rowCount(), 5);
    EXPECT_EQ(m.index(3, 2).data().toString(), QStringLiteral("b"));
}

TEST(VueGrille, DimensionsEnTwipsEtColonnesMasquees)
{
    Grid g(3, 4);
    g.setColWidth(0, 1500);
    g.setColWidth(2, 0);
    g.setRowHeight(1, 480);
    g.setRowHeight(2, 0);
    VueGrille v;
    v.definirGrille(&g);
    EXPECT_EQ(v.columnWidth(0), 100);
    EXPECT_TRUE(v.isColumnHidden(2));
    EXPECT_FALSE(v.isColumnHidden(3));
    EXPECT_EQ(v.columnWidth(3), gui::pixels(Grid::LargeurColonneDefaut));
    EXPECT_EQ(v.rowHeight(1), 32);
    EXPECT_TRUE(v.isRowHidden(2));

    // A width given back shows the column again.
    g.setColWidth(2, 750);
    v.rafraichir();
    EXPECT_FALSE(v.isColumnHidden(2));
    EXPECT_EQ(v.columnWidth(2), 50);
}

// ---- Key codes --------------------------------------------------------------------------

TEST(Touches, CodesClassiques)
{
    struct Cas
    {
        int cle;
        Qt::KeyboardModifiers modificateurs;
        const char *texte;
        int code;
        int masque;
        int caractere;
    };
    const Cas cas[] = {
        {Qt::Key_F2, {}, "", Touche::F2, 0, 0},
        {Qt::Key_F6, {}, "", Touche::F6, 0, 0},
        {Qt::Key_Delete, {}, "", Touche::Suppr, 0, 0},
        {Qt::Key_Left, {}, "", Touche::Gauche, 0, 0},
        {Qt::Key_Up, {}, "", Touche::Haut, 0, 0},
        {Qt::Key_Right, {}, "", Touche::Droite, 0, 0},
        {Qt::Key_Down, Qt::ShiftModifier, "", Touche::Bas, Touche::MasqueMaj, 0},
        {Qt::Key_Return, {}, "\r", Touche::Entree, 0, 0},
        {Qt::Key_Enter, Qt::KeypadModifier, "\r", Touche::Entree, 0, 0},
        {Qt::Key_Escape, {}, "\x1b", Touche::Echap, 0, 0},
        {Qt::Key_I, Qt::ControlModifier, "\t", Touche::I, Touche::MasqueCtrl, 0},
        {Qt::Key_T, Qt::ControlModifier, "\x14", Touche::T, Touche::MasqueCtrl, 0},
        {Qt::Key_C, Qt::ControlModifier, "\x03", Touche::C, Touche::MasqueCtrl, 3},
        {Qt::Key_V, Qt::ControlModifier, "\x16", Touche::V, Touche::MasqueCtrl, 22},
        {Qt::Key_A, {}, "a", 65, 0, 'a'},
        {Qt::Key_A, Qt::ShiftModifier, "A", 65, Touche::MasqueMaj, 'A'},
        {Qt::Key_5, {}, "5", 53, 0, '5'},
        {Qt::Key_5, Qt::KeypadModifier, "5", 101, 0, '5'},
        {Qt::Key_Period, Qt::KeypadModifier, ".", 110, 0, '.'},
        {Qt::Key_Asterisk, Qt::KeypadModifier, "*", 106, 0, '*'},
        {Qt::Key_Period, {}, ".", 190, 0, '.'},
        {Qt::Key_Space, {}, " ", Touche::Espace, 0, ' '},
        {Qt::Key_Eacute, {}, "é", 0, 0, 0xE9},
        {Qt::Key_Backspace, {}, "\b", Touche::Retour, 0, 0},
        {Qt::Key_X, Qt::ControlModifier | Qt::AltModifier, "", 88,
         Touche::MasqueCtrl | Touche::MasqueAlt, 0},
    };
    for (const Cas &c : cas) {
        const QKeyEvent e(QEvent::KeyPress, c.cle, c.modificateurs, QString::fromUtf8(c.texte));
        EXPECT_EQ(gui::codeTouche(e), c.code) << c.cle;
        EXPECT_EQ(gui::masqueTouches(e), c.masque) << c.cle;
        EXPECT_EQ(gui::codeCaractere(e), c.caractere) << c.cle;
    }
}

// ---- Input box and lists: geometry ----------------------------------------------------------

TEST(BoiteSaisie, GeometrieSelonLeTexte)
{
    const QFontMetrics mesure(QApplication::font());
    const QRect cellule(100, 40, 80, 16);
    const int bord = 600;

    // Fixed box: the cell less its grid lines, whatever the text.
    const QString long_ = QStringLiteral("0.25*3.20+1.15*2.40+12.5*0.85");
    EXPECT_EQ(
        gui::BoiteSaisie::geometrie(cellule, long_, QStringLiteral("AAA"), false, bord, mesure),
        QRect(100, 40, 79, 15));
    // Growing box: never narrower than the cell...
    EXPECT_EQ(gui::BoiteSaisie::geometrie(cellule, QStringLiteral("1"), QStringLiteral("AAA"), true,
                                          bord, mesure),
              QRect(100, 40, 79, 15));
    // ...as wide as the text and its margin...
    const QRect large
        = gui::BoiteSaisie::geometrie(cellule, long_, QStringLiteral("AAA"), true, bord, mesure);
    EXPECT_EQ(large.width(), mesure.horizontalAdvance(long_ + QStringLiteral("AAA")));
    EXPECT_GT(large.width(), 79);
    EXPECT_EQ(large.height(), 15);
    // ...and stopped short of the grid's edge, twice as high, when it would pass it.
    const QRect bute = gui::BoiteSaisie::geometrie(cellule, long_ + long_ + long_,
                                                   QStringLiteral("AAA"), true, 300, mesure);
    EXPECT_EQ(bute.left(), 100);
    EXPECT_EQ(bute.left() + bute.width(), 300 - gui::pixels(100));
    EXPECT_EQ(bute.height(), 31);
}

TEST(ListeCellule, SousLaCelluleEnTwips)
{
    ListeDeroulante l;
    const QRect cellule(30, 50, 64, 16);
    l.largeur = 3000;
    l.hauteur = 1500;
    EXPECT_EQ(gui::ListeCellule::geometrie(l, cellule), QRect(30, 66, 200, 100));
    l.largeur = 0; // the cell's width
    EXPECT_EQ(gui::ListeCellule::geometrie(l, cellule), QRect(30, 66, 64, 100));
}

TEST(InterfaceQt, FiltresDeFichiers)
{
    struct Cas
    {
        const char *entree;
        const char *attendu;
    };
    const Cas cas[] = {
        {"Fichiers Thermique|*.dep", "Fichiers Thermique (*.dep)"},
        {"Etudes|*.dep|Tous|*.*", "Etudes (*.dep);;Tous (*.*)"},
        {"Images|*.bmp;*.jpg", "Images (*.bmp *.jpg)"},
        {"Etudes (*.dep)|*.dep", "Etudes (*.dep)"},
        {"*.txt", "*.txt"},
        {"", ""},
    };
    for (const Cas &c : cas)
        EXPECT_EQ(gui::filtreQt(QString::fromUtf8(c.entree)), QString::fromUtf8(c.attendu))
            << c.entree;
}

TEST(Couleurs, ValeursStockees)
{
    const QPalette p = QApplication::palette();
    EXPECT_EQ(gui::couleurQt(255), QColor(255, 0, 0));
    EXPECT_EQ(gui::couleurQt(16776960), QColor(0, 255, 255)); // the box over an operation
    EXPECT_EQ(gui::couleurQt(0x80000005), p.color(QPalette::Base));
    EXPECT_EQ(gui::couleurQt(0x8000000F), p.color(QPalette::Button));
    EXPECT_EQ(gui::couleurQt(0x80000018), p.color(QPalette::ToolTipBase));
    EXPECT_EQ(gui::valeurCouleur(QColor(0x12, 0x34, 0x56)), 0x563412);
    EXPECT_EQ(gui::valeurCouleur(gui::couleurQt(0x0080FF)), 0x0080FF);
}

TEST(InterfaceQt, BoitesDeMessage)
{
    struct Cas
    {
        int style;
        QMessageBox::Icon icone;
        QStringList boutons;
        const char *clique; // the button pressed
        int reponse;
    };
    const Cas cas[] = {
        {16, QMessageBox::Critical, {"OK"}, "OK", ReponseOk},
        {48, QMessageBox::Warning, {"OK"}, "OK", ReponseOk},
        {64, QMessageBox::Information, {"OK"}, "OK", ReponseOk},
        {36, QMessageBox::Question, {"Oui", "Non"}, "Non", ReponseNon},
        {4, QMessageBox::NoIcon, {"Oui", "Non"}, "Oui", ReponseOui},
        {1, QMessageBox::NoIcon, {"OK", "Annuler"}, "Annuler", ReponseAnnuler},
        {2,
         QMessageBox::NoIcon,
         {"Abandonner", "Recommencer", "Ignorer"},
         "Ignorer",
         ReponseIgnorer},
        {3, QMessageBox::NoIcon, {"Oui", "Non", "Annuler"}, "Annuler", ReponseAnnuler},
        {5, QMessageBox::NoIcon, {"Recommencer", "Annuler"}, "Recommencer", ReponseReessayer},
        {54, QMessageBox::Warning, {"Annuler", "Recommencer", "Continuer"}, "Continuer", 11},
    };
    QWidget fenetre;
    fenetre.setWindowTitle(QStringLiteral(" Thermique : Bilan énergétique. "));
    gui::InterfaceQt ui;
    ui.definirFenetre(&fenetre);
    for (const Cas &c : cas) {
        QMessageBox::Icon icone = QMessageBox::NoIcon;
        QStringList boutons;
        QString titre;
        QTimer::singleShot(0, [&] {
            auto *boite = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            ASSERT_NE(boite, nullptr);
            icone = boite->icon();
            titre = boite->windowTitle();
            QAbstractButton *aCliquer = nullptr;
            for (QAbstractButton *b : boite->buttons()) {
                boutons << b->text().remove(QLatin1Char('&'));
                if (boutons.last() == QString::fromUtf8(c.clique))
                    aCliquer = b;
            }
            ASSERT_NE(aCliquer, nullptr);
            aCliquer->click();
        });
        const int reponse = ui.message(QStringLiteral("Texte"), c.style, QString());
        EXPECT_EQ(icone, c.icone) << c.style;
        QStringList attendus = c.boutons;
        boutons.sort();
        attendus.sort();
        EXPECT_EQ(boutons, attendus) << c.style;
        EXPECT_EQ(reponse, c.reponse) << c.style;
        EXPECT_EQ(titre, fenetre.windowTitle()) << "an empty title is the window's";
    }
}

TEST(InterfaceQt, FormulairesParNom)
{
    Study etude;
    gui::InterfaceQt ui;
    Classeur classeur(etude, ui, DossierApplication(QDir::tempPath()));
    QWidget fenetre;
    ui.definirFenetre(&fenetre);
    int ouvertures = 0;
    ui.formulaires().insert(QStringLiteral("Frm_Identité"), [&](Classeur &c, QWidget *parent) {
        ++ouvertures;
        EXPECT_EQ(&c, &classeur);
        EXPECT_EQ(parent, &fenetre);
        return true;
    });
    EXPECT_FALSE(ui.ouvrirFormulaire(QStringLiteral("Frm_Identité")))
        << "no form before the controller is known";
    ui.definirClasseur(&classeur);
    EXPECT_TRUE(ui.ouvrirFormulaire(QStringLiteral("Frm_Identité")));
    EXPECT_FALSE(ui.ouvrirFormulaire(QStringLiteral("Frm_Inconnu")));
    EXPECT_EQ(ouvertures, 1);
}

TEST(FenetreMessageAttente, BandeRougeQuiRespire)
{
    gui::FenetreMessageAttente bande;
    bande.afficher(QStringLiteral("Calculs en cours, veuillez patienter."));
    EXPECT_TRUE(bande.isVisible());
    EXPECT_TRUE(bande.windowFlags() & Qt::WindowStaysOnTopHint);
    EXPECT_TRUE(bande.windowFlags() & Qt::FramelessWindowHint);
    EXPECT_EQ(bande.etiquette()->font().pointSize(), 20);
    EXPECT_EQ(bande.etiquette()->palette().color(QPalette::WindowText), QColor(255, 0, 0));
    EXPECT_EQ(bande.width(), bande.screen()->availableGeometry().width());

    int minimum = 100, maximum = 0;
    QElapsedTimer t;
    t.start();
    while (t.elapsed() < 1500) {
        QApplication::processEvents(QEventLoop::AllEvents, 20);
        const int taille = bande.etiquette()->font().pointSize();
        minimum = std::min(minimum, taille);
        maximum = std::max(maximum, taille);
    }
    EXPECT_EQ(minimum, gui::FenetreMessageAttente::TailleMinimale);
    EXPECT_EQ(maximum, gui::FenetreMessageAttente::TailleMaximale);
    bande.fermer();
    EXPECT_FALSE(bande.isVisible());
}

// ---- The window over the controller ----------------------------------------------------------

TEST_F(Atelier, DemarrageAfficheLEtatDuClasseur)
{
    EXPECT_EQ(fenetre->windowTitle(), QStringLiteral(" Thermique : Bilan énergétique. "));
    QTabBar *onglets = fenetre->onglets();
    ASSERT_EQ(onglets->count(), 8);
    EXPECT_EQ(onglets->tabText(4), QStringLiteral("Pertes de chaleur"));
    EXPECT_EQ(onglets->currentIndex(), 0);
    EXPECT_EQ(vue(), fenetre->vue(0));
    EXPECT_EQ(fenetre->aide()->toPlainText(), Classeur::aideGenerale());
    EXPECT_EQ(fenetre->aide()->palette().color(QPalette::Base), gui::couleurQt(verrou()));
    EXPECT_EQ(fenetre->findChild<QLabel *>(QStringLiteral("Label2"))->text(),
              classeur->vue().etiquetteVersion);
    EXPECT_EQ(ui.attentes.value(0), QStringLiteral("Chargement des données, veuillez patienter."));
    EXPECT_FALSE(classeur->vue().grillesModifiees) << "the window took the redraw";
}

TEST_F(Atelier, RangeeFusionneeAfficheeEnUneCellule)
{
    Grid &g = grille();
    g.setMergeRow(3, true);
    for (int c = 1; c <= 4; ++c)
        g.setText(3, c, QStringLiteral("Mur extérieur"));
    g.setText(3, 5, QStringLiteral("0.36"));
    g.setText(3, 6, QStringLiteral("0.37"));
    g.setText(4, 1, QStringLiteral("Mur extérieur")); // same texts, row not merged
    g.setText(4, 2, QStringLiteral("Mur extérieur"));
    redessiner();
    EXPECT_EQ(vue()->columnSpan(3, 1), 4);
    EXPECT_EQ(vue()->visualRect(vue()->model()->index(3, 3)),
              vue()->visualRect(vue()->model()->index(3, 1)));
    EXPECT_EQ(vue()->columnSpan(3, 5), 1);
    EXPECT_EQ(vue()->columnSpan(3, 6), 1);
    EXPECT_EQ(vue()->columnSpan(4, 1), 1);

    // A commit that breaks the equality splits the range.
    g.setText(3, 3, QStringLiteral("Fenêtre"));
    fenetre->rafraichir();
    EXPECT_EQ(vue()->columnSpan(3, 1), 2);
    EXPECT_EQ(vue()->columnSpan(3, 3), 1);

    // A click inside a merged range names the cell under the pointer, not the range's head.
    g.setText(3, 3, QStringLiteral("Mur extérieur"));
    fenetre->rafraichir();
    clic(3, 3);
    EXPECT_EQ(grille().row, 3);
    EXPECT_EQ(grille().col, 3);
}

TEST_F(Atelier, CelluleVerrouilleeSansBoiteParLaSouris)
{
    verrouiller(5, 5);
    redessiner();

    for (int action = 0; action < 3; ++action) {
        if (action == 0)
            clic(5, 5);
        else if (action == 1)
            doubleClic(5, 5);
        else {
            // Typing on a locked cell that is current (the controller may leave one so).
            grille().row = 5;
            grille().col = 5;
            touche(vue(), Qt::Key_B, {}, QStringLiteral("b"));
        }
        EXPECT_FALSE(classeur->vue().saisie.visible) << action;
        EXPECT_FALSE(fenetre->boiteSaisie()->isVisible()) << action;
        if (action < 2) {
            EXPECT_FALSE(grille().estVerrouillee(grille().row, grille().col, verrou()))
                << "the current cell skips the locked one";
            EXPECT_EQ(vue()->currentIndex(), vue()->model()->index(grille().row, grille().col));
        }
        EXPECT_EQ(grille().text(5, 5), QString());
    }

    // The input cell beside it takes the box, laid over it.
    doubleClic(5, 6);
    EXPECT_TRUE(fenetre->boiteSaisie()->isVisible());
    const QRect cellule = vue()->rectCellule(5, 6);
    EXPECT_EQ(fenetre->boiteSaisie()->geometry().topLeft(), cellule.topLeft());
    EXPECT_EQ(fenetre->boiteSaisie()->height(), cellule.height() - 1);
    EXPECT_EQ(fenetre->boiteSaisie()->parentWidget(), vue()->viewport());
}

TEST_F(Atelier, LaBoiteValideSurEntree)
{
    grille().setText(10, 2, QStringLiteral("ancien"));
    classeur->CliqueCellule(10, 2);
    fenetre->rafraichir();

    // A typed character opens the box on it, the rest is typed in the box.
    touche(vue(), Qt::Key_N, Qt::ShiftModifier, QStringLiteral("N"));
    gui::BoiteSaisie *boite = fenetre->boiteSaisie();
    ASSERT_TRUE(boite->isVisible());
    EXPECT_EQ(boite->toPlainText(), QStringLiteral("N"));
    for (const char *lettre : {"a", "n", "t", "e", "s"})
        touche(boite, Qt::Key_A + (lettre[0] - 'a'), {}, QString::fromLatin1(lettre));
    EXPECT_EQ(classeur->vue().saisie.texte, QStringLiteral("Nantes"));
    EXPECT_EQ(grille().text(10, 2), QStringLiteral("ancien")) << "nothing written before Enter";

    touche(boite, Qt::Key_Return, {}, QStringLiteral("\r"));
    EXPECT_FALSE(boite->isVisible());
    EXPECT_EQ(grille().text(10, 2), QStringLiteral("Nantes"));
    EXPECT_EQ(vue()->model()->index(10, 2).data().toString(), QStringLiteral("Nantes"));
    EXPECT_EQ(classeur->etat().EtudeModifiee, 1);
    // Enter goes on as the arrow to the right, moved by the controller.
    EXPECT_EQ(vue()->currentIndex(), vue()->model()->index(10, 3));
    EXPECT_TRUE(vue()->hasFocus());
}

TEST_F(Atelier, LaBoiteValideQuandElleEstQuittee)
{
    ASSERT_TRUE(fenetre->isActiveWindow());
    gui::BoiteSaisie *boite = fenetre->boiteSaisie();
    // Leaving the box for another cell writes it first, then takes the new cell.
    doubleClic(12, 2);
    ASSERT_TRUE(boite->hasFocus());
    touche(boite, Qt::Key_1, {}, QStringLiteral("1"));
    clic(14, 5);
    EXPECT_FALSE(boite->isVisible());
    EXPECT_EQ(grille().text(12, 2), QStringLiteral("1"));
    EXPECT_EQ(vue()->currentIndex(), vue()->model()->index(14, 5));

    // Scrolling by the user writes it too; the window scrolling itself to a cell does not.
    doubleClic(13, 2);
    touche(boite, Qt::Key_2, {}, QStringLiteral("2"));
    vue()->scrollTo(vue()->model()->index(50, 2));
    QApplication::processEvents();
    EXPECT_TRUE(boite->isVisible());
    vue()->verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMinimum);
    QApplication::processEvents();
    EXPECT_FALSE(boite->isVisible());
    EXPECT_EQ(grille().text(13, 2), QStringLiteral("2"));

    // A message box coming up over the window is not leaving the cell.
    doubleClic(13, 3);
    touche(boite, Qt::Key_3, {}, QStringLiteral("3"));
    QWidget autre;
    autre.show();
    autre.activateWindow();
    QApplication::processEvents();
    fenetre->activateWindow();
    QApplication::processEvents();
    EXPECT_TRUE(boite->isVisible());
    EXPECT_EQ(grille().text(13, 3), QString());
}

TEST_F(Atelier, EchapFermeLaBoiteSansEcrire)
{
    grille().setText(8, 4, QStringLiteral("garde"));
    doubleClic(8, 4);
    gui::BoiteSaisie *boite = fenetre->boiteSaisie();
    ASSERT_TRUE(boite->isVisible());
    EXPECT_EQ(boite->toPlainText(), QStringLiteral("garde"));
    EXPECT_EQ(boite->textCursor().position(), 5) << "the caret goes to the end";
    touche(boite, Qt::Key_X, {}, QStringLiteral("x"));
    touche(boite, Qt::Key_Escape);
    EXPECT_FALSE(boite->isVisible());
    EXPECT_EQ(grille().text(8, 4), QStringLiteral("garde"));

    // Left with the caret inside the text moves the caret, not the cell.
    doubleClic(8, 4);
    touche(boite, Qt::Key_Left);
    EXPECT_TRUE(boite->isVisible());
    EXPECT_EQ(boite->textCursor().position(), 4);
}

TEST_F(Atelier, LesFlechesSuiventLeClasseur)
{
    classeur->CliqueCellule(2, 2);
    fenetre->rafraichir();
    verrouiller(2, 3);
    redessiner();
    // The locked cell on the right is skipped by the controller; the view only follows.
    touche(vue(), Qt::Key_Right);
    EXPECT_EQ(grille().row, 2);
    EXPECT_EQ(grille().col, 4);
    EXPECT_EQ(vue()->currentIndex(), vue()->model()->index(2, 4));
    touche(vue(), Qt::Key_Down);
    EXPECT_EQ(vue()->currentIndex(), vue()->model()->index(3, 4));
    for (int i = 0; i < 3; ++i)
        touche(vue(), Qt::Key_Up);
    EXPECT_EQ(vue()->currentIndex(), vue()->model()->index(0, 4));
    touche(vue(), Qt::Key_Up);
    EXPECT_EQ(vue()->currentIndex(), vue()->model()->index(1, 4)) << "Up on row 0 goes to row 1";
}

TEST_F(Atelier, GlisserEtendLaSelection)
{
    souris(vue()->viewport(), QEvent::MouseButtonPress, centre(2, 2));
    souris(vue()->viewport(), QEvent::MouseMove, centre(3, 2));
    souris(vue()->viewport(), QEvent::MouseMove, centre(4, 3));
    souris(vue()->viewport(), QEvent::MouseButtonRelease, centre(4, 3));
    EXPECT_EQ(QPoint(grille().col, grille().row), QPoint(2, 2));
    EXPECT_EQ(QPoint(grille().colSel, grille().rowSel), QPoint(3, 4));
    EXPECT_TRUE(vue()->dansSelection(3, 3));
    EXPECT_FALSE(vue()->dansSelection(5, 3));

    // The pointer moving without the button only changes the help, not the range.
    souris(vue()->viewport(), QEvent::MouseMove, centre(6, 6), Qt::NoButton);
    EXPECT_EQ(QPoint(grille().colSel, grille().rowSel), QPoint(3, 4));
    // A new click is a new single cell.
    clic(7, 1);
    EXPECT_FALSE(vue()->dansSelection(7, 1));
    EXPECT_FALSE(vue()->dansSelection(3, 3));
}

TEST_F(Atelier, OngletRefuseRevientSurLaFeuilleActive)
{
    QTabBar *onglets = fenetre->onglets();
    souris(onglets, QEvent::MouseButtonPress, onglets->tabRect(1).center());
    souris(onglets, QEvent::MouseButtonRelease, onglets->tabRect(1).center());
    ASSERT_EQ(ui.messages.size(), 1);
    EXPECT_EQ(ui.messages[0].texte,
              QStringLiteral("La ville n'est pas renseignée sur la feuille ADMINISTRATIVE."));
    EXPECT_EQ(ui.messages[0].style, MessageArret);
    EXPECT_EQ(classeur->etat().FeuilleActive, 0);
    EXPECT_EQ(onglets->currentIndex(), 0);
    EXPECT_EQ(vue(), fenetre->vue(0));
    EXPECT_TRUE(fenetre->vue(0)->isVisible());

    // Once filled, the same click goes through and shows that sheet's grid.
    remplirAdministratif();
    classeur->etat().IgnorerCombo = 0;
    souris(onglets, QEvent::MouseButtonPress, onglets->tabRect(1).center());
    EXPECT_EQ(ui.messages.size(), 1);
    EXPECT_EQ(classeur->etat().FeuilleActive, 1);
    EXPECT_EQ(onglets->currentIndex(), 1);
    EXPECT_TRUE(fenetre->vue(1)->isVisible());
    EXPECT_FALSE(fenetre->vue(0)->isVisible());
    // The toolbar follows the sheet: the line commands are there on Coef - U only.
    EXPECT_TRUE(fenetre->bouton(0)->isVisible());
    EXPECT_EQ(fenetre->bouton(0)->text(), classeur->vue().boutons[0].libelle);
}

TEST_F(Atelier, OngletAvecBoiteOuverteValideDAbord)
{
    remplirAdministratif();
    doubleClic(15, 3);
    gui::BoiteSaisie *boite = fenetre->boiteSaisie();
    ASSERT_TRUE(boite->isVisible());
    touche(boite, Qt::Key_Z, {}, QStringLiteral("z"));
    fenetre->onglets()->setCurrentIndex(2);
    EXPECT_EQ(classeur->etat().FeuilleActive, 2);
    EXPECT_EQ(etude.flexGrid[0].text(15, 3), QStringLiteral("z"));
    EXPECT_FALSE(boite->isVisible());
    EXPECT_EQ(boite->parentWidget(), fenetre->vue(2)->viewport());
}

TEST_F(Atelier, ListeSousLaCelluleEtChoix)
{
    clic(6, 2, Qt::RightButton);
    gui::ListeCellule *liste = fenetre->liste(0);
    ASSERT_TRUE(liste->isVisible());
    EXPECT_EQ(liste->count(), 3);
    const QRect cellule = vue()->rectCellule(6, 2);
    EXPECT_EQ(liste->geometry(), QRect(cellule.left(), cellule.bottom() + 1, 200, 60));
    EXPECT_FALSE(fenetre->liste(1)->isVisible());

    const QRect element = liste->visualItemRect(liste->item(2));
    souris(liste->viewport(), QEvent::MouseButtonPress, element.center());
    souris(liste->viewport(), QEvent::MouseButtonRelease, element.center());
    ASSERT_EQ(choixListes.size(), 1);
    EXPECT_EQ(choixListes[0], qMakePair(0, 2));
    EXPECT_FALSE(liste->isVisible());

    // A second right click closes an open list without choosing.
    clic(6, 2, Qt::RightButton);
    ASSERT_TRUE(liste->isVisible());
    clic(7, 2, Qt::RightButton);
    EXPECT_FALSE(liste->isVisible());
    EXPECT_EQ(choixListes.size(), 1);
}

TEST_F(Atelier, ColonneDeLargeurNulleMasquee)
{
    grille().setColWidth(4, 0);
    grille().setColWidth(5, 1800);
    redessiner();
    EXPECT_TRUE(vue()->isColumnHidden(4));
    EXPECT_EQ(vue()->columnWidth(5), 120);
    // The hidden column takes no place: column 5 starts where column 4 would have.
    EXPECT_EQ(vue()->columnViewportPosition(5),
              vue()->columnViewportPosition(3) + vue()->columnWidth(3));
    clic(2, 5);
    EXPECT_EQ(grille().col, 5);
}

TEST_F(Atelier, MenusEtBoutonsDuClasseur)
{
    gui::BarreMenus *menus = fenetre->menus();
    QAction *quitter = menus->action(QStringLiteral("MnuQuitter"));
    ASSERT_NE(quitter, nullptr);
    EXPECT_EQ(quitter->text(), QStringLiteral("&Quitter"));
    QAction *fichier = menus->action(QStringLiteral("MnuFichiers"));
    ASSERT_NE(fichier, nullptr);
    ASSERT_NE(fichier->menu(), nullptr);
    EXPECT_TRUE(fichier->menu()->actions().contains(quitter));
    EXPECT_EQ(fichier->menu()->actions().count(), 9) << "seven entries and two separators";
    QAction *couleurs = menus->action(QStringLiteral("Mnu_Couleurs"));
    ASSERT_NE(couleurs, nullptr);
    EXPECT_TRUE(menus->action(QStringLiteral("Mnu_Couleur"))->menu()->actions().contains(couleurs));
    EXPECT_FALSE(menus->action(QStringLiteral("Mnu_Rotation"))->isEnabled())
        << "the heat-loss tools are off on the first sheet";
    EXPECT_FALSE(menus->action(QStringLiteral("Ouvrir"))->isVisible());

    // A checkable entry shows the controller's state after the choice.
    QAction *centrage = menus->action(QStringLiteral("Mnu_CentrageFeuilles"));
    ASSERT_TRUE(centrage->isCheckable());
    centrage->trigger();
    EXPECT_TRUE(centrage->isChecked());
    EXPECT_EQ(etude.centrageFeuilles, 1);
    centrage->trigger();
    EXPECT_FALSE(centrage->isChecked());
    EXPECT_EQ(etude.centrageFeuilles, 0);

    // The old-files entry changes another entry's caption and visibility.
    menus->action(QStringLiteral("Mnu_FichiersAnciens"))->trigger();
    EXPECT_EQ(menus->action(QStringLiteral("MnuOuvrir"))->text(),
              QStringLiteral("&Ouvrir (nouveau fichier)"));
    EXPECT_TRUE(menus->action(QStringLiteral("Ouvrir"))->isVisible());

    // The pointer over a button explains it in the help panel.
    QToolButton *aide = fenetre->bouton(4);
    ASSERT_TRUE(aide->isVisible());
    QEvent entree(QEvent::Enter);
    QApplication::sendEvent(aide, &entree);
    EXPECT_EQ(fenetre->aide()->toPlainText(), classeur->vue().boutons[4].infobulle);
    EXPECT_FALSE(fenetre->bouton(0)->isVisible()) << "no line commands on the first sheet";
}

TEST_F(Atelier, FermetureDemandeLEnregistrement)
{
    classeur->etat().EtudeModifiee = 1;
    fenetre->menus()->action(QStringLiteral("MnuQuitter"))->trigger();
    QApplication::processEvents(); // the window closes once the menu is done
    ASSERT_EQ(ui.messages.size(), 1);
    EXPECT_EQ(ui.messages[0].texte, QStringLiteral("Enregistrement du fichier ?"));
    EXPECT_FALSE(fenetre->isVisible());
    EXPECT_TRUE(QFile::exists(dossier.filePath(QStringLiteral("Hspl.txt"))));
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

TEST_F(Atelier, LogoDansLaCelluleIdentite)
{
    // A plain red logo: once the identity gives way to it, the cell shows red.
    QDir().mkpath(dossier.filePath(QStringLiteral("Logo")));
    QImage rouge(40, 20, QImage::Format_RGB32);
    rouge.fill(Qt::red);
    ASSERT_TRUE(rouge.save(dossier.filePath(QStringLiteral("Logo/Logo.jpg"))));
    grille().setRowHeight(2, 1200);
    for (int c = 1; c <= 6; ++c)
        grille().setColWidth(c, 900);
    auto couleurAuCentre = [&] {
        redessiner();
        const QImage vueImage = vue()->viewport()->grab().toImage();
        // The picture starts at the top left of the cell's merged range.
        const QRect zone = vue()->visualRect(vue()->model()->index(2, 3));
        return QColor(vueImage.pixel(zone.topLeft() + QPoint(8, 8)));
    };
    EXPECT_GT(couleurAuCentre().green(), 200);
    classeur->etat().LogoIdentite = true;
    const QColor avecLogo = couleurAuCentre();
    EXPECT_GT(avecLogo.red(), 200);
    EXPECT_LT(avecLogo.green(), 60);
    classeur->etat().LogoIdentite = false;
    EXPECT_GT(couleurAuCentre().green(), 200);
}
