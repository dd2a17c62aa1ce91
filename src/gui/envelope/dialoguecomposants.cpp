// The materials window: the tree of the Composants folder and the seven fields of a file.
#include "envelope/coefu/editeurparois.h"
#include "envelope/formulairesenveloppe.h"
#include "envelope/library/composants.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace thermique::gui {

namespace {

enum Niveau { NiveauCategorie = 0, NiveauVariete = 1, NiveauComposant = 2 };

void remplirArbre(QTreeWidget *arbre, const QString &dossier)
{
    arbre->clear();
    for (const CategorieComposants &c : ScannerComposants(dossier)) {
        auto *categorie = new QTreeWidgetItem(arbre, {c.nom});
        for (const VarieteComposants &v : c.varietes) {
            auto *variete = new QTreeWidgetItem(categorie, {v.nom});
            for (const QString &n : v.composants)
                new QTreeWidgetItem(variete, {n});
        }
    }
}

int niveau(const QTreeWidgetItem *item)
{
    int n = 0;
    for (const QTreeWidgetItem *p = item ? item->parent() : nullptr; p; p = p->parent())
        ++n;
    return n;
}

} // namespace

bool OuvrirComposants(ContexteParois &ctx, int ligne, const QString &dossier, QWidget *parent)
{
    QDialog d(parent);
    d.setWindowTitle(QStringLiteral("Composants"));
    d.resize(820, 520);
    auto *disposition = new QHBoxLayout(&d);
    auto *arbre = new QTreeWidget(&d);
    arbre->setHeaderLabel(QStringLiteral("Catégories, variétés, composants"));
    disposition->addWidget(arbre, 1);

    auto *droite = new QVBoxLayout;
    auto *champs = new QFormLayout;
    auto *categorie = new QLineEdit(&d);
    auto *variete = new QLineEdit(&d);
    auto *nom = new QLineEdit(&d);
    champs->addRow(QStringLiteral("Catégorie :"), categorie);
    champs->addRow(QStringLiteral("Variété :"), variete);
    champs->addRow(QStringLiteral("Composant :"), nom);
    QLineEdit *valeurs[7];
    for (int i = 0; i < 7; ++i) {
        valeurs[i] = new QLineEdit(&d);
        champs->addRow(LibellesComposant().at(i).trimmed(), valeurs[i]);
    }
    droite->addLayout(champs);
    auto *boutons = new QDialogButtonBox(&d);
    QPushButton *enregistrer
        = boutons->addButton(QStringLiteral("Enregistrer"), QDialogButtonBox::ActionRole);
    boutons->addButton(QStringLiteral("Valider"), QDialogButtonBox::AcceptRole);
    boutons->addButton(QDialogButtonBox::Cancel);
    droite->addWidget(boutons);
    disposition->addLayout(droite, 1);
    remplirArbre(arbre, dossier);

    const auto composantSaisi = [&] {
        Composant c;
        QString *champs[] = {&c.references, &c.masseVolumique, &c.conductivite, &c.capacite,
                             &c.muSec,      &c.muHumide,       &c.commentaire};
        for (int i = 0; i < 7; ++i)
            *champs[i] = valeurs[i]->text();
        return c;
    };
    QObject::connect(arbre, &QTreeWidget::currentItemChanged, &d, [&](QTreeWidgetItem *item) {
        if (!item)
            return;
        const int n = niveau(item);
        const QTreeWidgetItem *v = n == NiveauComposant ? item->parent()
            : n == NiveauVariete                        ? item
                                                        : nullptr;
        const QTreeWidgetItem *c = v ? v->parent() : item;
        categorie->setText(c->text(0));
        variete->setText(v ? v->text(0) : QString());
        nom->setText(n == NiveauComposant ? item->text(0) : QString());
        if (n != NiveauComposant)
            return;
        // A file that cannot be read leaves the fields as they were.
        const auto lu
            = LireComposant(CheminComposant(dossier, c->text(0), v->text(0), item->text(0)));
        if (!lu)
            return;
        const QString textes[]
            = {lu->references, lu->masseVolumique, lu->conductivite, lu->capacite,
               lu->muSec,      lu->muHumide,       lu->commentaire};
        for (int i = 0; i < 7; ++i)
            valeurs[i]->setText(textes[i]);
    });
    QObject::connect(enregistrer, &QPushButton::clicked, &d, [&] {
        const QString noms[]
            = {categorie->text().trimmed(), variete->text().trimmed(), nom->text().trimmed()};
        for (const QString &n : noms)
            if (n.isEmpty() || n.startsWith(QLatin1Char('.')) || n.contains(QLatin1Char('/'))
                || n.contains(QLatin1Char('\\'))) {
                QMessageBox::warning(&d, QStringLiteral("Thermique."),
                                     QStringLiteral("Nom de catégorie, de variété ou de "
                                                    "composant incorrect."));
                return;
            }
        if (!EcrireComposant(CheminComposant(dossier, noms[0], noms[1], noms[2]), composantSaisi()))
            QMessageBox::warning(&d, QStringLiteral("Thermique."),
                                 QStringLiteral("Le composant n'a pas pu être enregistré."));
        remplirArbre(arbre, dossier);
    });
    QObject::connect(boutons, &QDialogButtonBox::accepted, &d, &QDialog::accept);
    QObject::connect(boutons, &QDialogButtonBox::rejected, &d, &QDialog::reject);
    if (d.exec() != QDialog::Accepted || nom->text().trimmed().isEmpty())
        return false;
    // An air layer is computed, not taken from a file.
    if (EstLameAir(nom->text()) || EstLameAir(categorie->text()))
        return OuvrirLameAir(ctx, ligne, parent);
    AppliquerComposant(ctx, ligne, nom->text().trimmed(), composantSaisi());
    return true;
}

} // namespace thermique::gui
