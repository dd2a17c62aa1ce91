// The general wall library window: the library grid with the sheet's block editor, and the
// transfer of the selected walls into the study.
#include "envelope/coefu/feuillecoefu.h"
#include "envelope/formulairesenveloppe.h"
#include "envelope/library/bibliotheque.h"
#include "workbook/classeur.h"
#include "workbook/listecellule.h"
#include "workbook/userinterface.h"
#include "workbook/vuegrille.h"

#include <QDialog>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace thermique::gui {

bool OuvrirBibliotheque(Classeur &classeur, QWidget *parent)
{
    const QString fichier = classeur.dossier().fichier(QStringLiteral("Bibliothèque Parois.txt"));
    const QString composants = classeur.dossier().fichier(QStringLiteral("Composants"));
    BibliothequeParois b(classeur.ui(), classeur.etat().CouleurVerrouillee,
                         classeur.etat().CouleurSaisie);
    if (auto *coefU = dynamic_cast<FeuilleCoefU *>(&classeur.feuille(1)))
        b.fenetres = coefU->fenetres;
    b.typeConstruction = classeur.etude().flexGrid[0].text(12, 13);
    b.charger(fichier);

    QDialog d(parent);
    d.setWindowTitle(QStringLiteral(" Parois : Bibliothèque générale : "));
    d.resize(1200, 700);
    auto *disposition = new QVBoxLayout(&d);
    auto *outils = new QHBoxLayout;
    auto *inserer = new QPushButton(QStringLiteral("Insérer une ligne (Ctrl + i ou F2)"), &d);
    auto *supprimer = new QPushButton(QStringLiteral("Supprimer une ligne (Ctrl + s ou F3)"), &d);
    auto *rechercher = new QLineEdit(&d);
    rechercher->setPlaceholderText(QStringLiteral("Rechercher des parois dans la bibliothèque"));
    auto *transferer = new QPushButton(QStringLiteral("Valider les sélections"), &d);
    auto *enregistrer = new QPushButton(QStringLiteral("Enregistrer"), &d);
    auto *effacer = new QPushButton(QStringLiteral("Effacer la bibliothèque"), &d);
    for (QWidget *w : std::initializer_list<QWidget *> {inserer, supprimer, rechercher, transferer,
                                                        enregistrer, effacer})
        outils->addWidget(w);
    disposition->addLayout(outils);
    auto *vue = new VueGrille(&d);
    vue->definirGrille(&b.grille());
    disposition->addWidget(vue, 1);
    auto *liste = new ListeCellule(QStringLiteral("Combo3"), vue->viewport());
    liste->hide();
    auto *saisie = new QLineEdit(vue->viewport());
    saisie->hide();
    bool modifiee = false;

    const auto rafraichir = [&] {
        vue->rafraichir();
        if (b.liste.visible)
            liste->afficher(b.liste, vue->rectCellule(b.liste.ligne, b.liste.colonne));
        else
            liste->hide();
    };
    int ligneSaisie = -1, colonneSaisie = -1;
    const auto ouvrirSaisie = [&](int ligne, int colonne, const QString &texte) {
        const Grid &g = b.grille();
        if (!g.contient(ligne, colonne) || ligne < g.fixedRows
            || g.estVerrouillee(ligne, colonne, classeur.etat().CouleurVerrouillee))
            return;
        ligneSaisie = ligne;
        colonneSaisie = colonne;
        saisie->setGeometry(vue->rectCellule(ligne, colonne));
        saisie->setText(texte);
        saisie->show();
        saisie->setFocus();
    };
    const auto valider = [&] {
        if (!saisie->isVisible())
            return;
        saisie->hide();
        b.valider(ligneSaisie, colonneSaisie, saisie->text());
        modifiee = true;
        rafraichir();
    };
    QObject::connect(saisie, &QLineEdit::returnPressed, &d, valider);
    QObject::connect(saisie, &QLineEdit::editingFinished, &d, valider);
    QObject::connect(vue, &VueGrille::cliqueCellule, &d, [&](int l, int c) {
        valider();
        b.clic(l, c);
        rafraichir();
    });
    QObject::connect(vue, &VueGrille::doubleCliqueCellule, &d, [&](int l, int c) {
        const Grid &g = b.grille();
        ouvrirSaisie(l, c,
                     c >= ColonneParoi::Epaisseur && !g.operation(l, c).trimmed().isEmpty()
                         ? g.operation(l, c)
                         : g.text(l, c));
    });
    QObject::connect(vue, &VueGrille::toucheCaractere, &d, [&](int code) {
        if (code >= 32)
            ouvrirSaisie(b.grille().row, b.grille().col, QString(QChar(code)));
    });
    QObject::connect(vue, &VueGrille::toucheEnfoncee, &d, [&](int code, int masque) {
        const bool ctrl = masque & Touche::MasqueCtrl;
        if (ctrl && code == Touche::I)
            code = Touche::F2;
        else if (ctrl && code == Touche::S)
            code = Touche::F3;
        if (code >= Touche::F2 && code <= Touche::F6) {
            b.touche(code);
            modifiee = true;
            rafraichir();
        }
    });
    QObject::connect(vue, &VueGrille::clicDroitCellule, &d, [&](int l, int c) {
        valider();
        const bool majuscule = QGuiApplication::keyboardModifiers() & Qt::ShiftModifier;
        const QString formulaire = b.clicDroit(l, c, majuscule);
        ContexteParois ctx = b.contexte();
        bool change = false;
        if (formulaire == QStringLiteral("frm_Composants"))
            change = OuvrirComposants(ctx, l, composants, &d);
        else if (formulaire == QStringLiteral("Frm_RésistanceSuperficielle"))
            change = OuvrirResistanceSuperficielle(ctx, l, &d);
        modifiee = modifiee || change || majuscule;
        rafraichir();
    });
    QObject::connect(liste, &ListeCellule::choix, &d, [&](int index) {
        b.choixListe(index);
        modifiee = true;
        rafraichir();
    });
    QObject::connect(inserer, &QPushButton::clicked, &d, [&] {
        b.touche(Touche::F2);
        modifiee = true;
        rafraichir();
    });
    QObject::connect(supprimer, &QPushButton::clicked, &d, [&] {
        b.touche(Touche::F3);
        modifiee = true;
        rafraichir();
    });
    QObject::connect(rechercher, &QLineEdit::returnPressed, &d, [&] {
        // The next wall whose name holds the text, from the current row down, then around.
        const Grid &g = b.grille();
        const QString texte = rechercher->text().trimmed();
        if (texte.isEmpty())
            return;
        for (int i = 1; i <= g.rows(); ++i) {
            const int r = (g.row + i) % g.rows();
            if (r >= g.fixedRows
                && g.text(r, ColonneParoi::Nom).contains(texte, Qt::CaseInsensitive)) {
                b.grille().row = r;
                b.grille().col = ColonneParoi::Nom;
                rafraichir();
                return;
            }
        }
    });
    QObject::connect(enregistrer, &QPushButton::clicked, &d, [&] {
        if (b.enregistrer(fichier))
            modifiee = false;
    });
    QObject::connect(effacer, &QPushButton::clicked, &d, [&] {
        if (b.effacer()) {
            modifiee = true;
            rafraichir();
        }
    });
    bool transfert = false;
    QObject::connect(transferer, &QPushButton::clicked, &d, [&] {
        transfert = b.transferer(classeur) > 0 || transfert;
        d.accept();
    });
    rafraichir();
    d.exec();
    if (modifiee
        && classeur.ui().question(QStringLiteral("Enregistrer les modifications de la "
                                                 "bibliothèque de parois ?"),
                                  QStringLiteral("Thermique.")))
        b.enregistrer(fichier);
    return transfert;
}

} // namespace thermique::gui
