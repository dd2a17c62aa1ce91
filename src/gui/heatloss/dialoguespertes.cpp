#include "dialoguespertes.h"

#include "heatloss/feuillepertes.h"
#include "workbook/classeur.h"
#include "workbook/nombres.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace thermique::gui {

namespace {

QDialogButtonBox *boutons(QDialog *d)
{
    auto *b = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, d);
    QObject::connect(b, &QDialogButtonBox::accepted, d, &QDialog::accept);
    QObject::connect(b, &QDialogButtonBox::rejected, d, &QDialog::reject);
    return b;
}

} // namespace

DialogueCalculB::DialogueCalculB(Classeur &classeur, QWidget *parent)
    : QDialog(parent)
    , m_classeur(classeur)
{
    setWindowTitle(QStringLiteral(" Thermique : Coefficient de réduction de température b."));
    m_options = new QTreeWidget(this);
    m_options->setHeaderHidden(true);
    for (const GroupeOptionsB &g : OptionsCoefficientB()) {
        auto *groupe = new QTreeWidgetItem(m_options, {g.groupe});
        groupe->setFlags(Qt::ItemIsEnabled);
        for (const QString &o : g.options)
            new QTreeWidgetItem(groupe, {o});
    }
    m_options->expandAll();
    m_options->setMinimumWidth(620);
    connect(m_options, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem *item) {
        if (item->parent())
            accept();
    });
    auto *mise = new QVBoxLayout(this);
    mise->addWidget(m_options);
    mise->addWidget(boutons(this));
}

void DialogueCalculB::accept()
{
    const QTreeWidgetItem *item = m_options->currentItem();
    if (!item || !item->parent())
        return;
    AppliquerCoefficientB(m_classeur, item->text(0));
    QDialog::accept();
}

DialogueRoseDesVents::DialogueRoseDesVents(Classeur &classeur, QWidget *parent)
    : QDialog(parent)
    , m_classeur(classeur)
{
    setWindowTitle(QStringLiteral(" Thermique : Rose des vents."));
    m_azimut = new QComboBox(this);
    m_azimut->setEditable(true);
    for (const Orientation &o : Orientations())
        m_azimut->addItem(
            o.code + QStringLiteral(" (") + TexteNombre(o.azimut) + QStringLiteral("°)"), o.code);
    const Grid &pertes = classeur.etude().flexGrid[4];
    m_azimut->setEditText(pertes.text(classeur.etat().LigneCourante, 8).trimmed());

    const Grid &rose = classeur.etude().roseDesVents;
    m_masques = new QTableWidget(72, 2, this);
    m_masques->setHorizontalHeaderLabels(
        {QStringLiteral("Azimut (°)"),
         QStringLiteral("Hauteur du masque, (en °), pour chaque orientation.")});
    m_masques->verticalHeader()->hide();
    for (int r = 1; r <= 72; ++r) {
        auto *azimut = new QTableWidgetItem(TexteNombre(5 * (r - 37)));
        azimut->setFlags(Qt::ItemIsEnabled);
        m_masques->setItem(r - 1, 0, azimut);
        m_masques->setItem(r - 1, 1, new QTableWidgetItem(rose.text(r, 1)));
    }
    m_masques->horizontalHeader()->setStretchLastSection(true);
    m_masques->setMinimumSize(480, 360);

    auto *mise = new QVBoxLayout(this);
    mise->addWidget(new QLabel(QStringLiteral("Azimut de la paroi (code ou degrés) :"), this));
    mise->addWidget(m_azimut);
    mise->addWidget(m_masques);
    mise->addWidget(boutons(this));
}

void DialogueRoseDesVents::accept()
{
    QStringList masques;
    for (int r = 0; r < 72; ++r)
        masques << (m_masques->item(r, 1) ? m_masques->item(r, 1)->text() : QString());
    // A list entry gives its code; a typed text goes as typed.
    const int i = m_azimut->findText(m_azimut->currentText());
    const QString azimut = i >= 0 ? m_azimut->itemData(i).toString() : m_azimut->currentText();
    AppliquerRoseDesVents(m_classeur, azimut, masques);
    QDialog::accept();
}

DialogueChoixLigne::DialogueChoixLigne(Classeur &classeur, QWidget *parent)
    : QDialog(parent)
    , m_classeur(classeur)
{
    setWindowTitle(QStringLiteral(" Thermique : Ligne à insérer."));
    m_pont = new QCheckBox(QStringLiteral("Ligne de pont thermique"), this);
    m_pont->setChecked(classeur.etat().LigneInsereePont);
    auto *mise = new QVBoxLayout(this);
    mise->addWidget(m_pont);
    mise->addWidget(boutons(this));
}

void DialogueChoixLigne::accept()
{
    ChoisirLigneInseree(m_classeur, m_pont->isChecked());
    QDialog::accept();
}

} // namespace thermique::gui
