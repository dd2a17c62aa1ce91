// The joinery dialogs: dimensions of a window, the five catalogues, the joinery buffer and
// the complementary data of a heat-loss window line.
#include "envelope/coefu/feuillecoefu.h"
#include "envelope/formulairespontsfenetres.h"
#include "envelope/windows/calculfenetre.h"
#include "envelope/windows/cataloguesfenetres.h"
#include "workbook/classeur.h"
#include "workbook/nombres.h"
#include "workbook/userinterface.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace thermique::gui {

namespace {

namespace C = ColonneParoi;

double nombre(const QString &t)
{
    QString s = t.trimmed();
    s.replace(QLatin1Char(','), QLatin1Char('.'));
    return ValNombre(s);
}

// The Coef-U context and the head of the joinery block holding the current row.
struct Bloc
{
    FeuilleCoefU *feuille = nullptr;
    int ligne = 0;
    std::optional<int> tete;
};

Bloc blocCourant(Classeur &classeur)
{
    Bloc b;
    b.feuille = dynamic_cast<FeuilleCoefU *>(&classeur.feuille(1));
    b.ligne = classeur.etat().LigneCourante;
    const Grid &g = classeur.etude().flexGrid[1];
    b.tete = ChercherEntêteParoi(g, b.ligne);
    if (b.tete
        && !g.text(*b.tete, C::Libelle).startsWith(QStringLiteral("Coefficient des profils")))
        b.tete.reset();
    return b;
}

void changer(Classeur &classeur)
{
    classeur.marquerModifiee();
    classeur.vue().grillesModifiees = true;
}

QString libelleSurface(bool vitree, const QString &element)
{
    return (vitree ? QStringLiteral("Surface vitrée en ") : QStringLiteral("Surface pleine en "))
        + element + QStringLiteral(" (m²) : ");
}

} // namespace

bool OuvrirFenetresSaisies(Classeur &classeur, QWidget *parent)
{
    Bloc b = blocCourant(classeur);
    if (!b.feuille || !b.tete)
        return false;
    const QString fichier = classeur.dossier().fichier(QStringLiteral("FenêtreSaisieValeurs.txt"));
    const SaisieFenetre derniere = LireSaisieFenetre(fichier).value_or(SaisieFenetre {});

    QDialog d(parent);
    d.setWindowTitle(QStringLiteral("Dimensions de la menuiserie"));
    auto *disposition = new QVBoxLayout(&d);
    auto *champs = new QFormLayout;
    const char *libelles[8] = {"Nombre de vantaux :",       "Largeur hors tout L (m) :",
                               "Hauteur hors tout H (m) :", "Hauteur du coffre (m) :",
                               "Hauteur de l'allège (m) :", "Hauteur de l'imposte (m) :",
                               "Largeur des profils (m) :", "Hauteur du seuil ou de l'appui (m) :"};
    QLineEdit *textes[8];
    for (int i = 0; i < 8; ++i) {
        textes[i] = new QLineEdit(derniere.textes[i], &d);
        champs->addRow(QString::fromUtf8(libelles[i]), textes[i]);
    }
    auto *avec = new QRadioButton(QStringLiteral("Baie avec seuil (porte-fenêtre)"), &d);
    auto *sans = new QRadioButton(QStringLiteral("Baie sans seuil (fenêtre)"), &d);
    avec->setChecked(derniere.avecSeuil);
    sans->setChecked(derniere.sansSeuil && !derniere.avecSeuil);
    champs->addRow(avec);
    champs->addRow(sans);
    auto *divisee = new QCheckBox(QStringLiteral("Allège divisée par vantail"), &d);
    auto *imposteOuvrante = new QCheckBox(QStringLiteral("Imposte ouvrante"), &d);
    auto *allegeOuvrante = new QCheckBox(QStringLiteral("Allège ouvrante"), &d);
    auto *impostePleine = new QCheckBox(QStringLiteral("Imposte pleine"), &d);
    auto *allegePleine = new QCheckBox(QStringLiteral("Allège pleine"), &d);
    for (QCheckBox *c : {divisee, imposteOuvrante, allegeOuvrante, impostePleine, allegePleine})
        champs->addRow(c);
    auto *couleur = new QComboBox(&d);
    couleur->addItems(CouleursMenuiserie());
    couleur->setCurrentIndex(std::clamp(derniere.couleur, 0, int(CouleursMenuiserie().size()) - 1));
    champs->addRow(QStringLiteral("Couleur de la menuiserie :"), couleur);
    auto *ouvrant = new QLineEdit(&d);
    champs->addRow(QStringLiteral("Surface ouvrante (m²) :"), ouvrant);
    disposition->addLayout(champs);
    auto *boutons = new QDialogButtonBox(&d);
    boutons->addButton(QStringLiteral("Valider"), QDialogButtonBox::AcceptRole);
    boutons->addButton(QDialogButtonBox::Cancel);
    disposition->addWidget(boutons);

    const auto dimensions = [&] {
        DimensionsFenetre dim;
        double *v[8] = {&dim.vantaux, &dim.largeur, &dim.hauteur, &dim.coffre,
                        &dim.allege,  &dim.imposte, &dim.profil,  &dim.seuil};
        for (int i = 0; i < 8; ++i)
            *v[i] = nombre(textes[i]->text());
        dim.vantaux = std::max(1.0, std::round(dim.vantaux));
        dim.allegeDivisee = divisee->isChecked();
        dim.imposteOuvrante = imposteOuvrante->isChecked();
        dim.allegeOuvrante = allegeOuvrante->isChecked();
        return dim;
    };
    // The opening surface is proposed and stays editable.
    const auto proposer = [&] {
        ouvrant->setText(Format(SurfacesDepuisDimensions(dimensions()).surfaceOuvrant,
                                QStringLiteral("##0.00")));
    };
    for (QLineEdit *t : textes)
        QObject::connect(t, &QLineEdit::textChanged, &d, proposer);
    for (QCheckBox *c : {imposteOuvrante, allegeOuvrante, divisee})
        QObject::connect(c, &QCheckBox::toggled, &d, proposer);
    proposer();
    QObject::connect(boutons, &QDialogButtonBox::accepted, &d, [&] {
        if (!avec->isChecked() && !sans->isChecked()) {
            classeur.ui().message(QStringLiteral("Vous devez préciser s'il s'agit d'une baie avec "
                                                 "ou sans seuil."),
                                  MessageExclamation, QStringLiteral("Thermique."));
            return;
        }
        d.accept();
    });
    QObject::connect(boutons, &QDialogButtonBox::rejected, &d, &QDialog::reject);
    if (d.exec() != QDialog::Accepted)
        return false;

    SaisieFenetre s;
    for (int i = 0; i < 8; ++i)
        s.textes[i] = textes[i]->text();
    s.avecSeuil = avec->isChecked();
    s.sansSeuil = sans->isChecked();
    s.couleur = couleur->currentIndex();
    EcrireSaisieFenetre(fichier, s);

    Grid &g = classeur.etude().flexGrid[1];
    ContexteParois ctx = b.feuille->contexte(classeur);
    const int tete = *b.tete;
    // The transom and lower-panel rows say whether the panel is glazed.
    for (int r = tete; r <= FinFenetre(g, tete).value_or(tete); ++r) {
        const QString l = g.text(r, C::Libelle);
        if (l.contains(QStringLiteral(" en imposte")))
            g.setText(r, C::Libelle,
                      libelleSurface(!impostePleine->isChecked(), QStringLiteral("imposte")));
        else if (l.contains(QStringLiteral(" en allège")))
            g.setText(r, C::Libelle,
                      libelleSurface(!allegePleine->isChecked(), QStringLiteral("allège")));
    }
    AppliquerDimensions(ctx, tete, dimensions(), s.avecSeuil, s.couleur);
    changer(classeur);
    return true;
}

namespace {

// Fills a table with a catalogue; the rows stay editable by keyboard.
void remplir(QTableWidget *t, const CatalogueMenuiserie &cat)
{
    const int n = ColonnesCatalogue(cat.genre);
    t->clear();
    t->setColumnCount(n);
    QStringList entetes;
    const QStringList l1 = EntetesCatalogue(cat.genre, 0);
    const QStringList l2 = EntetesCatalogue(cat.genre, 1);
    for (int c = 0; c < n; ++c)
        entetes << (l2.value(c).isEmpty() ? l1.value(c)
                                          : l1.value(c) + QLatin1Char('\n') + l2.value(c));
    t->setHorizontalHeaderLabels(entetes);
    t->setRowCount(int(cat.lignes.size()) + 1); // a free row to add one
    for (int r = 0; r < cat.lignes.size(); ++r)
        for (int c = 0; c < n; ++c)
            t->setItem(r, c, new QTableWidgetItem(cat.lignes[r].value(c)));
    t->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
}

CatalogueMenuiserie relire(const QTableWidget *t, GenreCatalogue genre)
{
    CatalogueMenuiserie cat;
    cat.genre = genre;
    for (int r = 0; r < t->rowCount(); ++r) {
        QStringList ligne;
        bool vide = true;
        for (int c = 0; c < t->columnCount(); ++c) {
            ligne << (t->item(r, c) ? t->item(r, c)->text() : QString());
            vide = vide && ligne.last().trimmed().isEmpty();
        }
        if (!vide)
            cat.lignes << ligne;
    }
    return cat;
}

QStringList ligneTable(const QTableWidget *t, int r)
{
    QStringList l;
    for (int c = 0; c < t->columnCount(); ++c)
        l << (t->item(r, c) ? t->item(r, c)->text() : QString());
    return l;
}

} // namespace

bool OuvrirUVitrages(Classeur &classeur, QWidget *parent)
{
    Bloc b = blocCourant(classeur);
    if (!b.feuille || !b.tete)
        return false;
    Grid &g = classeur.etude().flexGrid[1];
    const auto genre = CatalogueDuLibelle(g.text(b.ligne, C::Libelle));
    if (!genre)
        return false;
    const QString chemin = classeur.dossier().fichier(FichierCatalogue(*genre));
    QDialog d(parent);
    d.setWindowTitle(QStringLiteral("Coefficients des menuiseries"));
    d.resize(820, 420);
    auto *disposition = new QVBoxLayout(&d);
    disposition->addWidget(
        new QLabel(QStringLiteral("Clic dans la colonne des valeurs pour choisir ; "
                                  "les lignes se modifient au clavier."),
                   &d));
    auto *table = new QTableWidget(&d);
    remplir(table, LireCatalogue(chemin, *genre));
    disposition->addWidget(table);
    auto *boutons = new QDialogButtonBox(&d);
    QPushButton *enregistrer
        = boutons->addButton(QStringLiteral("Enregistrer"), QDialogButtonBox::ActionRole);
    boutons->addButton(QDialogButtonBox::Close);
    disposition->addWidget(boutons);
    QStringList choisie;
    QObject::connect(table, &QTableWidget::cellClicked, &d, [&](int r, int c) {
        if (c == 0)
            return; // the name column is edited, not chosen
        choisie = ligneTable(table, r);
        d.accept();
    });
    QObject::connect(enregistrer, &QPushButton::clicked, &d, [&] {
        if (!EcrireCatalogue(chemin, relire(table, *genre)))
            QMessageBox::warning(&d, QStringLiteral("Thermique."),
                                 QStringLiteral("Le fichier n'a pas pu être enregistré."));
        remplir(table, LireCatalogue(chemin, *genre));
    });
    QObject::connect(boutons, &QDialogButtonBox::rejected, &d, &QDialog::reject);
    if (d.exec() != QDialog::Accepted)
        return false;
    ContexteParois ctx = b.feuille->contexte(classeur);
    if (!AppliquerChoixCatalogue(ctx, b.ligne, *genre, choisie))
        return false;
    changer(classeur);
    return true;
}

bool OuvrirUVitrages1(Classeur &classeur, QWidget *parent)
{
    Bloc b = blocCourant(classeur);
    if (!b.feuille || !b.tete)
        return false;
    QDialog d(parent);
    d.setWindowTitle(QStringLiteral("Composition de la menuiserie"));
    d.resize(700, 260);
    auto *champs = new QFormLayout(&d);
    const GenreCatalogue genres[]
        = {GenreCatalogue::Menuiseries, GenreCatalogue::Vitrages, GenreCatalogue::WarmEdge,
           GenreCatalogue::Volets, GenreCatalogue::CoffreVolets};
    const char *libelles[]
        = {"Menuiserie :", "Vitrage :", "Intercalaire :", "Fermeture :", "Coffre :"};
    CatalogueMenuiserie cats[5];
    QComboBox *choix[5];
    for (int i = 0; i < 5; ++i) {
        cats[i] = LireCatalogue(classeur.dossier().fichier(FichierCatalogue(genres[i])), genres[i]);
        choix[i] = new QComboBox(&d);
        choix[i]->addItem(QStringLiteral("(inchangé)"));
        for (const QStringList &l : cats[i].lignes)
            choix[i]->addItem(l.value(0));
        champs->addRow(QString::fromUtf8(libelles[i]), choix[i]);
    }
    auto *boutons = new QDialogButtonBox(&d);
    boutons->addButton(QStringLiteral("Valider"), QDialogButtonBox::AcceptRole);
    boutons->addButton(QDialogButtonBox::Cancel);
    champs->addRow(boutons);
    QObject::connect(boutons, &QDialogButtonBox::accepted, &d, &QDialog::accept);
    QObject::connect(boutons, &QDialogButtonBox::rejected, &d, &QDialog::reject);
    if (d.exec() != QDialog::Accepted)
        return false;

    Grid &g = classeur.etude().flexGrid[1];
    TamponMenuiserie t = TamponDepuisBloc(g, *b.tete);
    const auto ligne = [&](int i) -> QStringList {
        const int k = choix[i]->currentIndex() - 1;
        return k >= 0 && k < cats[i].lignes.size() ? cats[i].lignes[k] : QStringList();
    };
    const auto valeur = [](const QString &v) {
        return Format(nombre(v), QStringLiteral("#,##0.000"));
    };
    const auto remplacer = [&](const QString &cle, const QString &v) {
        for (QString &e : t.enregistrements)
            if (e.startsWith(cle + QLatin1Char('=')))
                e = cle + QLatin1Char('=') + v;
    };
    if (const QStringList m = ligne(0); !m.isEmpty())
        t.tete[6] = valeur(m.value(1));
    if (const QStringList v = ligne(1); !v.isEmpty()) {
        remplacer(QStringLiteral("VitrageCoef"), valeur(v.value(3)));
        remplacer(QStringLiteral("TL"), v.value(4).trimmed());
        t.tete[2] = Format(nombre(v.value(2)), QStringLiteral("#,##0.00"));
    }
    if (const QStringList w = ligne(2); !w.isEmpty())
        remplacer(QStringLiteral("VitrageCoef1"), valeur(w.value(1)));
    if (const QStringList v = ligne(3); !v.isEmpty())
        remplacer(QStringLiteral("VoletsCoef"), valeur(v.value(1)));
    if (const QStringList c = ligne(4); !c.isEmpty())
        remplacer(QStringLiteral("CoffreCoef"), valeur(c.value(1)));
    EcrireTampon(classeur.dossier().fichier(QStringLiteral("TamponMenuiserie.txt")), t);
    ContexteParois ctx = b.feuille->contexte(classeur);
    AppliquerTampon(ctx, *b.tete, t);
    changer(classeur);
    return true;
}

bool OuvrirFenetresDonnees(Classeur &classeur, QWidget *parent)
{
    Grid &pertes = classeur.etude().flexGrid[4];
    const int ligne = classeur.etat().LigneCourante;
    if (!pertes.contient(ligne, 15))
        return false;
    DonneesFenetre donnees = DonneesDepuisLigne(pertes, ligne);
    QDialog d(parent);
    d.setWindowTitle(QStringLiteral("Données complémentaires de la menuiserie"));
    auto *champs = new QFormLayout(&d);
    auto *masque = new QComboBox(&d);
    masque->addItems(TypesMasques());
    masque->setCurrentIndex(std::max(0, int(TypesMasques().indexOf(donnees.typeMasque))));
    champs->addRow(QStringLiteral("Type de masque :"), masque);
    auto *nombreFenetres = new QLineEdit(donnees.nombre, &d);
    auto *largeur = new QLineEdit(donnees.largeur, &d);
    auto *hauteur = new QLineEdit(donnees.hauteur, &d);
    champs->addRow(QStringLiteral("Nombre :"), nombreFenetres);
    champs->addRow(QStringLiteral("Largeur vitrée (m) :"), largeur);
    champs->addRow(QStringLiteral("Hauteur vitrée (m) :"), hauteur);
    auto *albedo = new QLineEdit(donnees.albedo, &d);
    auto *boutonAlbedo = new QPushButton(QStringLiteral("..."), &d);
    auto *ligneAlbedo = new QHBoxLayout;
    ligneAlbedo->addWidget(albedo);
    ligneAlbedo->addWidget(boutonAlbedo);
    champs->addRow(QStringLiteral("Albédo :"), ligneAlbedo);
    QObject::connect(boutonAlbedo, &QPushButton::clicked, &d, [&] {
        bool ok = false;
        const QString o
            = QInputDialog::getItem(&d, QStringLiteral("Albédo"), QStringLiteral("Nature du sol :"),
                                    OptionsAlbedo(), 0, false, &ok);
        if (ok)
            albedo->setText(o.left(4));
    });
    const char *cotes[9] = {"X1", "Z1", "X2", "Z2", "X3", "Z3", "X4", "Z4", "X5"};
    QLineEdit *geometrie[9];
    auto *grille = new QGridLayout;
    for (int i = 0; i < 9; ++i) {
        geometrie[i] = new QLineEdit(donnees.masque[i], &d);
        grille->addWidget(new QLabel(QString::fromUtf8(cotes[i]) + QStringLiteral(" (m) :"), &d),
                          i / 3, (i % 3) * 2);
        grille->addWidget(geometrie[i], i / 3, (i % 3) * 2 + 1);
    }
    champs->addRow(QStringLiteral("Dimensions du masque :"), grille);
    auto *volets = new QCheckBox(QStringLiteral("Fenêtre équipée de volets"), &d);
    volets->setChecked(donnees.volets);
    champs->addRow(volets);
    auto *ouvrant = new QLineEdit(donnees.surfaceOuvrant, &d);
    champs->addRow(QStringLiteral("Surface ouvrante (m²) :"), ouvrant);
    auto *boutons = new QDialogButtonBox(&d);
    boutons->addButton(QStringLiteral("Valider"), QDialogButtonBox::AcceptRole);
    boutons->addButton(QDialogButtonBox::Cancel);
    champs->addRow(boutons);
    QObject::connect(boutons, &QDialogButtonBox::accepted, &d, &QDialog::accept);
    QObject::connect(boutons, &QDialogButtonBox::rejected, &d, &QDialog::reject);
    if (d.exec() != QDialog::Accepted)
        return false;
    donnees.typeMasque = masque->currentText();
    donnees.nombre = nombreFenetres->text();
    donnees.largeur = largeur->text();
    donnees.hauteur = hauteur->text();
    donnees.albedo = albedo->text();
    for (int i = 0; i < 9; ++i)
        donnees.masque[i] = geometrie[i]->text();
    donnees.volets = volets->isChecked();
    donnees.surfaceOuvrant = ouvrant->text();
    EcrireDonneesFenetre(pertes, ligne, donnees);
    classeur.feuille(4).recalculerLigne(classeur, ligne);
    changer(classeur);
    return true;
}

void InstallerFormulairesPontsFenetres(Formulaires &formulaires)
{
    formulaires[QStringLiteral("Frm_PontsThermiques")] = &OuvrirPontsThermiques;
    formulaires[QStringLiteral("frm_Ponts_Thermiques")] = &OuvrirEvaluationPonts;
    formulaires[QStringLiteral("Frm_FenêtresSaisies")] = &OuvrirFenetresSaisies;
    formulaires[QStringLiteral("Frm_UVitrages")] = &OuvrirUVitrages;
    formulaires[QStringLiteral("Frm_UVitrages_1")] = &OuvrirUVitrages1;
    formulaires[QStringLiteral("Frm_FenêtresDonnées")] = &OuvrirFenetresDonnees;
}

} // namespace thermique::gui
