#include "mainwindow.h"

#include <QTabBar>
#include <QVBoxLayout>

namespace thermique {

namespace {
const char *const nomsFeuilles[] = {
    "Administratif",     "Coef - U",           "Coef - Pth", "Ventilation", "Pertes de chaleur",
    "Coef-Ubat",         "Besoins thermiques", "Consommations",
};
} // namespace

MainWindow::MainWindow(const DossierApplication &dossier, QWidget *parent)
    : QMainWindow(parent)
    , m_dossier(dossier)
{
    setWindowTitle(QStringLiteral(" Thermique : Bilan énergétique. "));
    auto *centre = new QWidget(this);
    auto *disposition = new QVBoxLayout(centre);
    m_onglets = new QTabBar(centre);
    for (const char *nom : nomsFeuilles)
        m_onglets->addTab(QString::fromUtf8(nom));
    disposition->addWidget(m_onglets);
    disposition->addStretch(1);
    setCentralWidget(centre);
    resize(1200, 800);
}

} // namespace thermique
