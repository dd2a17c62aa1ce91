#include "dialogueventilation.h"

#include "ventilation/tablesventilation.h"
#include "workbook/twips.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QTableWidget>
#include <QVBoxLayout>

namespace thermique::gui {

namespace {

// "&" marks a shortcut in a tab label.
QString libelleOnglet(QString texte)
{
    return texte.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

QString texteOnglet(const QTabBar *barre, int index)
{
    return barre->tabData(index).toString();
}

} // namespace

DialogueVentilation::DialogueVentilation(const DossierApplication &dossier, QWidget *parent)
    : QDialog(parent)
    , m_dossier(dossier)
{
    setWindowTitle(QStringLiteral(" Thermique : Calcul des débits de ventilation. "));
    m_onglets = new QTabBar(this);
    m_tables = new QTabBar(this);
    m_onglets->setExpanding(false);
    m_tables->setExpanding(false);
    m_grille = new QTableWidget(0, ColonnesTableVentilation, this);
    m_grille->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grille->horizontalHeader()->hide();
    m_grille->verticalHeader()->hide();
    int largeur = 0;
    for (int c = 0; c < ColonnesTableVentilation; ++c) {
        m_grille->setColumnWidth(c, pixels(LargeursTableVentilation[c]));
        largeur += pixels(LargeursTableVentilation[c]);
    }
    auto *note = new QLabel(QStringLiteral("Débit d'air normé : masse volumique égale à 1.20 "
                                           "kg/m3, soit : (20°C à 50% d'humidité)."),
                            this);
    auto *fermer = new QPushButton(QStringLiteral("Fermer"), this);
    connect(fermer, &QPushButton::clicked, this, &QDialog::accept);

    auto *mise = new QVBoxLayout(this);
    mise->addWidget(m_onglets);
    mise->addWidget(m_tables);
    mise->addWidget(m_grille, 1);
    mise->addWidget(note);
    mise->addWidget(fermer, 0, Qt::AlignRight);
    resize(largeur + 40, 480);

    for (const QString &onglet : OngletsVentilation(m_dossier)) {
        const int i = m_onglets->addTab(libelleOnglet(onglet));
        m_onglets->setTabData(i, onglet);
    }
    const PositionsVentilation positions = LirePositionsVentilation(m_dossier);
    if (positions.onglet < m_onglets->count())
        m_onglets->setCurrentIndex(positions.onglet);
    remplirTables();
    if (positions.table < m_tables->count())
        m_tables->setCurrentIndex(positions.table);
    m_chargement = false;
    remplirGrille();

    connect(m_onglets, &QTabBar::currentChanged, this, [this] {
        remplirTables();
        remplirGrille();
    });
    connect(m_tables, &QTabBar::currentChanged, this, [this] {
        if (!m_chargement)
            remplirGrille();
    });
}

void DialogueVentilation::remplirTables()
{
    m_chargement = true;
    while (m_tables->count() > 0)
        m_tables->removeTab(0);
    const int onglet = m_onglets->currentIndex();
    if (onglet >= 0) {
        for (const QString &table : TablesVentilation(m_dossier, texteOnglet(m_onglets, onglet))) {
            const int i = m_tables->addTab(libelleOnglet(table));
            m_tables->setTabData(i, table);
        }
    }
    m_chargement = false;
}

void DialogueVentilation::remplirGrille()
{
    m_grille->clearSpans();
    m_grille->setRowCount(0);
    const int io = m_onglets->currentIndex();
    const int it = m_tables->currentIndex();
    const QString onglet = io >= 0 ? texteOnglet(m_onglets, io) : QString();
    const QVector<QStringList> entetes = EntetesVentilation(onglet);
    QVector<QStringList> lignes = entetes;
    if (it >= 0)
        lignes += LireTableVentilation(m_dossier, onglet, texteOnglet(m_tables, it));
    m_grille->setRowCount(int(lignes.size()));
    QFont gras = m_grille->font();
    gras.setBold(true);
    for (int r = 0; r < lignes.size(); ++r) {
        for (int c = 0; c < ColonnesTableVentilation; ++c) {
            auto *item = new QTableWidgetItem(lignes[r].value(c));
            if (r < entetes.size()) {
                item->setFont(gras);
                item->setTextAlignment(Qt::AlignCenter);
            } else if (c > 0) {
                item->setTextAlignment(Qt::AlignCenter);
            }
            m_grille->setItem(r, c, item);
        }
    }
    // The two minimal flows of a dwelling share their heading.
    if (entetes.size() > 1)
        for (int r = 0; r < entetes.size(); ++r)
            m_grille->setSpan(r, 3, 1, 2);
}

void DialogueVentilation::done(int resultat)
{
    EcrirePositionsVentilation(
        m_dossier, {std::max(0, m_onglets->currentIndex()), std::max(0, m_tables->currentIndex())});
    QDialog::done(resultat);
}

} // namespace thermique::gui
