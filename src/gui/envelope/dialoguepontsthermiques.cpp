// The bridge catalogue window (tree, detail, tables, drawing) and the quick evaluation.
#include "envelope/bridges/cataloguepont.h"
#include "envelope/bridges/feuillepontsthermiques.h"
#include "envelope/formulairespontsfenetres.h"
#include "workbook/classeur.h"
#include "workbook/userinterface.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPixmap>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTableWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace thermique::gui {

namespace {

constexpr int roleChemin = Qt::UserRole + 1;

void remplirArbre(QTreeWidgetItem *parent, QTreeWidget *arbre, const DossierPonts &d,
                  const QString &chemin)
{
    for (const DossierPonts &s : d.dossiers) {
        auto *item
            = parent ? new QTreeWidgetItem(parent, {s.nom}) : new QTreeWidgetItem(arbre, {s.nom});
        remplirArbre(item, arbre, s, chemin + QLatin1Char('/') + s.nom);
    }
    for (const QString &f : d.fichiers) {
        auto *item = parent ? new QTreeWidgetItem(parent, {f}) : new QTreeWidgetItem(arbre, {f});
        item->setData(0, roleChemin, chemin + QLatin1Char('/') + f + QStringLiteral(".txt"));
    }
}

void montrerTable(QTableWidget *t, const TablePont &table)
{
    t->clear();
    t->setRowCount(table.lignes);
    t->setColumnCount(table.colonnes);
    for (int r = 0; r < table.lignes; ++r)
        for (int c = 0; c < table.colonnes; ++c)
            t->setItem(r, c, new QTableWidgetItem(table.cellule(r, c)));
}

TablePont lireTable(const QTableWidget *t)
{
    TablePont table;
    table.lignes = t->rowCount();
    table.colonnes = t->columnCount();
    for (int r = 0; r < table.lignes; ++r)
        for (int c = 0; c < table.colonnes; ++c)
            table.cellules << (t->item(r, c) ? t->item(r, c)->text() : QString());
    return table;
}

bool nomValide(const QString &n)
{
    return !n.isEmpty() && !n.startsWith(QLatin1Char('.')) && !n.contains(QLatin1Char('/'))
        && !n.contains(QLatin1Char('\\'));
}

} // namespace

bool OuvrirPontsThermiques(Classeur &classeur, QWidget *parent)
{
    const QString racine = classeur.dossier().fichier(QStringLiteral("Ponts Thermiques"));
    const QString dessins = classeur.dossier().fichier(QStringLiteral("Dessins Ponts Thermiques"));
    const int ligne = classeur.etat().LigneCourante;

    QDialog d(parent);
    d.setWindowTitle(QStringLiteral("Ponts thermiques"));
    d.resize(1100, 680);
    auto *disposition = new QHBoxLayout(&d);
    auto *arbre = new QTreeWidget(&d);
    arbre->setHeaderLabel(QStringLiteral("Bibliothèque des ponts thermiques"));
    disposition->addWidget(arbre, 2);

    auto *droite = new QVBoxLayout;
    auto *haut = new QHBoxLayout;
    auto *champs = new QFormLayout;
    QLineEdit *niveaux[4];
    for (int i = 0; i < 4; ++i) {
        niveaux[i] = new QLineEdit(&d);
        champs->addRow(QStringLiteral("Niveau %1 :").arg(i + 1), niveaux[i]);
    }
    auto *nom = new QLineEdit(&d);
    auto *code = new QLineEdit(&d);
    auto *image = new QLineEdit(&d);
    champs->addRow(QStringLiteral("Désignation :"), nom);
    champs->addRow(QStringLiteral("Code RT 2005 :"), code);
    champs->addRow(QStringLiteral("Dessin :"), image);
    QLabel *libelles[3];
    QLineEdit *entrees[3];
    for (int i = 0; i < 3; ++i) {
        libelles[i] = new QLabel(&d);
        libelles[i]->setMinimumWidth(230); // the labels come with the detail
        entrees[i] = new QLineEdit(&d);
        champs->addRow(libelles[i], entrees[i]);
    }
    auto *legende = new QLabel(QStringLiteral("ψ (W/(m.K)) :"), &d);
    legende->setMinimumWidth(230);
    legende->setWordWrap(true);
    auto *resultat = new QLineEdit(&d);
    resultat->setReadOnly(true);
    champs->addRow(legende, resultat);
    haut->addLayout(champs, 1);
    auto *dessin = new QLabel(&d);
    dessin->setMinimumSize(250, 190);
    dessin->setAlignment(Qt::AlignCenter);
    dessin->setFrameShape(QFrame::Box);
    haut->addWidget(dessin);
    droite->addLayout(haut);

    auto *forme = new QHBoxLayout;
    auto *axes = new QSpinBox(&d);
    axes->setRange(0, 3);
    auto *colonnes = new QSpinBox(&d);
    colonnes->setRange(1, 50);
    auto *lignes = new QSpinBox(&d);
    lignes->setRange(1, 50);
    forme->addWidget(new QLabel(QStringLiteral("Axes :"), &d));
    forme->addWidget(axes);
    forme->addWidget(new QLabel(QStringLiteral("Colonnes :"), &d));
    forme->addWidget(colonnes);
    forme->addWidget(new QLabel(QStringLiteral("Lignes :"), &d));
    forme->addWidget(lignes);
    forme->addStretch();
    droite->addLayout(forme);
    auto *grilles = new QGridLayout;
    QTableWidget *tables[4];
    const char *titres[] = {"Premier axe", "Bandes du premier axe", "Second axe", "Valeurs ψ"};
    for (int i = 0; i < 4; ++i) {
        tables[i] = new QTableWidget(&d);
        tables[i]->horizontalHeader()->setDefaultSectionSize(60);
        grilles->addWidget(new QLabel(QString::fromUtf8(titres[i]), &d), (i / 2) * 2, i % 2);
        grilles->addWidget(tables[i], (i / 2) * 2 + 1, i % 2);
    }
    droite->addLayout(grilles, 1);
    auto *boutons = new QDialogButtonBox(&d);
    QPushButton *enregistrer
        = boutons->addButton(QStringLiteral("Enregistrer"), QDialogButtonBox::ActionRole);
    QPushButton *valider
        = boutons->addButton(QStringLiteral("Valider"), QDialogButtonBox::AcceptRole);
    boutons->addButton(QDialogButtonBox::Cancel);
    droite->addWidget(boutons);
    disposition->addLayout(droite, 5);

    FichierPont courant;
    QString nomFichier;
    const auto saisi = [&] {
        FichierPont p = courant;
        for (int i = 0; i < 4; ++i)
            p.texte1[i] = niveaux[i]->text();
        p.texte3[0] = nom->text();
        p.texte3[1] = code->text();
        p.texte4 = {QString::number(axes->value()), QString::number(colonnes->value()),
                    QString::number(lignes->value())};
        for (int i = 0; i < 4; ++i)
            p.tables[i] = lireTable(tables[i]);
        p.appliquerForme();
        p.image = image->text().trimmed();
        return p;
    };
    const auto calculer = [&] {
        resultat->setText(
            ChoisirValeur(saisi(), entrees[0]->text(), entrees[1]->text(), entrees[2]->text()));
    };
    const auto montrer = [&](const FichierPont &p) {
        courant = p;
        for (int i = 0; i < 4; ++i)
            niveaux[i]->setText(p.texte1[i]);
        nom->setText(p.texte3[0]);
        code->setText(p.texte3[1]);
        image->setText(p.image);
        const QSignalBlocker b1(axes), b2(colonnes), b3(lignes);
        axes->setValue(int(p.texte4[0].toDouble()));
        colonnes->setValue(std::max(1, p.colonnes()));
        lignes->setValue(std::max(1, p.lignes()));
        for (int i = 0; i < 4; ++i)
            montrerTable(tables[i], p.tables[i]);
        // An axis whose last cell is blank is not asked; a single value asks nothing.
        const bool unique = ValeurUnique(p);
        const QString axe1 = p.tables[0].libelle();
        const QString axe2 = p.tables[2].libelle();
        const QString labels[3]
            = {axe1.isEmpty() ? p.texte3[5] : axe1 + QStringLiteral(" = "),
               axe2.isEmpty() ? p.texte3[6] : axe2 + QStringLiteral(" = "), p.texte3[9]};
        const bool visibles[3] = {!unique && !axe1.isEmpty(), !unique && !axe2.isEmpty(),
                                  !unique && !p.texte3[9].trimmed().isEmpty()};
        for (int i = 0; i < 3; ++i) {
            libelles[i]->setText(labels[i]);
            libelles[i]->setVisible(visibles[i]);
            entrees[i]->setVisible(visibles[i]);
        }
        if (!p.texte3[12].trimmed().isEmpty())
            legende->setText(p.texte3[12]);
        const QPixmap pm(QDir(dessins).filePath(p.image));
        dessin->setPixmap(pm);
        if (pm.isNull())
            dessin->setText(QStringLiteral("Pas de dessin"));
        calculer();
    };
    remplirArbre(nullptr, arbre, ScannerPonts(racine), racine);

    QObject::connect(arbre, &QTreeWidget::currentItemChanged, &d, [&](QTreeWidgetItem *item) {
        const QString chemin = item ? item->data(0, roleChemin).toString() : QString();
        if (chemin.isEmpty())
            return;
        // A file that cannot be read leaves the form empty.
        const auto p = LireFichierPont(chemin);
        nomFichier = item->text(0);
        montrer(p.value_or(FichierPont {}));
    });
    for (QLineEdit *e : entrees)
        QObject::connect(e, &QLineEdit::textChanged, &d, calculer);
    for (QTableWidget *t : tables)
        QObject::connect(t, &QTableWidget::itemChanged, &d, calculer);
    const auto reformer = [&] {
        montrer(saisi());
    };
    QObject::connect(colonnes, &QSpinBox::valueChanged, &d, reformer);
    QObject::connect(lignes, &QSpinBox::valueChanged, &d, reformer);

    QObject::connect(enregistrer, &QPushButton::clicked, &d, [&] {
        const FichierPont p = saisi();
        QString chemin = racine;
        for (const QString &n : p.texte1) {
            if (!nomValide(n.trimmed())) {
                QMessageBox::warning(&d, QStringLiteral("Thermique."),
                                     QStringLiteral("Les quatre niveaux et la désignation doivent "
                                                    "être renseignés."));
                return;
            }
            chemin += QLatin1Char('/') + n.trimmed();
        }
        if (!nomValide(p.texte3[0].trimmed())) {
            QMessageBox::warning(&d, QStringLiteral("Thermique."),
                                 QStringLiteral("Les quatre niveaux et la désignation doivent être "
                                                "renseignés."));
            return;
        }
        if (!EcrireFichierPont(
                chemin + QLatin1Char('/') + p.texte3[0].trimmed() + QStringLiteral(".txt"), p))
            QMessageBox::warning(&d, QStringLiteral("Thermique."),
                                 QStringLiteral("Le pont thermique n'a pas pu être enregistré."));
        arbre->clear();
        remplirArbre(nullptr, arbre, ScannerPonts(racine), racine);
    });
    QObject::connect(valider, &QPushButton::clicked, &d, &QDialog::accept);
    QObject::connect(boutons, &QDialogButtonBox::rejected, &d, &QDialog::reject);
    if (d.exec() != QDialog::Accepted)
        return false;
    const QString psi = resultat->text();
    if (psi.isEmpty() || nom->text().trimmed().isEmpty())
        return false;
    AppliquerPont(classeur.etude().flexGrid[2], ligne,
                  NomPont(saisi(), nomFichier.isEmpty() ? nom->text().trimmed() : nomFichier),
                  code->text().trimmed(), psi, classeur.etude().compteurParois,
                  classeur.etat().CouleurVerrouillee);
    classeur.vue().grillesModifiees = true;
    return true;
}

bool OuvrirEvaluationPonts(Classeur &classeur, QWidget *parent)
{
    Grid &g = classeur.etude().flexGrid[2];
    EvaluationPonts e = EvaluationDeLaFeuille(g);
    QDialog d(parent);
    d.setWindowTitle(QStringLiteral("Evaluation des ponts thermiques"));
    d.resize(760, 640);
    auto *disposition = new QHBoxLayout(&d);
    auto *gauche = new QFormLayout;
    const char *noms[] = {"cboMurPlancher", "cboMurPlafond", "cboLinteau",      "cboAppui",
                          "cboTableau",     "cboSeuil",      "cboAngleSortant", "cboAngleRentrant"};
    QComboBox *choix[8];
    for (int i = 0; i < 8; ++i) {
        choix[i] = new QComboBox(&d);
        choix[i]->setObjectName(QString::fromUtf8(noms[i]));
        choix[i]->addItems(GradesEvaluation());
        choix[i]->setCurrentIndex(e.selections.value(i));
        gauche->addRow(BlocsEvaluation().at(i) + QStringLiteral(" :"), choix[i]);
    }
    auto *notes = new QLabel(
        QStringLiteral("Les valeurs sont enregistrées automatiquement à la fermeture de la "
                       "feuille.\nLes valeurs par défaut sont systématiquement remises à l'état "
                       "d'origine à l'ouverture\nPour un calcul précis des valeurs, cliquez sur "
                       "le bouton à droite."),
        &d);
    notes->setWordWrap(true);
    gauche->addRow(notes);
    auto *outil = new QPushButton(QStringLiteral("Calcul 2D"), &d);
    const QString dossierOutil = classeur.dossier().fichier(QStringLiteral("Calcul2D"));
    outil->setEnabled(QFileInfo(dossierOutil).isDir());
    QObject::connect(outil, &QPushButton::clicked, &d,
                     [&] { classeur.ui().ouvrirDocument(dossierOutil); });
    gauche->addRow(outil);
    disposition->addLayout(gauche, 1);

    auto *table = new QTableWidget(&d);
    const QVector<QStringList> lignes = GrilleEvaluation(e);
    table->setColumnCount(2);
    table->setRowCount(int(lignes.size()) - 1);
    table->setHorizontalHeaderLabels(lignes.first());
    for (int r = 1; r < lignes.size(); ++r)
        for (int c = 0; c < 2; ++c) {
            auto *item = new QTableWidgetItem(lignes[r].value(c));
            const bool titre = (r - 1) % 6 == 0;
            if (c == 0 || titre)
                item->setFlags(item->flags() & ~Qt::ItemIsEditable);
            if (titre) {
                QFont f = item->font();
                f.setBold(true);
                item->setFont(f);
            }
            table->setItem(r - 1, c, item);
        }
    table->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    disposition->addWidget(table, 1);
    d.exec();

    // Closing saves, whatever button closed the form.
    QVector<QStringList> relues = {lignes.first()};
    for (int r = 0; r < table->rowCount(); ++r)
        relues << QStringList {table->item(r, 0)->text(), table->item(r, 1)->text()};
    e.valeurs = ValeursDeGrille(relues);
    for (int i = 0; i < 8; ++i)
        e.selections[i] = choix[i]->currentIndex();
    EnregistrerEvaluation(g, e);
    classeur.marquerModifiee();
    return true;
}

} // namespace thermique::gui
